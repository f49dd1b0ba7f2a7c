// Items of a tree: insertion, update, listing, navigation, expansion; and what the control shows.
#include <gtest/gtest.h>

#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "qvl.h"
#include "support/host_window.h"
#include "support/import_patch.h"
#include "support/sent_messages.h"

namespace {

using Text = std::basic_string<WCHAR>;

HTREEITEM Native(ItemHandle item) { return reinterpret_cast<HTREEITEM>(item); }

// One setting of a record and what the control is sent for it.
struct RecordRow {
  const char* name;
  std::function<void(QVLTreeViewItem&)> set;
  UINT mask;
  UINT state;
  int image;
};

const RecordRow RECORDS[] = {
    {"defaults", [](auto&) {}, 55, 0xFFFFF000, -1},
    {"image", [](auto& r) { r.SetImageIndex(7); }, 55, 0xFFFFF000, 7},
    {"no state image", [](auto& r) { r.SetStateIndex(0); }, 63, 0, -1},
    {"state image", [](auto& r) { r.SetStateIndex(3); }, 63, 0x3000, -1},
    {"state image too large", [](auto& r) { r.SetStateIndex(0x15); }, 63, 0x15000, -1},
    {"other negative state image", [](auto& r) { r.SetStateIndex(-2); }, 63, 0xFFFFE000, -1},
    {"bold", [](auto& r) { r.SetStateIndex(0), r.SetBold(true); }, 63, 0x10, -1},
    {"cut", [](auto& r) { r.SetStateIndex(1), r.SetCut(true); }, 63, 0x1004, -1},
    {"bold and cut",
     [](auto& r) { r.SetStateIndex(2), r.SetBold(true), r.SetCut(true), r.SetImageIndex(0); }, 63,
     0x2014, 0},
    {"type 1 without system icons", [](auto& r) { r.SetType(1), r.SetImageIndex(3); }, 55,
     0xFFFFF000, 3},
};

void Fill(QVLTreeViewItem& record, const RecordRow& row) {
  record.SetItemName(TEXT("the name"));
  record.SetFileName(TEXT("the file"));
  record.SetClientPtr(0x123456789AB);
  row.set(record);
}

void ExpectItem(const SentMessage& sent, const RecordRow& row) {
  const TVITEMW& item = sent.treeItem;
  EXPECT_EQ(sent.wParam, 0u) << row.name;
  EXPECT_EQ(item.mask, row.mask) << row.name;
  if (row.mask & TVIF_STATE) {
    EXPECT_EQ(item.state, row.state) << row.name;
  }
  EXPECT_EQ(item.stateMask, 0xF014u) << row.name;
  EXPECT_EQ(item.iImage, row.image) << row.name;
  EXPECT_EQ(item.iSelectedImage, row.image) << row.name;
  EXPECT_EQ(item.lParam, 0x123456789AB) << row.name;
  EXPECT_EQ(sent.text, TEXT("the name")) << row.name;
}

std::vector<RECT> invalidated;
std::vector<int> shown;

BOOL WINAPI NoteInvalidate(HWND window, const RECT* rect, BOOL erase) {
  EXPECT_EQ(rect, nullptr);
  EXPECT_TRUE(erase);
  invalidated.push_back({});
  return InvalidateRect(window, rect, erase);
}

BOOL WINAPI NoteShow(HWND window, int command) {
  shown.push_back(command);
  return ShowWindow(window, command);
}

// The arguments of the scroll calls, and the one answer that they get.
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
  if (bar == failingBar) {
    info->nPos = 99;
    return FALSE;
  }
  info->nPos = bar == SB_HORZ ? 31 : 32;
  return TRUE;
}

int WINAPI NoteScrollInfo(HWND window, int bar, const SCROLLINFO* info, BOOL redraw) {
  EXPECT_TRUE(redraw);
  scrollCalls.push_back({bar, info->cbSize, info->fMask, info->nPos});
  return SetScrollInfo(window, bar, info, redraw);
}

class TreeItems : public HostTest {
 protected:
  void Open(std::uint32_t style = 0) {
    control = CreateView(style);
    ASSERT_NE(control, nullptr);
  }

  // a (a1 (a1x) a2) b (b1) c, all collapsed.
  void OpenWithBranches() {
    Open();
    a = Insert(TEXT("a"));
    b = Insert(TEXT("b"), 0);
    c = Insert(TEXT("c"), -1);
    a1 = Insert(TEXT("a1"), a);
    a2 = Insert(TEXT("a2"), a);
    a1x = Insert(TEXT("a1x"), a1);
    b1 = Insert(TEXT("b1"), b);
    client.Take();
  }

  // The names of what GetItems lists.
  std::string Listed(bool visibleOnly) {
    ItemHandleList items;
    const std::int64_t length = view->GetItems(&items, visibleOnly);
    EXPECT_EQ(length, static_cast<std::int64_t>(items.size()));
    std::string names;
    for (const ItemHandle item : items) names += client.Name(item) + " ";
    return names;
  }

  UINT StateOf(ItemHandle item) const {
    return static_cast<UINT>(
        SendMessageW(control, TVM_GETITEMSTATE, static_cast<WPARAM>(item), 0xFFFF));
  }

  Text TextOf(ItemHandle item) const {
    WCHAR text[100] = {};
    TVITEMW native = {};
    native.mask = TVIF_TEXT;
    native.hItem = Native(item);
    native.pszText = text;
    native.cchTextMax = 100;
    SendMessageW(control, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&native));
    return text;
  }

  LRESULT Ask(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(control, message, wParam, lParam);
  }

  HWND control = nullptr;
  ItemHandle a = 0, b = 0, c = 0, a1 = 0, a2 = 0, a1x = 0, b1 = 0;
};

TEST_F(TreeItems, RecordBecomesANativeItem) {
  Open();
  for (const RecordRow& row : RECORDS) {
    QVLTreeViewItem record;
    Fill(record, row);
    SentMessages sent;
    const ItemHandle item = view->InsertItem(&record, -1);
    ASSERT_NE(item, -1) << row.name;
    ASSERT_EQ(sent.all.size(), 1u) << row.name;
    ASSERT_EQ(sent.Of(TVM_INSERTITEMW).size(), 1u) << row.name;
    ExpectItem(sent.all[0], row);
    sent.Forget();
    EXPECT_TRUE(view->UpdateItem(&record, item)) << row.name;
    ASSERT_EQ(sent.all.size(), 1u) << row.name;
    ASSERT_EQ(sent.Of(TVM_SETITEMW).size(), 1u) << row.name;
    ExpectItem(sent.all[0], row);
    EXPECT_EQ(sent.all[0].treeItem.hItem, Native(item)) << row.name;
  }
}

TEST_F(TreeItems, InsertionsGoToTheEndOfTheirParent) {
  Open();
  SentMessages sent;
  const ItemHandle first = Insert(TEXT("first"), -1);
  const ItemHandle second = Insert(TEXT("second"), 0);
  const ItemHandle child = Insert(TEXT("child"), first);
  const ItemHandle sibling = Insert(TEXT("sibling"), first);
  const auto insertions = sent.Of(TVM_INSERTITEMW);
  ASSERT_EQ(insertions.size(), 4u);
  const ItemHandle parents[] = {0, 0, first, first};
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(insertions[i].treeParent, Native(parents[i])) << i;
    EXPECT_EQ(insertions[i].insertAfter, TVI_LAST) << i;
  }
  EXPECT_EQ(view->GetNextSiblingItem(first), second);
  EXPECT_EQ(view->GetFirstChildItem(first), child);
  EXPECT_EQ(view->GetNextSiblingItem(child), sibling);
  EXPECT_EQ(view->GetParentItem(sibling), first);
}

TEST_F(TreeItems, CellNumbersAreRefused) {
  Open();
  const ItemHandle item = Insert(TEXT("a"));
  for (const int subItem : {-1, 1, 7}) {
    QVLTreeViewItem record;
    record.SetItemName(TEXT("new"));
    record.SetSubItem(subItem);
    record.SetSelected(true);
    SentMessages sent;
    EXPECT_EQ(view->InsertItem(&record, -1), -1);
    EXPECT_EQ(view->InsertItem(&record, item), -1);
    EXPECT_FALSE(view->UpdateItem(&record, item));
    EXPECT_TRUE(sent.all.empty());
  }
  EXPECT_EQ(Ask(TVM_GETCOUNT), 1);
  EXPECT_EQ(TextOf(item), TEXT("a"));
}

TEST_F(TreeItems, CheckAndSelectionFollowTheItem) {
  Open(QVLS_CHECKBOXES);
  QVLTreeViewItem record;
  record.SetChecked(true);
  record.SetSelected(true);
  record.SetStateIndex(0);
  SentMessages sent;
  const ItemHandle item = view->InsertItem(&record, -1);
  ASSERT_EQ(sent.all.size(), 3u);
  for (const bool updated : {false, true}) {
    EXPECT_EQ(sent.all[0].message, static_cast<UINT>(updated ? TVM_SETITEMW : TVM_INSERTITEMW));
    EXPECT_EQ(sent.all[1].message, static_cast<UINT>(TVM_SETITEMW));
    EXPECT_EQ(sent.all[1].treeItem.mask, 8u);
    EXPECT_EQ(sent.all[1].treeItem.hItem, Native(item));
    EXPECT_EQ(sent.all[1].treeItem.state, 0x2000u);
    EXPECT_EQ(sent.all[1].treeItem.stateMask, 0xF000u);
    EXPECT_EQ(sent.all[2].message, static_cast<UINT>(TVM_SELECTITEM));
    EXPECT_EQ(sent.all[2].wParam, static_cast<WPARAM>(TVGN_CARET));
    EXPECT_EQ(sent.all[2].lParam, item);
    sent.Forget();
    EXPECT_TRUE(view->UpdateItem(&record, item));
    ASSERT_EQ(sent.all.size(), 3u);
  }
}

TEST_F(TreeItems, RefusedItemsGetNothingFurther) {
  Open(QVLS_CHECKBOXES);
  const ItemHandle item = Insert(TEXT("a"));
  QVLTreeViewItem record;
  record.SetChecked(true);
  record.SetSelected(true);
  SentMessages sent;
  sent.answers[TVM_INSERTITEMW] = 0;
  EXPECT_EQ(view->InsertItem(&record, -1), -1);
  EXPECT_EQ(sent.all.size(), 1u);
  sent.Forget();
  // Only the low half of an answer counts.
  for (const LRESULT refusal : {LRESULT{0}, LRESULT{1} << 32}) {
    sent.answers[TVM_SETITEMW] = refusal;
    EXPECT_FALSE(view->UpdateItem(&record, item));
    EXPECT_EQ(sent.all.size(), 1u);
    sent.Forget();
  }
  // What follows the item is not looked at.
  sent.answers[TVM_SETITEMW] = 1;
  sent.answers[TVM_SELECTITEM] = 0;
  EXPECT_TRUE(view->UpdateItem(&record, item));
}

TEST_F(TreeItems, SelectedRecordMovesTheCaretWithoutABracket) {
  Open();
  QVLTreeViewItem record;
  record.SetSelected(true);
  const ItemHandle first = view->InsertItem(&record, -1);
  const ItemHandle second = view->InsertItem(&record, -1);
  client.labels[first] = "first";
  client.labels[second] = "second";
  EXPECT_EQ(client.Take().size(), 2u);
  EXPECT_FALSE(view->IsItemSelected(first));
  EXPECT_TRUE(view->IsItemSelected(second));
  EXPECT_TRUE(view->UpdateItem(&record, first));
  EXPECT_EQ(client.Take(), Lines{"Changed first"});
  EXPECT_FALSE(view->IsItemSelected(second));
  record.SetSelected(false);
  EXPECT_TRUE(view->UpdateItem(&record, first));
  EXPECT_TRUE(view->IsItemSelected(first)) << "a record only selects";
  EXPECT_EQ(client.Take(), Lines());
}

TEST_F(TreeItems, BoldAndCutNeedAStateIndex) {
  Open();
  QVLTreeViewItem record;
  record.SetBold(true);
  record.SetCut(true);
  const ItemHandle item = view->InsertItem(&record, -1);
  EXPECT_EQ(StateOf(item) & (TVIS_BOLD | TVIS_CUT), 0u);
  record.SetStateIndex(0);
  EXPECT_TRUE(view->UpdateItem(&record, item));
  EXPECT_EQ(StateOf(item) & (TVIS_BOLD | TVIS_CUT), static_cast<UINT>(TVIS_BOLD | TVIS_CUT));
  QVLTreeViewItem plain;
  EXPECT_TRUE(view->UpdateItem(&plain, item));
  EXPECT_NE(StateOf(item) & TVIS_BOLD, 0u) << "no state at all was sent";
  plain.SetStateIndex(0);
  EXPECT_TRUE(view->UpdateItem(&plain, item));
  EXPECT_EQ(StateOf(item) & (TVIS_BOLD | TVIS_CUT), 0u);
}

TEST_F(TreeItems, UpdateRewritesTextAndValue) {
  Open();
  QVLTreeViewItem record;
  record.SetItemName(TEXT("old"));
  record.SetClientPtr(1);
  const ItemHandle item = view->InsertItem(&record, -1);
  record.SetItemName(TEXT("new"));
  record.SetClientPtr(INT64_MIN);
  EXPECT_EQ(TextOf(item), TEXT("old")) << "the view keeps no hold of the record";
  EXPECT_TRUE(view->UpdateItem(&record, item));
  EXPECT_EQ(TextOf(item), TEXT("new"));
  EXPECT_EQ(view->GetItemClientPtr(item), INT64_MIN);
  EXPECT_FALSE(view->UpdateItem(&record, -1));
}

TEST_F(TreeItems, GetItemsWalksVisibleItemsOrTheFirstBranch) {
  OpenWithBranches();
  EXPECT_EQ(Listed(true), "a b c ");
  EXPECT_EQ(Listed(false), "a a1 a1x a2 ");
  view->ExpandItem(b, true);
  EXPECT_EQ(Listed(true), "a b b1 c ");
  EXPECT_EQ(Listed(false), "a a1 a1x a2 ");
  view->ExpandAll();
  EXPECT_EQ(Listed(true), "a a1 a1x a2 b b1 c ");
  view->DeleteItem(a);
  EXPECT_EQ(Listed(false), "b b1 ");
  view->DeleteItem(b);
  EXPECT_EQ(Listed(false), "c ");
}

TEST_F(TreeItems, GetItemsAppends) {
  Open();
  ItemHandleList items = {7, 8};
  for (const bool visibleOnly : {true, false}) {
    EXPECT_EQ(view->GetItems(&items, visibleOnly), 2);
    EXPECT_EQ(items, (ItemHandleList{7, 8}));
  }
  a = Insert(TEXT("a"));
  EXPECT_EQ(view->GetItems(&items, true), 3);
  EXPECT_EQ(view->GetItems(&items, false), 4);
  EXPECT_EQ(items, (ItemHandleList{7, 8, a, a}));
}

TEST_F(TreeItems, GetItemsOfADeepBranch) {
  Open();
  constexpr int DEPTH = 2000;
  ItemHandle last = -1;
  ItemHandleList expected;
  for (int i = 0; i < DEPTH; ++i) {
    last = Insert(TEXT("x"), last);
    expected.push_back(last);
  }
  ItemHandleList items;
  EXPECT_EQ(view->GetItems(&items, false), DEPTH);
  EXPECT_EQ(items, expected);
}

TEST_F(TreeItems, NeighboursAreTheControlsOwn) {
  OpenWithBranches();
  struct Row {
    ItemHandle item, parent, child, next;
  };
  for (const Row& row : {Row{a, 0, a1, b}, Row{b, 0, b1, c}, Row{c, 0, 0, 0}, Row{a1, a, a1x, a2},
                         Row{a2, a, 0, 0}, Row{-1, -1, -1, -1}}) {
    EXPECT_EQ(view->GetParentItem(row.item), row.parent) << client.Name(row.item);
    EXPECT_EQ(view->GetFirstChildItem(row.item), row.child) << client.Name(row.item);
    EXPECT_EQ(view->GetNextSiblingItem(row.item), row.next) << client.Name(row.item);
  }
}

// -1 is no item: the control hears nothing of it. Everything else goes there as it is.
TEST_F(TreeItems, WhatTheControlHearsOfOddHandles) {
  OpenWithBranches();
  QVLTreeViewItem record;
  SentMessages sent;
  EXPECT_FALSE(view->UpdateItem(&record, -1));
  EXPECT_FALSE(view->DeleteItem(-1));
  EXPECT_FALSE(view->IsItemExpanded(-1));
  EXPECT_FALSE(view->IsItemSelected(-1));
  EXPECT_EQ(view->GetItemClientPtr(-1), 0);
  EXPECT_EQ(view->GetItemClientPtr(0), 0);
  view->SetItemSelected(-1, true);
  EXPECT_TRUE(sent.all.empty());
  EXPECT_EQ(client.Take(), Lines());
  for (const UINT message : {TVM_GETNEXTITEM, TVM_DELETEITEM, TVM_EXPAND, TVM_GETITEMSTATE,
                             TVM_ENSUREVISIBLE, TVM_GETITEMW, TVM_SETITEMW}) {
    sent.answers[message] = 0;
  }
  const ItemHandle odd = 0x7FFF12345678;
  EXPECT_EQ(view->GetParentItem(0), 0);
  EXPECT_EQ(view->GetFirstChildItem(odd), 0);
  EXPECT_EQ(view->GetNextSiblingItem(odd), 0);
  EXPECT_FALSE(view->DeleteItem(odd));
  view->ExpandItem(-1, true);
  view->ExpandItem(odd, false);
  EXPECT_FALSE(view->IsItemExpanded(odd));
  view->EnsureVisible(odd);
  EXPECT_EQ(view->GetItemClientPtr(odd), 0);
  EXPECT_FALSE(view->UpdateItem(&record, 0));
  struct Row {
    int message;
    WPARAM wParam;
    LPARAM lParam;
  };
  const Row rows[] = {{TVM_GETNEXTITEM, TVGN_PARENT, 0},
                      {TVM_GETNEXTITEM, TVGN_CHILD, odd},
                      {TVM_GETNEXTITEM, TVGN_NEXT, odd},
                      {TVM_DELETEITEM, 0, odd},
                      {TVM_EXPAND, TVE_EXPAND, -1},
                      {TVM_EXPAND, TVE_COLLAPSE, odd},
                      {TVM_GETITEMSTATE, 0x7FFF12345678, TVIS_EXPANDED},
                      {TVM_ENSUREVISIBLE, 0, odd}};
  ASSERT_EQ(sent.all.size(), std::size(rows) + 2);
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    EXPECT_EQ(sent.all[i].message, static_cast<UINT>(rows[i].message)) << i;
    EXPECT_EQ(sent.all[i].wParam, rows[i].wParam) << i;
    EXPECT_EQ(sent.all[i].lParam, rows[i].lParam) << i;
  }
}

TEST_F(TreeItems, AnswersOfTheControlAreReadAsTold) {
  OpenWithBranches();
  SentMessages sent;
  sent.answers[TVM_DELETEITEM] = LRESULT{1} << 32;
  EXPECT_FALSE(view->DeleteItem(a)) << "only the low half counts";
  sent.answers[TVM_DELETEITEM] = 2;
  EXPECT_TRUE(view->DeleteItem(a));
  sent.answers[TVM_GETITEMSTATE] = 0xFFDF;
  EXPECT_FALSE(view->IsItemExpanded(a)) << "every bit but that one";
  sent.answers[TVM_GETITEMSTATE] = 0x20;
  EXPECT_TRUE(view->IsItemExpanded(a));
  sent.answers[TVM_INSERTITEMW] = 0x123456789A;
  EXPECT_EQ(Insert(TEXT("x")), 0x123456789A) << "handles are not cut";
  sent.answers[TVM_GETNEXTITEM] = 0x123456789A;
  EXPECT_EQ(view->GetParentItem(a), 0x123456789A);
}

TEST_F(TreeItems, DeletedItemsAreRefusedByTheControl) {
  OpenWithBranches();
  EXPECT_TRUE(view->DeleteItem(a));
  QVLTreeViewItem record;
  record.SetSelected(true);
  for (const ItemHandle gone : {a, a1}) {
    EXPECT_FALSE(view->DeleteItem(gone));
    EXPECT_EQ(view->InsertItem(&record, gone), -1);
    EXPECT_FALSE(view->UpdateItem(&record, gone));
    EXPECT_EQ(view->GetParentItem(gone), 0);
    EXPECT_EQ(view->GetFirstChildItem(gone), 0);
    EXPECT_EQ(view->GetNextSiblingItem(gone), 0);
    EXPECT_EQ(view->GetItemClientPtr(gone), 0);
    EXPECT_FALSE(view->IsItemExpanded(gone));
    view->ExpandItem(gone, true);
    view->EnsureVisible(gone);
    view->SetItemChecked(gone, true);
  }
  EXPECT_EQ(Listed(true), "b c ");
  EXPECT_TRUE(view->DeleteItem(0)) << "to the control that is all items";
  EXPECT_EQ(Ask(TVM_GETCOUNT), 0);
  Insert(TEXT("d"));
  EXPECT_EQ(Listed(true), "d ");
  view->DeleteAllItems();
  EXPECT_EQ(Ask(TVM_GETCOUNT), 0);
  EXPECT_EQ(Listed(true), "");
}

TEST_F(TreeItems, ExpandAllReachesEveryBranchAndCollapseAllTheTop) {
  OpenWithBranches();
  EXPECT_FALSE(view->IsItemExpanded(a));
  view->ExpandAll();
  for (const ItemHandle item : {a, a1, b}) EXPECT_TRUE(view->IsItemExpanded(item));
  for (const ItemHandle leaf : {c, a2, a1x}) EXPECT_FALSE(view->IsItemExpanded(leaf));
  view->CollapseAll();
  EXPECT_FALSE(view->IsItemExpanded(a));
  EXPECT_FALSE(view->IsItemExpanded(b));
  EXPECT_TRUE(view->IsItemExpanded(a1)) << "below the top nothing is collapsed";
  EXPECT_EQ(Listed(true), "a b c ");
  view->ExpandItem(a, true);
  EXPECT_EQ(Listed(true), "a a1 a1x a2 b c ");
  view->ExpandItem(a, false);
  EXPECT_EQ(Listed(true), "a b c ");
}

TEST_F(TreeItems, EmptyTreeTakesEverything) {
  Open();
  view->EnsureVisible(-1);
  view->ExpandAll();
  view->CollapseAll();
  view->CheckAll();
  view->UncheckAll();
  view->DeleteAllItems();
  view->Redraw();
  PumpMessages();
  EXPECT_EQ(Ask(TVM_GETCOUNT), 0);
  EXPECT_EQ(view->GetSelectedItem(0), -1);
  EXPECT_EQ(view->GetCheckedItem(0), -1);
  EXPECT_NE(Insert(TEXT("a")), -1);
}

TEST_F(TreeItems, EnsureVisibleScrollsToTheItem) {
  Open();
  std::vector<ItemHandle> items;
  for (int i = 0; i < 100; ++i) items.push_back(Insert(TEXT("x")));
  PumpMessages();
  const auto top = [this] { return Ask(TVM_GETNEXTITEM, TVGN_FIRSTVISIBLE); };
  EXPECT_EQ(top(), items[0]);
  view->EnsureVisible(items[99]);
  EXPECT_NE(top(), items[0]);
  view->EnsureVisible(-1);
  EXPECT_EQ(top(), items[0]);
}

TEST_F(TreeItems, ScrollPositionsAreThoseOfTheBars) {
  Open();
  int x = 7;
  int y = 7;
  EXPECT_TRUE(view->GetScrollPosition(&x, &y));
  EXPECT_EQ(x, 0);
  EXPECT_EQ(y, 0);
  scrollCalls.clear();
  ImportPatch get("GetScrollInfo", &AnswerScrollInfo);
  struct Row {
    int failing, x, y;
  };
  for (const Row row : {Row{-1, 31, 32}, Row{SB_HORZ, 0, 32}, Row{SB_VERT, 31, 0}}) {
    failingBar = row.failing;
    EXPECT_TRUE(view->GetScrollPosition(&x, &y));
    EXPECT_EQ(x, row.x);
    EXPECT_EQ(y, row.y);
  }
  ImportPatch set("SetScrollInfo", &NoteScrollInfo);
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

TEST_F(TreeItems, ScrollPositionCanBeSetAndRead) {
  Open();
  for (int i = 0; i < 100; ++i) Insert(TEXT("x"));
  PumpMessages();
  view->SetScrollPosition(0, 3);
  int x = -1;
  int y = -1;
  EXPECT_TRUE(view->GetScrollPosition(&x, &y));
  EXPECT_EQ(x, 0);
  EXPECT_EQ(y, 3);
}

TEST_F(TreeItems, ToolTipTakesWidthAndDelay) {
  Open(QVLS_INFOTIP);
  const HWND tip = reinterpret_cast<HWND>(Ask(TVM_GETTOOLTIPS));
  ASSERT_NE(tip, nullptr);
  view->SetToolTipWidth(123);
  EXPECT_EQ(SendMessageW(tip, TTM_GETMAXTIPWIDTH, 0, 0), 123);
  view->SetToolTipWidth(-1);
  EXPECT_EQ(SendMessageW(tip, TTM_GETMAXTIPWIDTH, 0, 0), -1);
  view->SetToolTipDelay(1234);
  EXPECT_EQ(SendMessageW(tip, TTM_GETDELAYTIME, TTDT_INITIAL, 0), 1234);
  SentMessages sent;
  view->SetToolTipDelay(0x123456);
  ASSERT_EQ(sent.Of(TTM_SETDELAYTIME).size(), 1u);
  EXPECT_EQ(sent.Of(TTM_SETDELAYTIME)[0].wParam, static_cast<WPARAM>(TTDT_INITIAL));
  EXPECT_EQ(sent.Of(TTM_SETDELAYTIME)[0].lParam, 0x3456);
  sent.Forget();
  sent.answers[TVM_GETTOOLTIPS] = 0;
  view->SetToolTipWidth(1);
  view->SetToolTipDelay(1);
  EXPECT_EQ(sent.all.size(), 2u) << "a control without a tip is only asked";
}

TEST_F(TreeItems, ColoursAndImageListsGoToTheControl) {
  Open();
  EXPECT_TRUE(view->SetBkColor(RGB(1, 2, 3)));
  EXPECT_TRUE(view->SetTextColor(RGB(4, 5, 6)));
  EXPECT_EQ(static_cast<COLORREF>(Ask(TVM_GETBKCOLOR)), RGB(1, 2, 3));
  EXPECT_EQ(static_cast<COLORREF>(Ask(TVM_GETTEXTCOLOR)), RGB(4, 5, 6));
  const HIMAGELIST images = ImageList_Create(16, 16, ILC_COLOR32, 1, 1);
  EXPECT_TRUE(view->SetImageList(images));
  EXPECT_TRUE(view->SetStateImageList(images));
  for (const WPARAM kind : {WPARAM{TVSIL_NORMAL}, WPARAM{TVSIL_STATE}}) {
    EXPECT_EQ(Ask(TVM_GETIMAGELIST, kind), reinterpret_cast<LRESULT>(images));
  }
  EXPECT_TRUE(view->SetImageList(nullptr));
  EXPECT_TRUE(view->SetStateImageList(nullptr));
  EXPECT_EQ(Ask(TVM_GETIMAGELIST, TVSIL_NORMAL), 0);
  EXPECT_EQ(Ask(TVM_GETIMAGELIST, TVSIL_STATE), 0);
  ImageList_Destroy(images);
}

TEST_F(TreeItems, ShowHideAndRedrawActOnTheControlAlone) {
  Open();
  ImportPatch noteShow("ShowWindow", &NoteShow);
  ImportPatch noteInvalidate("InvalidateRect", &NoteInvalidate);
  shown.clear();
  invalidated.clear();
  view->Hide();
  EXPECT_FALSE(IsWindowVisible(control));
  EXPECT_TRUE(IsWindowVisible(GetParent(control)));
  view->Show();
  EXPECT_TRUE(IsWindowVisible(control));
  view->Redraw();
  EXPECT_EQ(shown, (std::vector<int>{SW_HIDE, SW_SHOW}));
  EXPECT_EQ(invalidated.size(), 1u);
}

}  // namespace
