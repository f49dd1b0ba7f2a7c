// Items of a tree: insertion, update, listing, navigation, expansion, scrolling.
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "support/sent_messages.h"
#include "support/tree_gestures.h"

namespace {

constexpr std::int64_t WIDE = 0x123456789A;
constexpr std::int64_t LOW_HALF_EMPTY = std::int64_t{1} << 32;

// What the scroll calls were given, and which of the bars has no answer.
struct ScrollCall {
  int bar;
  UINT size;
  UINT mask;
  int position;
};
std::vector<ScrollCall> scrollCalls;
int failingBar = -1;

BOOL WINAPI AnswerScrollInfo(HWND, int bar, SCROLLINFO* info) {
  scrollCalls.push_back({bar, info->cbSize, info->fMask, 0});
  info->nPos = bar == SB_HORZ ? 31 : 32;
  return bar != failingBar;
}

int WINAPI NoteScrollInfo(HWND, int bar, const SCROLLINFO* info, BOOL redraw) {
  EXPECT_TRUE(redraw);
  scrollCalls.push_back({bar, info->cbSize, info->fMask, info->nPos});
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

struct RecordRow {
  const char* name;
  int stateIndex;
  bool bold;
  bool cut;
  int image;
  UINT mask;
  UINT state;
};

constexpr RecordRow RECORDS[] = {
    {"defaults", -1, false, false, -1, 55, 0},
    {"image", -1, false, false, 7, 55, 0},
    {"bold and cut without a state", -1, true, true, -1, 55, 0},
    {"no state image", 0, false, false, -1, 63, 0},
    {"state image", 3, false, false, -1, 63, 0x3000},
    {"state image too large", 0x15, false, false, -1, 63, 0x15000},
    {"negative state image", -2, false, false, -1, 63, 0xFFFFE000},
    {"bold", 2, true, false, -1, 63, 0x2010},
    {"cut", 1, false, true, -1, 63, 0x1004},
    {"bold and cut", 0, true, true, -1, 63, 0x14},
};

TEST_F(TreeItems, RecordBecomesANativeItem) {
  OpenEmpty();
  for (const RecordRow& row : RECORDS) {
    SCOPED_TRACE(row.name);
    QVLTreeViewItem record;
    record.SetItemName(TEXT("the name"));
    record.SetFileName(TEXT("the file"));
    record.SetClientPtr(WIDE);
    record.SetStateIndex(row.stateIndex);
    record.SetBold(row.bold);
    record.SetCut(row.cut);
    record.SetImageIndex(row.image);
    SentMessages sent;
    const ItemHandle item = view->InsertItem(&record, -1);
    EXPECT_TRUE(view->UpdateItem(&record, item));
    ASSERT_EQ(sent.all.size(), 2u);
    EXPECT_EQ(sent.all[0].message, static_cast<UINT>(TVM_INSERTITEMW));
    EXPECT_EQ(sent.all[1].message, static_cast<UINT>(TVM_SETITEMW));
    EXPECT_EQ(sent.all[1].treeItem.hItem, Native(item));
    for (const SentMessage& message : sent.all) {
      EXPECT_EQ(message.treeItem.mask, row.mask);
      EXPECT_EQ(message.treeItem.mask & TVIF_STATE ? message.treeItem.state : 0, row.state);
      EXPECT_EQ(message.treeItem.stateMask, 0xF014u);
      EXPECT_EQ(message.treeItem.iImage, row.image);
      EXPECT_EQ(message.treeItem.iSelectedImage, row.image);
      EXPECT_EQ(message.treeItem.lParam, WIDE);
      EXPECT_EQ(message.text, TEXT("the name"));
    }
    EXPECT_EQ(view->GetItemClientPtr(item), WIDE);
    EXPECT_EQ(TextOf(item), TEXT("the name"));
  }
}

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

TEST_F(TreeItems, CheckAndSelectionFollowTheItem) {
  OpenEmpty(QVLS_CHECKBOXES);
  QVLTreeViewItem record;
  record.SetChecked(true);
  record.SetSelected(true);
  SentMessages sent;
  const ItemHandle item = view->InsertItem(&record, -1);
  client.labels[item] = "a";
  for (const UINT first : {TVM_INSERTITEMW, TVM_SETITEMW}) {
    ASSERT_EQ(sent.all.size(), 3u);
    EXPECT_EQ(sent.all[0].message, first);
    EXPECT_EQ(sent.all[1].message, static_cast<UINT>(TVM_SETITEMW));
    EXPECT_EQ(sent.all[1].treeItem.mask, 8u);
    EXPECT_EQ(sent.all[1].treeItem.hItem, Native(item));
    EXPECT_EQ(sent.all[1].treeItem.state, 0x2000u);
    EXPECT_EQ(sent.all[1].treeItem.stateMask, 0xF000u);
    EXPECT_EQ(sent.all[2].message, static_cast<UINT>(TVM_SELECTITEM));
    EXPECT_EQ(sent.all[2].wParam, static_cast<WPARAM>(TVGN_CARET));
    EXPECT_EQ(sent.all[2].lParam, item);
    MoveCaret(0);
    client.Take();
    sent.Forget();
    EXPECT_TRUE(view->UpdateItem(&record, item));
    EXPECT_EQ(Heard(), "a") << "without a bracket";
  }
  record.SetSelected(false);
  EXPECT_TRUE(view->UpdateItem(&record, item));
  EXPECT_TRUE(view->IsItemSelected(item)) << "a record only selects";
}

TEST_F(TreeItems, RefusedItemsGetNothingFurther) {
  OpenEmpty(QVLS_CHECKBOXES);
  const ItemHandle item = Insert(TEXT("a"));
  QVLTreeViewItem record;
  record.SetChecked(true);
  record.SetSelected(true);
  SentMessages sent;
  sent.answers[TVM_INSERTITEMW] = 0;
  EXPECT_EQ(view->InsertItem(&record, -1), -1);
  for (const LRESULT refusal : {LRESULT{0}, LOW_HALF_EMPTY}) {
    sent.answers[TVM_SETITEMW] = refusal;
    EXPECT_FALSE(view->UpdateItem(&record, item));
  }
  EXPECT_EQ(sent.all.size(), 3u);
  sent.answers[TVM_SETITEMW] = 1;
  sent.answers[TVM_SELECTITEM] = 0;
  EXPECT_TRUE(view->UpdateItem(&record, item)) << "what follows the item is not looked at";
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
    EXPECT_EQ(sent.all.back().treeParent, parent == -1 ? nullptr : Native(parent));
    EXPECT_EQ(sent.all.back().insertAfter, TVI_LAST);
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
  scrollCalls.clear();
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
  ASSERT_EQ(scrollCalls.size(), 8u);
  for (std::size_t i = 0; i < scrollCalls.size(); ++i) {
    EXPECT_EQ(scrollCalls[i].bar, i % 2 ? SB_VERT : SB_HORZ) << i;
    EXPECT_EQ(scrollCalls[i].size, 28u) << i;
    EXPECT_EQ(scrollCalls[i].mask, static_cast<UINT>(SIF_POS)) << i;
  }
  EXPECT_EQ(scrollCalls[6].position, -4);
  EXPECT_EQ(scrollCalls[7].position, 5);
}

}  // namespace
