// The tree's selection and its hit test, as far as the random walk of tree_model_test does not
// come.
#include "support/tree_gestures.h"

namespace {

class TreeSelectionTest : public TreeTest {
 protected:
  void SetUp() override {
    TreeTest::SetUp();
    Open(QVLS_HASBUTTONS | QVLS_LINESATROOT | QVLS_HASLINES | QVLS_CHECKBOXES);
  }

  ItemHandle HitTest(POINT point, bool select, std::uint32_t* hitFlags = nullptr) {
    const POINT asked = ToScreen(point);
    const ItemHandle item = view->HitTest(&asked, select, hitFlags);
    EXPECT_EQ(asked.x, ToScreen(point).x);
    EXPECT_EQ(asked.y, ToScreen(point).y);
    return item;
  }
};

TEST_F(TreeSelectionTest, TheSelectionIsListedFromTheTopDown) {
  Given("- - PRS");
  EXPECT_EQ(view->GetSelectedCount(), 3);
  EXPECT_EQ(view->GetSelectedItem(1), Item('R'));
  EXPECT_EQ(view->GetSelectedItem(3), -1);
  EXPECT_EQ(view->GetSelectedItem(-1), -1);
  EXPECT_FALSE(view->IsItemSelected(Item('Q')));
}

TEST_F(TreeSelectionTest, WithoutItemsOrControlTheBracketRemains) {
  for (const bool destroyed : {false, true}) {
    view->DeleteAllItems();
    if (destroyed) view->Destroy();
    view->SetClient(&client);
    client.Take();
    EXPECT_EQ(view->GetSelectedItem(0), destroyed ? 0 : -1);
    view->SelectAll();
    view->InvertSelection();
    view->ClearSelection();
    EXPECT_EQ(Heard(), "B E B E B E");
  }
}

TEST_F(TreeSelectionTest, HitTestForgetsAnItemThatIsDeletedMeanwhile) {
  Given("P - PQ");
  client.onBeginSelectionChange = [this] { view->DeleteItem(Item('S')); };
  EXPECT_EQ(HitTest(LabelPoint(Item('S')), true), -1);
  EXPECT_EQ(Heard(), "B P Q E");
  EXPECT_EQ(CaretItem(), Item('P'));
}

TEST_F(TreeSelectionTest, HitFlagsTellThePartOfTheItem) {
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
  const HIMAGELIST images = ImageList_Create(16, 16, ILC_COLOR, 1, 1);
  view->SetImageList(images);
  const ItemHandle child = Insert(TEXT("c"), Item('Q'));
  Insert(TEXT("d"), child);
  view->ExpandAll();
  PumpMessages();
  for (const Part& part : PARTS) {
    std::uint32_t hitFlags = 99;
    EXPECT_EQ(HitTest(PartPoint(child, part.native), false, &hitFlags), child);
    EXPECT_EQ(hitFlags, part.flags);
  }
  view->SetImageList(nullptr);
  ImageList_Destroy(images);
}

TEST_F(TreeSelectionTest, HitFlagsAreEmptyWhereNoItemLies) {
  Given("P - PQ");
  for (const POINT point :
       {OffPoint(), POINT{-5, 5}, POINT{WIDTH + 5, 5}, POINT{5, -5}, POINT{5, HEIGHT + 5}}) {
    std::uint32_t hitFlags = 99;
    EXPECT_EQ(HitTest(point, true, &hitFlags), -1);
    EXPECT_EQ(hitFlags, 0U);
  }
  EXPECT_EQ(Heard(), "");
  EXPECT_EQ(Selected(), "PQ");
}

}  // namespace
