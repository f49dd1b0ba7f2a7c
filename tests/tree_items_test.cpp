// Items of a tree: insertion, listing, navigation, expansion, scrolling.
#include <functional>
#include <iterator>
#include <map>
#include <string>

#include "support/sent_messages.h"
#include "support/tree_gestures.h"

namespace {

constexpr std::int64_t WIDE = 0x123456789A;
constexpr std::int64_t LOW_HALF_EMPTY = std::int64_t{1} << 32;

// Which of the scroll bars has no answer, and where they were put.
int failingBar = -1;
std::map<int, int> barPositions;

BOOL WINAPI AnswerScrollInfo(HWND, int bar, SCROLLINFO* info) {
  EXPECT_TRUE(info->cbSize == 28 && info->fMask == SIF_POS);
  info->nPos = bar == SB_HORZ ? 31 : 32;
  return bar != failingBar;
}

int WINAPI NoteScrollInfo(HWND, int bar, const SCROLLINFO* info, BOOL redraw) {
  EXPECT_TRUE(info->cbSize == 28 && info->fMask == SIF_POS && redraw);
  barPositions[bar] = info->nPos;
  return 0;
}

class TreeItems : public TreeTest {
 protected:
  // a (b (c) d) e (f) g, all collapsed.
  void OpenWithBranches() {
    OpenEmpty();
    Insert(TEXT("a"));
    Insert(TEXT("b"), Item('a'));
    Insert(TEXT("c"), Item('b'));
    Insert(TEXT("d"), Item('a'));
    Insert(TEXT("e"), 0);
    Insert(TEXT("f"), Item('e'));
    Insert(TEXT("g"));
  }

  // The names of what GetItems lists.
  std::string Listed(bool visibleOnly) {
    ItemHandleList items;
    const std::int64_t length = view->GetItems(&items, visibleOnly);
    EXPECT_EQ(length, std::ssize(items));
    std::string names;
    for (const ItemHandle item : items) names += client.Name(item);
    return names;
  }
};

TEST_F(TreeItems, CellNumbersAreRefused) {
  OpenEmpty();
  const ItemHandle item = Insert(TEXT("a"));
  for (const int subItem : {-1, 1}) {
    QVLTreeViewItem record;
    record.SetSubItem(subItem);
    SentMessages sent;
    EXPECT_EQ(view->InsertItem(&record, item), -1);
    EXPECT_FALSE(view->UpdateItem(&record, item));
    EXPECT_TRUE(sent.all.empty());
  }
}

TEST_F(TreeItems, GetItemsAddsVisibleItemsOrTheFirstBranch) {
  OpenWithBranches();
  EXPECT_EQ(Listed(true), "aeg");
  EXPECT_EQ(Listed(false), "abcd");
  view->ExpandItem(Item('e'), true);
  EXPECT_EQ(Listed(true), "aefg");
  view->DeleteItem(Item('a'));
  EXPECT_EQ(Listed(false), "ef");
  ItemHandleList items = {7, 8};
  EXPECT_EQ(view->GetItems(&items, true), 5);
  EXPECT_EQ(view->GetItems(&items, false), 7);
  view->DeleteAllItems();
  EXPECT_EQ(view->GetItems(&items, true), 7);
  EXPECT_EQ(view->GetItems(&items, false), 7);
  EXPECT_EQ(items, (ItemHandleList{7, 8, Item('e'), Item('f'), Item('g'), Item('e'), Item('f')}));
}

TEST_F(TreeItems, NeighboursAreTheControlsOwn) {
  OpenWithBranches();
  for (const std::string row : {"a-be", "e-fg", "g---", "bacd", "da--"}) {
    EXPECT_EQ(view->GetParentItem(Item(row[0])), Item(row[1])) << row;
    EXPECT_EQ(view->GetFirstChildItem(Item(row[0])), Item(row[2])) << row;
    EXPECT_EQ(view->GetNextSiblingItem(Item(row[0])), Item(row[3])) << row;
  }
}

// Whole handles and what else the view does not judge; of an answer that is no handle the low half.
TEST_F(TreeItems, TheControlHearsEverythingElseAsItIs) {
  OpenWithBranches();
  struct Row {
    std::function<std::int64_t()> operation;
    int message;
    WPARAM wParam;
    LPARAM lParam;
    LRESULT answer;
    std::int64_t result;
  };
  IQVLTreeView& v = *view;
  const Row rows[] = {
      {[&] { return v.GetParentItem(0); }, TVM_GETNEXTITEM, TVGN_PARENT, 0, 0, 0},
      {[&] { return v.GetFirstChildItem(WIDE); }, TVM_GETNEXTITEM, TVGN_CHILD, WIDE, WIDE, WIDE},
      {[&] { return v.GetNextSiblingItem(WIDE); }, TVM_GETNEXTITEM, TVGN_NEXT, WIDE, WIDE, WIDE},
      {[&] { return v.DeleteItem(WIDE); }, TVM_DELETEITEM, 0, WIDE, LOW_HALF_EMPTY, 0},
      {[&] { return v.DeleteItem(WIDE); }, TVM_DELETEITEM, 0, WIDE, 2, 1},
      {[&] { return v.ExpandItem(-1, true), 0; }, TVM_EXPAND, TVE_EXPAND, -1, 0, 0},
      {[&] { return v.ExpandItem(WIDE, false), 0; }, TVM_EXPAND, TVE_COLLAPSE, WIDE, 0, 0},
      {[&] { return v.IsItemExpanded(WIDE); }, TVM_GETITEMSTATE, WIDE, TVIS_EXPANDED, 0x20, 1},
      {[&] { return v.IsItemExpanded(WIDE); }, TVM_GETITEMSTATE, WIDE, TVIS_EXPANDED, 0xFFDF, 0},
      {[&] { return v.EnsureVisible(WIDE), 0; }, TVM_ENSUREVISIBLE, 0, WIDE, 0, 0},
      {[&] { return v.EnsureVisible(-1), 0; }, TVM_ENSUREVISIBLE, 0, Item('a'), 0, 0},
  };
  for (const Row& row : rows) {
    SentMessages sent;
    sent.answers[static_cast<UINT>(row.message)] = row.answer;
    EXPECT_EQ(row.operation(), row.result);
    const SentMessage& last = sent.all.back();
    EXPECT_EQ(last.message, static_cast<UINT>(row.message));
    EXPECT_EQ(last.wParam, row.wParam);
    EXPECT_EQ(last.lParam, row.lParam);
  }
}

TEST_F(TreeItems, InsertionsGoToTheEndOfTheirParent) {
  OpenEmpty();
  SentMessages sent;
  sent.answers[TVM_INSERTITEMW] = WIDE;
  for (const ItemHandle parent : {ItemHandle{-1}, ItemHandle{0}, WIDE}) {
    EXPECT_EQ(Insert(TEXT("a"), parent), WIDE);
    EXPECT_EQ(sent.all.back().insertion.hParent, parent == -1 ? nullptr : Native(parent));
    EXPECT_EQ(sent.all.back().insertion.hInsertAfter, TVI_LAST);
  }
}

TEST_F(TreeItems, ExpandAllReachesEveryBranchAndCollapseAllTheTop) {
  OpenWithBranches();
  view->ExpandAll();
  EXPECT_EQ(Listed(true), "abcdefg");
  view->CollapseAll();
  EXPECT_EQ(Listed(true), "aeg");
  EXPECT_FALSE(view->IsItemExpanded(Item('a')));
  view->ExpandItem(Item('a'), true);
  EXPECT_EQ(Listed(true), "abcdeg") << "below the top nothing was collapsed";
}

TEST_F(TreeItems, ScrollPositionsAreThoseOfTheBars) {
  OpenEmpty();
  const ImportPatch get("GetScrollInfo", &AnswerScrollInfo);
  const ImportPatch set("SetScrollInfo", &NoteScrollInfo);
  struct Row {
    int failing, x, y;
  };
  for (const Row row : {Row{-1, 31, 32}, Row{SB_HORZ, 0, 32}, Row{SB_VERT, 31, 0}}) {
    int x = 7;
    int y = 7;
    failingBar = row.failing;
    EXPECT_TRUE(view->GetScrollPosition(&x, &y));
    EXPECT_EQ(x, row.x);
    EXPECT_EQ(y, row.y);
  }
  SentMessages sent;
  view->SetScrollPosition(-4, 5);
  EXPECT_TRUE(sent.all.empty()) << "the two calls alone act";
  EXPECT_EQ(barPositions, (std::map<int, int>{{SB_HORZ, -4}, {SB_VERT, 5}}));
}

}  // namespace
