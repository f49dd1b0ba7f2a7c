// The items of both views: neighbours, listing, expansion, check boxes, scrolling, icons of rows.
#include <functional>
#include <string>
#include <vector>

#include "support/fake_icons.h"
#include "support/list_test.h"
#include "support/sent_messages.h"
#include "support/tree_gestures.h"

namespace {

class ItemsTest : public TreeTest {
 protected:
  // A tree a (b (c) d) e (f) g, all collapsed, or the rows a to g.
  void OpenBranches(bool asList) {
    OpenEmpty(asList ? QVLS_LISTVIEW : 0);
    InsertBranches("a- ba cb da e- fe g-");
  }

  // Expects these items of GetItems, behind those that its list already has.
  void ExpectItems(bool visibleOnly, const std::string& tree, const std::string& list = "abcdefg") {
    ItemHandleList items = {7};
    std::string names;
    const std::int64_t length = view->GetItems(&items, visibleOnly);
    EXPECT_EQ(length, std::ssize(items));
    for (std::size_t i = 1; i < items.size(); ++i) names += client.Name(items[i]);
    EXPECT_EQ(names, IsList() ? list : tree);
    EXPECT_EQ(items[0], 7);
  }

  ItemHandle InsertChecked(bool checked, int stateIndex = -1) {
    record.SetChecked(checked);
    record.SetStateIndex(stateIndex);
    return view->InsertItem(&record, -1);
  }
  LRESULT StateImages() const { return Ask(TVM_GETIMAGELIST, TVSIL_STATE); }

  QVLTreeViewItem record;
};

TEST_F(ItemsTest, NeighboursAreThoseOfTheTreeOrTheRowsBeside) {
  // An item, its parent, its first child and its next sibling.
  const std::vector<std::string> rows[] = {{"a-be", "e-fg", "g---", "bacd", "da--"},
                                           {"a-bb", "bacc", "dcee", "gf--"}};
  for (const bool asList : {false, true}) {
    OpenBranches(asList);
    const auto named = [&](char name) { return name == '-' ? (asList ? -1 : 0) : Item(name); };
    for (const std::string& row : rows[asList]) {
      EXPECT_EQ(view->GetParentItem(Item(row[0])), named(row[1])) << row;
      EXPECT_EQ(view->GetFirstChildItem(Item(row[0])), named(row[2])) << row;
      EXPECT_EQ(view->GetNextSiblingItem(Item(row[0])), named(row[3])) << row;
    }
  }
}

TEST_F(ItemsTest, GetItemsAddsVisibleItemsOrTheFirstBranch) {
  for (const bool asList : {false, true}) {
    OpenBranches(asList);
    ExpectItems(true, "aeg");
    ExpectItems(false, "abcd");
    view->ExpandItem(Item('e'), true);
    ExpectItems(true, "aefg");
    view->ExpandAll();
    ExpectItems(true, "abcdefg");
    view->CollapseAll();
    ExpectItems(true, "aeg");
    EXPECT_FALSE(view->IsItemExpanded(Item('a')));
    view->ExpandItem(Item('a'), true);
    ExpectItems(true, "abcdeg");  // b stays expanded below the top level
    view->DeleteItem(Item('a'));
    if (!asList) ExpectItems(false, "ef");
    view->DeleteAllItems();
    ExpectItems(true, "", "");
    ExpectItems(false, "", "");
  }
}

TEST_F(ItemsTest, WorkIsProportionalToTheItems) {
  constexpr int kCount = 300;
  using V = IQVLTreeView;
  for (const bool asList : {false, true}) {
    OpenEmpty(QVLS_CHECKBOXES | (asList ? QVLS_LISTVIEW : 0));
    for (int i = 0; i < kCount; ++i) Insert(TEXT("a"));
    SentMessages sent;
    for (const auto operation :
         {&V::SelectAll, &V::ClearSelection, &V::InvertSelection, &V::CheckAll, &V::UncheckAll}) {
      sent.Forget();
      (view->*operation)();
      EXPECT_LT(sent.all.size(), 4u * kCount);
    }
    sent.Forget();
    NotifyOf(Item('a'), asList ? LVN_BEGINDRAG : TVN_BEGINDRAGW);
    EXPECT_LT(sent.all.size(), 4u * kCount);
    EXPECT_EQ(client.Take().back().size(),
              std::string("BeginDrag").size() + std::size_t{2} * kCount);
  }
}

// Handles go to the control whole, -1 and 0 too where the view has no rule for them. Of an answer
// that is no handle the low half counts.
TEST_F(ItemsTest, OperationsSendTheirMessagesWithWholeHandles) {
  OpenEmpty();
  const ItemHandle first = Insert(TEXT("a"));
  constexpr auto kWide = ItemHandle{0x123456789A};
  const struct {
    std::function<std::int64_t()> operation;
    int message;
    WPARAM wParam;
    LPARAM lParam;
    LRESULT answer;
    std::int64_t result;
  } rows[] = {
      {[&] { return view->GetParentItem(0); }, TVM_GETNEXTITEM, TVGN_PARENT, 0, 0, 0},
      {[&] { return view->GetNextSiblingItem(kWide); }, TVM_GETNEXTITEM, TVGN_NEXT, kWide, kWide,
       kWide},
      {[&] { return view->DeleteItem(kWide); }, TVM_DELETEITEM, 0, kWide, LRESULT{1} << 32, 0},
      {[&] { return view->DeleteItem(kWide); }, TVM_DELETEITEM, 0, kWide, 2, 1},
      {[&] { return view->ExpandItem(-1, true), 0; }, TVM_EXPAND, TVE_EXPAND, -1, 0, 0},
      {[&] { return view->IsItemExpanded(kWide); }, TVM_GETITEMSTATE, kWide, 0x20, 0x20, 1},
      {[&] { return view->IsItemExpanded(kWide); }, TVM_GETITEMSTATE, kWide, 0x20, 0xFFDF, 0},
      {[&] { return view->EnsureVisible(kWide), 0; }, TVM_ENSUREVISIBLE, 0, kWide, 0, 0},
      {[&] { return view->EnsureVisible(-1), 0; }, TVM_ENSUREVISIBLE, 0, first, 0, 0},
  };
  for (const auto& row : rows) {
    SentMessages sent;
    sent.answers[static_cast<UINT>(row.message)] = row.answer;
    EXPECT_EQ(row.operation(), row.result);
    const SentMessage& last = sent.all.back();
    EXPECT_EQ(last.message, static_cast<UINT>(row.message));
    EXPECT_EQ(last.wParam, row.wParam) << row.message;
    EXPECT_EQ(last.lParam, row.lParam) << row.message;
  }
  SentMessages sent;
  sent.answers[TVM_INSERTITEMW] = kWide;
  for (const ItemHandle parent : {ItemHandle{-1}, ItemHandle{0}, kWide}) {
    EXPECT_EQ(view->InsertItem(&record, parent), kWide);
    EXPECT_EQ(sent.all.back().insertion.hParent, parent == -1 ? nullptr : Native(parent));
    EXPECT_EQ(sent.all.back().insertion.hInsertAfter, TVI_LAST);
  }
  sent.Forget();
  for (const int subItem : {-1, 1}) {
    record.SetSubItem(subItem);
    EXPECT_FALSE(view->UpdateItem(&record, first) || view->InsertItem(&record, first) != -1);
  }
  EXPECT_TRUE(sent.all.empty()) << "a tree has no cells";
}

TEST_F(ItemsTest, ScrollPositionIsThatOfTheBars) {
  OpenEmpty();
  int x = 7;
  int y = 7;
  EXPECT_TRUE(view->GetScrollPosition(&x, &y));
  EXPECT_TRUE(x == 0 && y == 0) << "without bars";
  for (int i = 0; i < 100; ++i) Insert(std::basic_string<WCHAR>(200, 'w').c_str());
  view->SetScrollPosition(4, 5);
  EXPECT_TRUE(view->GetScrollPosition(&x, &y));
  EXPECT_EQ(x, 4);
  EXPECT_EQ(y, 5);
}

// By itself the control empties its boxes at the first paint. The native style alone makes boxes
// too, but records do not check them.
TEST_F(ItemsTest, BoxesCheckedBeforeTheFirstPaintStayChecked) {
  for (const bool byFlag : {true, false}) {
    ShowWindow(host, SW_HIDE);
    QVLTreeViewStyleExt ext;
    ext.SetStyle(byFlag ? 0 : TVS_CHECKBOXES);
    OpenView(byFlag ? QVLS_CHECKBOXES : 0, &ext);
    const LRESULT images = StateImages();
    EXPECT_NE(images, 0);
    const ItemHandle item = InsertChecked(true);
    EXPECT_EQ(BoxOf(item), byFlag ? 2u : 1u);
    view->SetItemChecked(item, true);
    EXPECT_EQ(BoxOf(InsertChecked(false)), 1u);
    ShowWindow(host, SW_SHOWNOACTIVATE);
    UpdateWindow(control);
    PumpMessages();
    EXPECT_EQ(BoxOf(item), 2u);
    EXPECT_EQ(StateImages(), images);
  }
  OpenEmpty();
  EXPECT_EQ(StateImages(), 0);
  EXPECT_EQ(BoxOf(InsertChecked(true)), 0u);
}

TEST_F(ItemsTest, InsertionSetsTheBoxAndUpdateOnlyChecksIt) {
  OpenEmpty(QVLS_CHECKBOXES);
  const ItemHandle item = InsertChecked(true);
  const struct {
    bool checked;
    int stateIndex;
    UINT boxOfNew, boxOfUpdated;
  } rows[] = {{false, -1, 1, 2}, {false, 1, 1, 1},  {true, -1, 2, 2}, {true, 1, 2, 2},
              {false, 0, 1, 0},  {false, -1, 1, 0}, {true, 0, 2, 2},  {false, 18, 2, 2}};
  for (const auto& row : rows) {
    EXPECT_EQ(BoxOf(InsertChecked(row.checked, row.stateIndex)), row.boxOfNew);
    EXPECT_TRUE(view->UpdateItem(&record, item));
    EXPECT_EQ(BoxOf(item), row.boxOfUpdated) << row.checked << " " << row.stateIndex;
  }
}

TEST_F(ItemsTest, OnlyVisibleItemsAreCheckedAndCounted) {
  OpenEmpty(QVLS_CHECKBOXES);
  const ItemHandle shown = Insert(TEXT("shown"));
  const ItemHandle hidden = Insert(TEXT("hidden"), shown);
  view->CheckAll();
  EXPECT_EQ(BoxOf(hidden), 1u);
  SetBox(hidden, 2);
  EXPECT_EQ(view->GetCheckedCount(), 1);
  EXPECT_EQ(view->GetCheckedItem(0), shown);
  view->UncheckAll();
  EXPECT_EQ(BoxOf(hidden), 2u);
  view->ExpandItem(shown, true);
  EXPECT_EQ(view->GetCheckedItem(0), hidden);
}

class ListItemsTest : public ListTest {};

TEST_F(ListItemsTest, ScrollPositionCountsRowsAndScrollingMovesByPixels) {
  Open();
  SentMessages sent;
  view->EnsureVisible(0);
  EXPECT_EQ(sent.Of(LVM_ENSUREVISIBLE).size(), 0u) << "there is no row";
  const auto expectTop = [this](int top, int height) {
    int x = -1;
    int y = -1;
    EXPECT_TRUE(view->GetScrollPosition(&x, &y));
    EXPECT_EQ(x, 0);
    EXPECT_EQ(y, top * height);
  };
  expectTop(0, 0);
  AddRows(100);
  const int height = ItemRect(0, false).bottom - ItemRect(0, false).top;
  view->EnsureVisible(99);
  const auto top = static_cast<int>(Ask(LVM_GETTOPINDEX));
  EXPECT_GT(top, 50);
  expectTop(top, height);
  view->SetScrollPosition(-3, -2 * height);
  EXPECT_EQ(static_cast<INT_PTR>(sent.Of(LVM_SCROLL).back().wParam), -3);
  expectTop(top - 2, height);
  view->EnsureVisible(-1);
  expectTop(0, height);
}

TEST_F(ListItemsTest, SystemIconsAreAskedForByNameForEachRow) {
  FakeIcons shell;
  UseClientColumns({100, 100});
  Open();
  const std::basic_string<WCHAR> path = TEXT("C:\\folder.d\\file.txt");
  QVLTreeViewItem record;
  record.SetFileName(path.c_str());
  record.SetImageIndex(6);
  SentMessages sent;
  const auto imageOfNew = [&](int type) {
    shell.index = 42 + type;
    record.SetType(type);
    view->InsertItem(&record, -1);
    return sent.Of(LVM_INSERTITEMW).back().item.iImage;
  };
  shell.refuses = true;
  EXPECT_FALSE(view->UseSystemImageList());
  EXPECT_EQ(imageOfNew(0), 6);
  shell.refuses = false;
  EXPECT_TRUE(view->UseSystemImageList());
  EXPECT_EQ(Ask(LVM_GETIMAGELIST, LVSIL_SMALL), reinterpret_cast<LRESULT>(shell.list));
  EXPECT_TRUE(view->SetImageList(nullptr)) << "does not end the system icons";
  shell.asked.clear();
  for (const int type : {0, 2, 1}) EXPECT_EQ(imageOfNew(type), 42 + type);
  view->UpdateItem(&record, 0);
  EXPECT_EQ(sent.all.back().item.iImage, 43);
  record.SetSubItem(1);
  view->InsertItem(&record, 0);
  view->UpdateItem(&record, 0);
  const std::vector<std::basic_string<WCHAR>> asked = {path, path, TEXT("file.txt"), path};
  EXPECT_EQ(shell.asked, asked) << "cells have no icons";
}

}  // namespace
