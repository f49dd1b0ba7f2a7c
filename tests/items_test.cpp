// The items of both views: neighbours, listing, expansion, check boxes, scrolling, icons of rows.
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "support/each_view.h"
#include "support/fake_icons.h"
#include "support/list_test.h"
#include "support/sent_messages.h"
#include "support/tree_gestures.h"

namespace {

constexpr std::int64_t kWide = 0x123456789A;
constexpr std::int64_t kEmptyLowHalf = std::int64_t{1} << 32;

class ItemsTest : public EachView {
 protected:
  // A tree a (b (c) d) e (f) g, all collapsed, or the rows a to g.
  void OpenBranches() {
    Open();
    client.labels.clear();
    for (const char* pair : {"a-", "ba", "cb", "da", "e-", "fe", "g-"}) {
      const WCHAR name[] = {static_cast<WCHAR>(pair[0]), 0};
      Insert(name, pair[1] == '-' ? -1 : Item(pair[1]));
    }
  }

  // Expects these items of GetItems, behind those that its list already has.
  void ExpectItems(bool visibleOnly, const std::string& tree, const std::string& list = "abcdefg") {
    ItemHandleList items = {7};
    std::string names;
    const std::int64_t length = view->GetItems(&items, visibleOnly);
    EXPECT_EQ(length, std::ssize(items));
    for (std::size_t i = 1; i < items.size(); ++i) names += client.Name(items[i]);
    EXPECT_EQ(names, TreeOrList(tree, list));
    EXPECT_EQ(items[0], 7);
  }
};

INSTANTIATE_TEST_SUITE_P(Views, ItemsTest, EACH_VIEW, ViewName);

// Each row is an item, its parent, its first child and its next sibling.
TEST_P(ItemsTest, NeighboursAreThoseOfTheTreeOrTheRowsBeside) {
  OpenBranches();
  const auto named = [this](char name) { return name == '-' ? TreeOrList(0, -1) : Item(name); };
  using Rows = std::vector<std::string>;
  for (const std::string& row : TreeOrList(Rows{"a-be", "e-fg", "g---", "bacd", "da--"},
                                           Rows{"a-bb", "bacc", "dcee", "gf--"})) {
    EXPECT_EQ(view->GetParentItem(Item(row[0])), named(row[1])) << row;
    EXPECT_EQ(view->GetFirstChildItem(Item(row[0])), named(row[2])) << row;
    EXPECT_EQ(view->GetNextSiblingItem(Item(row[0])), named(row[3])) << row;
  }
}

TEST_P(ItemsTest, GetItemsAddsVisibleItemsOrTheFirstBranch) {
  OpenBranches();
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
  if (!IsList()) ExpectItems(false, "ef");
  view->DeleteAllItems();
  ExpectItems(true, "", "");
  ExpectItems(false, "", "");
}

TEST_P(ItemsTest, WorkIsProportionalToTheItems) {
  constexpr int kCount = 300;
  Open(QVLS_CHECKBOXES);
  for (int i = 0; i < kCount; ++i) a = Insert(TEXT("a"));
  std::size_t dragged = 0;
  client.onBeginDrag = [&](ItemHandleList* items, FileNameList*) {
    dragged = items->size();
    return false;
  };
  SentMessages sent;
  const std::function<void()> operations[] = {
      [&] { view->SelectAll(); },
      [&] { NotifyOf(a, TreeOrList(TVN_BEGINDRAGW, LVN_BEGINDRAG)); },
      [&] { view->ClearSelection(); },
      [&] { view->InvertSelection(); },
      [&] { view->CheckAll(); },
      [&] { EXPECT_EQ(view->GetSelectedCount(), kCount); },
  };
  for (const auto& operation : operations) {
    sent.Forget();
    operation();
    EXPECT_LT(sent.all.size(), 4u * kCount) << "operation " << &operation - operations;
  }
  EXPECT_EQ(dragged, static_cast<std::size_t>(kCount));
  EXPECT_EQ(view->GetCheckedCount(), kCount);
}

class TreeItemsTest : public TreeTest {
 protected:
  ItemHandle InsertChecked(bool checked, int stateIndex = -1) {
    record.SetChecked(checked);
    record.SetStateIndex(stateIndex);
    return view->InsertItem(&record, -1);
  }

  void Paint() {
    ShowWindow(host, SW_SHOWNOACTIVATE);
    InvalidateRect(control, nullptr, TRUE);
    UpdateWindow(control);
    PumpMessages();
  }

  LRESULT StateImages() const { return Ask(TVM_GETIMAGELIST, TVSIL_STATE); }

  QVLTreeViewItem record;
};

// Handles go to the control whole, -1 and 0 too where the view has no rule for them. Of an answer
// that is no handle the low half counts.
TEST_F(TreeItemsTest, OperationsSendTheirMessagesWithWholeHandles) {
  OpenEmpty();
  const ItemHandle first = Insert(TEXT("a"));
  IQVLTreeView& v = *view;
  const auto expect = [](auto operation, int message, WPARAM wParam, LPARAM lParam,
                         LRESULT answer = 0, std::int64_t result = 0) {
    SentMessages sent;
    sent.answers[static_cast<UINT>(message)] = answer;
    EXPECT_EQ(operation(), result);
    const SentMessage& last = sent.all.back();
    EXPECT_EQ(last.message, static_cast<UINT>(message));
    EXPECT_EQ(last.wParam, wParam) << message;
    EXPECT_EQ(last.lParam, lParam) << message;
  };
  expect([&] { return v.GetParentItem(0); }, TVM_GETNEXTITEM, TVGN_PARENT, 0);
  expect([&] { return v.GetFirstChildItem(kWide); }, TVM_GETNEXTITEM, TVGN_CHILD, kWide, kWide,
         kWide);
  expect([&] { return v.GetNextSiblingItem(kWide); }, TVM_GETNEXTITEM, TVGN_NEXT, kWide, kWide,
         kWide);
  expect([&] { return v.DeleteItem(kWide); }, TVM_DELETEITEM, 0, kWide, kEmptyLowHalf, false);
  expect([&] { return v.DeleteItem(kWide); }, TVM_DELETEITEM, 0, kWide, 2, true);
  expect([&] { return v.ExpandItem(-1, true), 0; }, TVM_EXPAND, TVE_EXPAND, -1);
  expect([&] { return v.ExpandItem(kWide, false), 0; }, TVM_EXPAND, TVE_COLLAPSE, kWide);
  expect([&] { return v.IsItemExpanded(kWide); }, TVM_GETITEMSTATE, kWide, 0x20, 0x20, true);
  expect([&] { return v.IsItemExpanded(kWide); }, TVM_GETITEMSTATE, kWide, 0x20, 0xFFDF, false);
  expect([&] { return v.EnsureVisible(kWide), 0; }, TVM_ENSUREVISIBLE, 0, kWide);
  expect([&] { return v.EnsureVisible(-1), 0; }, TVM_ENSUREVISIBLE, 0, first);
  SentMessages sent;
  sent.answers[TVM_INSERTITEMW] = kWide;
  for (const ItemHandle parent : {ItemHandle{-1}, ItemHandle{0}, kWide}) {
    EXPECT_EQ(Insert(TEXT("a"), parent), kWide);
    EXPECT_EQ(sent.all.back().insertion.hParent, parent == -1 ? nullptr : Native(parent));
    EXPECT_EQ(sent.all.back().insertion.hInsertAfter, TVI_LAST);
  }
  sent.Forget();
  for (const int subItem : {-1, 1}) {
    record.SetSubItem(subItem);
    EXPECT_EQ(v.InsertItem(&record, first), -1);
    EXPECT_FALSE(v.UpdateItem(&record, first));
  }
  EXPECT_TRUE(sent.all.empty()) << "a tree has no cells";
}

int failingBar = -1;
std::vector<std::pair<int, int>> barPositions;

BOOL WINAPI AnswerScrollInfo(HWND, int bar, SCROLLINFO* info) {
  EXPECT_TRUE(info->cbSize == 28 && info->fMask == SIF_POS);
  info->nPos = 31 + bar;
  return bar != failingBar;
}

int WINAPI NoteScrollInfo(HWND, int bar, const SCROLLINFO* info, BOOL redraw) {
  EXPECT_TRUE(info->cbSize == 28 && info->fMask == SIF_POS && redraw);
  barPositions.emplace_back(bar, info->nPos);
  return 0;
}

TEST_F(TreeItemsTest, ScrollPositionIsThatOfTheBars) {
  OpenEmpty();
  const ImportPatch get("GetScrollInfo", &AnswerScrollInfo);
  const ImportPatch set("SetScrollInfo", &NoteScrollInfo);
  for (const int failing : {-1, SB_HORZ, SB_VERT}) {
    int x = 7;
    int y = 7;
    failingBar = failing;
    EXPECT_TRUE(view->GetScrollPosition(&x, &y));
    EXPECT_EQ(x, failing == SB_HORZ ? 0 : 31);
    EXPECT_EQ(y, failing == SB_VERT ? 0 : 32);
  }
  barPositions.clear();
  view->SetScrollPosition(-4, 5);
  EXPECT_EQ(barPositions, (std::vector<std::pair<int, int>>{{SB_HORZ, -4}, {SB_VERT, 5}}));
}

TEST_F(TreeItemsTest, BoxesCheckedBeforeTheFirstPaintStayChecked) {
  ShowWindow(host, SW_HIDE);
  OpenEmpty(QVLS_CHECKBOXES | QVLS_HASLINES);
  EXPECT_EQ(GetWindowLongPtrW(control, GWL_STYLE) & 0xFFFF, TVS_CHECKBOXES | TVS_HASLINES);
  const LRESULT images = StateImages();
  EXPECT_NE(images, 0);
  const ItemHandle empty = InsertChecked(false);
  const ItemHandle checked = InsertChecked(true);
  const ItemHandle later = InsertChecked(false);
  view->SetItemChecked(later, true);
  for (const char* when : {"before", "after the first paint", "after another"}) {
    EXPECT_TRUE(BoxOf(empty) == 1 && BoxOf(checked) == 2 && BoxOf(later) == 2) << when;
    Paint();
  }
  EXPECT_EQ(StateImages(), images);
}

// The native style alone makes boxes too.
TEST_F(TreeItemsTest, RecordsCheckBoxesOnlyWithTheFlag) {
  OpenEmpty();
  EXPECT_EQ(StateImages(), 0);
  EXPECT_EQ(BoxOf(InsertChecked(true)), 0u);
  QVLTreeViewStyleExt ext;
  ext.SetStyle(TVS_CHECKBOXES);
  control = CreateView(0, &ext);
  EXPECT_NE(StateImages(), 0);
  const ItemHandle item = InsertChecked(true);
  EXPECT_EQ(BoxOf(item), 1u);
  view->SetItemChecked(item, true);
  Paint();
  EXPECT_EQ(BoxOf(item), 2u);
}

TEST_F(TreeItemsTest, InsertionSetsTheBoxAndUpdateOnlyChecksIt) {
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

TEST_F(TreeItemsTest, OnlyVisibleItemsAreCheckedAndCounted) {
  OpenEmpty(QVLS_CHECKBOXES);
  const ItemHandle shown = Insert(TEXT("shown"));
  const ItemHandle hidden = Insert(TEXT("hidden"), shown);
  view->CheckAll();
  EXPECT_TRUE(BoxOf(shown) == 2 && BoxOf(hidden) == 1);
  SetBox(hidden, 2);
  EXPECT_EQ(view->GetCheckedCount(), 1);
  EXPECT_EQ(view->GetCheckedItem(0), shown);
  view->UncheckAll();
  EXPECT_TRUE(BoxOf(shown) == 1 && BoxOf(hidden) == 2);
  view->ExpandItem(shown, true);
  EXPECT_EQ(view->GetCheckedItem(0), hidden);
  view->UncheckAll();
  EXPECT_EQ(BoxOf(hidden), 1u);
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
  EXPECT_LE(ItemRect(99, false).bottom, ClientRect().bottom);
  expectTop(top, height);
  view->SetScrollPosition(-3, -2 * height);
  EXPECT_EQ(sent.all.back().message, static_cast<UINT>(LVM_SCROLL));
  EXPECT_EQ(static_cast<INT_PTR>(sent.all.back().wParam), -3);
  expectTop(top - 2, height);
  view->EnsureVisible(-1);
  expectTop(0, height);
}

TEST_F(ListItemsTest, SystemIconsAreAskedForByNameForEachRow) {
  FakeIcons shell;
  UseClientColumns({100, 100});
  Open();
  QVLTreeViewItem record;
  record.SetFileName(TEXT("C:\\folder.d\\file.txt"));
  record.SetImageIndex(6);
  SentMessages sent;
  const auto insert = [&](int type, int index) {
    shell.index = index;
    record.SetType(type);
    view->InsertItem(&record, -1);
    return sent.Of(LVM_INSERTITEMW).back().item.iImage;
  };
  shell.refuses = true;
  EXPECT_FALSE(view->UseSystemImageList());
  EXPECT_EQ(sent.Of(LVM_SETIMAGELIST).size(), 0u);
  EXPECT_EQ(insert(0, 41), 6);

  shell.refuses = false;
  EXPECT_TRUE(view->UseSystemImageList());
  EXPECT_EQ(Ask(LVM_GETIMAGELIST, LVSIL_SMALL), reinterpret_cast<LRESULT>(shell.list));
  EXPECT_TRUE(view->SetImageList(nullptr)) << "does not end the system icons";
  shell.asked.clear();
  for (const int type : {0, 1, 2}) EXPECT_EQ(insert(type, 42 + type), 42 + type);
  record.SetType(1);
  view->UpdateItem(&record, 0);
  EXPECT_EQ(sent.Of(LVM_SETITEMW)[0].item.iImage, 44);
  record.SetSubItem(1);
  view->InsertItem(&record, 0);
  view->UpdateItem(&record, 0);
  const std::basic_string<WCHAR> whole = TEXT("C:\\folder.d\\file.txt");
  const std::vector<std::basic_string<WCHAR>> asked = {whole, TEXT("file.txt"), whole, whole};
  EXPECT_EQ(shell.asked, asked) << "and a cell has no icon";
}

}  // namespace
