// The tree's selection operations, its hit test, and what the client hears of both.
#include <functional>

#include "support/tree_gestures.h"

namespace {

class TreeSelectionTest : public TreeTest {
 protected:
  void SetUp() override {
    TreeTest::SetUp();
    Open(QVLS_HASBUTTONS | QVLS_LINESATROOT | QVLS_HASLINES | QVLS_CHECKBOXES);
  }

  ItemHandle InsertRecord(bool selected) {
    QVLTreeViewItem record;
    record.SetItemName(TEXT("T"));
    record.SetSelected(selected);
    return view->InsertItem(&record, -1);
  }

  ItemHandle HitTest(POINT point, bool select, std::uint32_t* hitFlags) {
    const POINT onScreen = ToScreen(point);
    const POINT asked = onScreen;
    const ItemHandle item = view->HitTest(&asked, select, hitFlags);
    EXPECT_EQ(asked.x, onScreen.x);
    EXPECT_EQ(asked.y, onScreen.y);
    return item;
  }
};

struct Operation {
  const char* name;
  std::function<void(IQVLTreeView&, ItemHandle)> run;
  const char* heard;
  const char* selectedAfter;
};

// On P Q R S with P and R selected, Q the caret, P the anchor; the item is Q.
const Operation OPERATIONS[] = {
    {"select", [](IQVLTreeView& view, ItemHandle q) { view.SetItemSelected(q, true); }, "B Q E",
     "PQR"},
    {"deselect", [](IQVLTreeView& view, ItemHandle q) { view.SetItemSelected(q, false); }, "B Q E",
     "PR"},
    {"select -1", [](IQVLTreeView& view, ItemHandle) { view.SetItemSelected(-1, true); }, "", "PR"},
    {"select all", [](IQVLTreeView& view, ItemHandle) { view.SelectAll(); }, "B Q S E", "PQRS"},
    {"clear", [](IQVLTreeView& view, ItemHandle) { view.ClearSelection(); }, "B P R E", ""},
    {"invert", [](IQVLTreeView& view, ItemHandle) { view.InvertSelection(); }, "B P Q R S E", "QS"},
};

TEST_F(TreeSelectionTest, OperationsChangeMarksAndNothingElse) {
  for (const bool multiSelect : {true, false}) {
    for (const Operation& operation : OPERATIONS) {
      SCOPED_TRACE(operation.name);
      Given("PR", 'Q', 'P');
      view->SetMultiSelect(multiSelect);
      operation.run(*view, Item('Q'));
      EXPECT_EQ(Heard(), operation.heard);
      EXPECT_EQ(Selected(), operation.selectedAfter);
      EXPECT_EQ(Caret(), "Q");
      EXPECT_EQ(ObserveAnchor(), "P");
    }
  }
}

TEST_F(TreeSelectionTest, TheSelectionIsListedFromTheTopDown) {
  Given("PRS", '-', '-');
  EXPECT_EQ(view->GetSelectedCount(), 3);
  EXPECT_EQ(view->GetSelectedItem(1), Item('R'));
  EXPECT_EQ(view->GetSelectedItem(3), -1);
  EXPECT_EQ(view->GetSelectedItem(-1), -1);
  EXPECT_TRUE(view->IsItemSelected(Item('P')));
  EXPECT_FALSE(view->IsItemSelected(Item('Q')));
  EXPECT_FALSE(view->IsItemSelected(-1));
}

TEST_F(TreeSelectionTest, HiddenItemsKeepTheirMarks) {
  const ItemHandle child = Insert(TEXT("c"), Item('Q'));
  view->ExpandItem(Item('Q'), true);
  Given("PcR", 'P', '-');
  view->ExpandItem(Item('Q'), false);
  EXPECT_EQ(Selected(), "PR");
  client.Take();
  view->InvertSelection();
  view->ClearSelection();
  EXPECT_EQ(Heard(), "B P Q R S E B Q S E");
  EXPECT_TRUE(view->IsItemSelected(child));
  view->ExpandItem(Item('Q'), true);
  EXPECT_EQ(Selected(), "c");
  view->ExpandItem(Item('Q'), false);
  client.Take();
  view->SetItemSelected(child, false);
  EXPECT_EQ(Heard(), "B c E");
  EXPECT_FALSE(view->IsItemSelected(child));
}

TEST_F(TreeSelectionTest, WithoutItemsOrControlThereIsNothingToSelect) {
  const auto selectEverything = [this] {
    view->SelectAll();
    view->InvertSelection();
    view->ClearSelection();
    return Heard();
  };
  const ItemHandle gone = Item('P');
  const POINT point = ToScreen(OffPoint());
  view->DeleteAllItems();
  client.Take();
  EXPECT_EQ(view->GetSelectedItem(0), -1);
  EXPECT_EQ(selectEverything(), "B E B E B E");
  view->Destroy();
  view->SetClient(&client);
  view->SetItemSelected(gone, true);
  EXPECT_EQ(view->GetSelectedCount(), 0);
  EXPECT_EQ(view->GetSelectedItem(0), 0);
  EXPECT_FALSE(view->IsItemSelected(gone));
  std::uint32_t hitFlags = 99;
  EXPECT_EQ(view->HitTest(&point, true, &hitFlags), -1);
  EXPECT_EQ(hitFlags, 0U);
  EXPECT_EQ(Heard(), "");
  EXPECT_EQ(selectEverything(), "B E B E B E");
}

struct Selecting {
  const char* name;
  bool multiSelect;
  char hit;
  const char* selected;
  const char* heard;
  const char* selectedAfter;
};

TEST_F(TreeSelectionTest, HitTestSelectsAnItemThatIsNotSelected) {
  const Selecting cases[] = {
      {"another item", true, 'R', "PQ", "B P Q R E", "R"},
      {"a selected item", true, 'Q', "PQ", "", "PQ"},
      {"the caret without its mark", true, 'Q', "PR", "B P R E", ""},
      {"one item at most", false, 'R', "PQ", "B R E", "PR"},
  };
  for (const Selecting& row : cases) {
    SCOPED_TRACE(row.name);
    Given(row.selected, 'Q', 'P');
    view->SetMultiSelect(row.multiSelect);
    EXPECT_EQ(HitTest(LabelPoint(Item(row.hit)), false, nullptr), Item(row.hit));
    EXPECT_EQ(Heard(), "");
    EXPECT_EQ(HitTest(LabelPoint(Item(row.hit)), true, nullptr), Item(row.hit));
    EXPECT_EQ(Heard(), row.heard);
    EXPECT_EQ(Selected(), row.selectedAfter);
    EXPECT_EQ(ObserveAnchor(), "P");
  }
}

TEST_F(TreeSelectionTest, HitTestForgetsAnItemThatIsDeletedMeanwhile) {
  Given("PQ", 'P', '-');
  const POINT point = LabelPoint(Item('S'));
  client.onBeginSelectionChange = [this] { view->DeleteItem(Item('S')); };
  EXPECT_EQ(HitTest(point, true, nullptr), -1);
  EXPECT_EQ(Heard(), "B P Q E");
  EXPECT_EQ(Caret(), "P");
}

struct Part {
  UINT native;
  std::uint32_t flags;
};

constexpr Part PARTS[] = {
    {TVHT_ONITEMLABEL, QVLHT_ONITEM | QVLHT_ONITEMLABEL},
    {TVHT_ONITEMICON, QVLHT_ONITEM | QVLHT_ONITEMICON},
    {TVHT_ONITEMSTATEICON, QVLHT_ONITEM | QVLHT_ONITEMSTATEICON},
    {TVHT_ONITEMBUTTON, QVLHT_ONITEMBUTTON},
    {TVHT_ONITEMINDENT, QVLHT_ONITEMINDENT},
    {TVHT_ONITEMRIGHT, QVLHT_ONITEMRIGHT},
};

TEST_F(TreeSelectionTest, HitFlagsTellThePartOfTheItem) {
  HIMAGELIST images = ImageList_Create(16, 16, ILC_COLOR, 1, 1);
  view->SetImageList(images);
  Insert(TEXT("c"), Item('Q'));
  view->ExpandItem(Item('Q'), true);
  const ItemHandle grandchild = Insert(TEXT("d"), Item('c'));
  view->ExpandItem(Item('c'), true);
  ASSERT_NE(grandchild, -1);
  PumpMessages();
  for (const Part& part : PARTS) {
    std::uint32_t hitFlags = 99;
    EXPECT_EQ(HitTest(PartPoint(Item('c'), part.native), false, &hitFlags), Item('c'));
    EXPECT_EQ(hitFlags, part.flags);
  }
  view->SetImageList(nullptr);
  ImageList_Destroy(images);
}

TEST_F(TreeSelectionTest, HitFlagsAreEmptyWhereNoItemLies) {
  Given("PQ", 'P', '-');
  RECT area;
  GetClientRect(control, &area);
  const LONG row = LabelPoint(Item('P')).y;
  for (const POINT point : {OffPoint(), POINT{-5, row}, POINT{area.right + 5, row}, POINT{5, -5},
                            POINT{5, area.bottom + 5}}) {
    std::uint32_t hitFlags = 99;
    EXPECT_EQ(HitTest(point, true, &hitFlags), -1);
    EXPECT_EQ(hitFlags, 0U);
  }
  EXPECT_EQ(Heard(), "");
  EXPECT_EQ(Selected(), "PQ");
}

TEST_F(TreeSelectionTest, WhatTheControlDoesAloneComesWithoutBracket) {
  Given("Q", 'Q', '-');
  const ItemHandle plain = InsertRecord(false);
  EXPECT_EQ(Heard(), "");
  const ItemHandle item = InsertRecord(true);
  EXPECT_EQ(Heard(), client.Name(item));
  QVLTreeViewItem record;
  record.SetItemName(TEXT("U"));
  record.SetSelected(true);
  view->UpdateItem(&record, plain);
  EXPECT_EQ(Heard(), client.Name(plain));
  MoveCaret(0);
  EXPECT_EQ(Heard(), "0");
  view->SetItemChecked(item, true);
  view->UncheckAll();
  EXPECT_EQ(Heard(), "");
}

}  // namespace
