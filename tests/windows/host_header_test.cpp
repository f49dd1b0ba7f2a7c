// The helpers for hosts, over both views. A tree shows the items a, b, d and e; c is in the
// collapsed branch b.
#include <gtest/gtest.h>

#include <string>

#include "qvl_host.h"

namespace {

class Client final : public qvl::Client {
 public:
  bool OnCreateColumns(IQVLTreeView*, HWND list, RECT*) override {
    constexpr qvl::Column kColumns[] = {{L"name", 150}, {L"size", 70}};
    qvl::InsertColumns(list, kColumns);
    return true;
  }
  void OnItemSelectionChanged(IQVLTreeView*, ItemHandle) override { ++reports; }
  bool OnLabelEdit(IQVLTreeView* view, NMHDR* record, std::uint32_t code) override {
    const qvl::LabelEdit edit = qvl::ReadLabelEdit(record, code);
    edits += edit.begins ? L"begin " : L"end ";
    edits += static_cast<wchar_t>(view->GetItemClientPtr(edit.item));
    edits += edit.text ? L" " + std::wstring(edit.text) + L"," : L",";
    return !edit.begins;
  }

  int reports = 0;
  std::wstring edits;
};

class HostHeader : public ::testing::TestWithParam<std::uint32_t> {
 protected:
  void SetUp() override {
    ShowWindow(window, SW_SHOWNOACTIVATE);
    view->SetClient(&client);
    QVLTreeViewStyleExt extra;
    if (GetParam() == QVLS_LISTVIEW) extra.SetStyle(LVS_EDITLABELS);
    control = view->Create(window, 1, 0, 0, 300, 300,
                           GetParam() | QVLS_CHECKBOXES | QVLS_EDITLABELS, &extra);
    UpdateWindow(control);  // makes the tree's check boxes
    a = Add(L"a", -1);
    b = Add(L"b", a);
    c = Add(L"c", b);
    d = Add(L"d", a);
    e = Add(L"e", -1);
    view->ExpandItem(a, true);
    Pump();
  }
  void TearDown() override {
    view.reset();
    DestroyWindow(window);
  }

  // The client value of an item is its letter.
  ItemHandle Add(const wchar_t* name, ItemHandle parent) {
    QVLTreeViewItem item;
    item.SetItemName(name);
    item.SetClientPtr(*name);
    return view->InsertItem(&item, parent);
  }

  std::string Names(const ItemHandleList& items) {
    std::string names;
    for (const ItemHandle item : items) names += static_cast<char>(view->GetItemClientPtr(item));
    return names;
  }

  std::string TreeOrList(const char* tree, const char* list) { return GetParam() ? list : tree; }

  void Focus(ItemHandle item) {
    LVITEMW row{};
    row.state = row.stateMask = LVIS_FOCUSED;
    GetParam() ? qvl::SendRecord(*view, LVM_SETITEMSTATE, static_cast<WPARAM>(item), row)
               : SendMessageW(control, TVM_SELECTITEM, TVGN_CARET, item);
  }

  // The screen position of a point that is right of and below the corner of the item's label.
  POINT AtLabel(ItemHandle item, LONG right, LONG down) {
    const RECT label = qvl::ItemRect(*view, item).value_or(RECT{});
    POINT point{label.left + right, label.top + down};
    ClientToScreen(control, &point);
    return point;
  }

  static void Pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
  }

  HWND window = CreateWindowExW(0, L"STATIC", L"host", WS_POPUP | WS_CLIPCHILDREN, 50, 50, 300, 300,
                                nullptr, nullptr, nullptr, nullptr);
  HWND control = nullptr;
  Client client;
  qvl::ViewOwner view = qvl::MakeView();
  ItemHandle a = -1, b = -1, c = -1, d = -1, e = -1;
};

TEST_P(HostHeader, RangesHoldTheirItemsFromTopToBottom) {
  EXPECT_EQ(Names(qvl::VisibleItems(*view)), TreeOrList("abde", "abcde"));
  EXPECT_EQ(Names(qvl::TopLevelItems(*view)), TreeOrList("ae", "abcde"));
  EXPECT_EQ(Names(qvl::Children(*view, a)), TreeOrList("bd", ""));
  EXPECT_EQ(Names(qvl::Branch(*view, a)), TreeOrList("abcd", "a"));
  view->SelectAll();
  view->SetItemSelected(d, false);
  for (const ItemHandle item : {c, d, e}) view->SetItemChecked(item, true);
  EXPECT_EQ(Names(qvl::SelectedItems(*view)), TreeOrList("abe", "abce"));
  EXPECT_EQ(Names(qvl::CheckedItems(*view)), TreeOrList("de", "cde"));
}

TEST_P(HostHeader, ClientPauseStopsCallbacksUntilItsEnd) {
  const int before = client.reports;
  {
    const qvl::ClientPause pause(*view, &client);
    view->SelectAll();
  }
  EXPECT_EQ(client.reports, before);
  view->SetItemSelected(a, false);
  EXPECT_EQ(client.reports, before + 1);
}

LRESULT CALLBACK RecordDrawing(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                               DWORD_PTR log) {
  if (message == WM_SETREDRAW) *reinterpret_cast<std::string*>(log) += wParam ? "on " : "off ";
  if (message == WM_PAINT) *reinterpret_cast<std::string*>(log) += "paint ";
  return DefSubclassProc(window, message, wParam, lParam);
}

TEST_P(HostHeader, DrawingPausesNestRepaintOnceAndLeaveAHiddenControlAlone) {
  std::string log;
  SetWindowSubclass(control, RecordDrawing, 1, reinterpret_cast<DWORD_PTR>(&log));
  for (int time = 0; time < 2; ++time) {
    {
      const qvl::DrawingPause outer(*view);
      { const qvl::DrawingPause inner(control); }
      Add(L"f", -1);
      Pump();
    }
    Pump();
  }
  EXPECT_EQ(log, "off on paint off on paint ");
  view->Hide();
  { const qvl::DrawingPause pause(*view); }
  EXPECT_FALSE(IsWindowVisible(control));
  RemoveWindowSubclass(control, RecordDrawing, 1);
}

TEST_P(HostHeader, ItemRectHoldsTheLabelOrTheRowOfAShownItem) {
  const auto label = qvl::ItemRect(*view, b);
  const auto row = qvl::ItemRect(*view, b, true);
  ASSERT_TRUE(label && row);
  EXPECT_LT(row->left, label->left);
  const POINT point = AtLabel(b, 2, 2);
  EXPECT_EQ(view->HitTest(&point, false, nullptr), b);
  EXPECT_FALSE(qvl::ItemRect(*view, GetParam() ? 99 : c));
}

TEST_P(HostHeader, MenuPointIsBelowTheFocusedElseTheSelectedItemInView) {
  const auto expectPoint = [this](const POINT& expected) {
    const POINT point = qvl::MenuPoint(*view);
    EXPECT_EQ(std::pair(point.x, point.y), std::pair(expected.x, expected.y));
  };
  POINT corner{};
  ClientToScreen(control, &corner);
  const RECT label = qvl::ItemRect(*view, d).value_or(RECT{});
  const LONG height = label.bottom - label.top;
  expectPoint(corner);
  ItemHandle last = -1;
  for (int count = 0; count < 40; ++count) last = Add(L"x", -1);
  Focus(last);
  view->EnsureVisible(-1);
  expectPoint(corner);
  view->SetItemSelected(d, true);
  expectPoint(AtLabel(d, 0, height));
  Focus(e);
  expectPoint(AtLabel(e, 0, height));
}

TEST_P(HostHeader, MenuKeyEnterAndDoubleClickAreRecognised) {
  const auto key = [this](UINT code, WPARAM value) {
    return MSG{control, code, value, 0, 0, {0, 0}};
  };
  EXPECT_TRUE(qvl::IsMenuKey(*view, key(WM_KEYDOWN, VK_APPS)));
  EXPECT_FALSE(qvl::IsMenuKey(*view, key(WM_KEYUP, VK_APPS)));
  EXPECT_FALSE(qvl::IsMenuKey(*view, {window, WM_KEYDOWN, VK_APPS, 0, 0, {0, 0}}));
  for (const bool shift : {true, false}) {
    BYTE keys[256] = {};
    keys[VK_SHIFT] = shift ? 0x80 : 0;
    SetKeyboardState(keys);
    EXPECT_EQ(qvl::IsMenuKey(*view, key(WM_SYSKEYDOWN, VK_F10)), shift);
  }
  Focus(d);
  EXPECT_EQ(qvl::ActivatedItem(*view, key(WM_KEYDOWN, VK_RETURN)), d);
  EXPECT_EQ(qvl::ActivatedItem(*view, key(WM_KEYDOWN, VK_SPACE)), -1);
  EXPECT_EQ(qvl::ActivatedItem(*view, {control, WM_LBUTTONDBLCLK, 0, 0, 0, AtLabel(b, 2, 2)}), b);
  EXPECT_EQ(qvl::ActivatedItem(*view, {control, WM_LBUTTONDBLCLK, 0, 0, 0, AtLabel(b, 2, 250)}),
            -1);
}

TEST_P(HostHeader, LabelEditIsReadAtItsBeginAndEnd) {
  const HWND accepted = qvl::BeginLabelEdit(*view, d);
  SetWindowTextW(accepted, L"new");
  SendMessageW(accepted, WM_KEYDOWN, VK_RETURN, 1);
  const HWND cancelled = qvl::BeginLabelEdit(*view, e);
  SendMessageW(cancelled, WM_KEYDOWN, VK_ESCAPE, 1);
  EXPECT_EQ(client.edits, L"begin d,end d new,begin e,end e,");
}

INSTANTIATE_TEST_SUITE_P(Views, HostHeader, ::testing::Values(0u, std::uint32_t{QVLS_LISTVIEW}));

using HostHeaderList = HostHeader;

TEST_P(HostHeaderList, SortRowsMovesAllOfARowAndNoHandle) {
  QVLTreeViewItem cell;
  cell.SetSubItem(1);
  cell.SetItemName(L"20");
  view->InsertItem(&cell, d);
  view->SetItemChecked(b, true);
  view->SetItemSelected(d, true);
  const int before = client.reports;
  qvl::SortRows(*view, [](std::int64_t one, std::int64_t other) { return one > other; });
  std::wstring rows;
  for (ItemHandle row = 0; row < 5; ++row) {
    for (int column = 0; column < 2; ++column) {
      wchar_t text[20] = {};
      LVITEMW record{};
      record.iSubItem = column;
      record.pszText = text;
      record.cchTextMax = 20;
      qvl::SendRecord(*view, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), record);
      rows += text;
    }
    rows += view->IsItemChecked(row) ? L"+" : L"";
    rows += view->IsItemSelected(row) ? L"* " : L" ";
  }
  EXPECT_EQ(rows, L"e d20* c b+ a ");
  EXPECT_EQ(Names(qvl::VisibleItems(*view)), "edcba");
  EXPECT_EQ(client.reports, before);
}

TEST_P(HostHeaderList, SortArrowIsInOneTitle) {
  const auto header = reinterpret_cast<HWND>(SendMessageW(control, LVM_GETHEADER, 0, 0));
  qvl::ShowSortArrow(*view, 1, false);
  qvl::ShowSortArrow(*view, 0, true);
  for (const int column : {0, 1}) {
    HDITEMW item{};
    item.mask = HDI_FORMAT;
    SendMessageW(header, HDM_GETITEMW, static_cast<WPARAM>(column),
                 reinterpret_cast<LPARAM>(&item));
    EXPECT_EQ(item.fmt & (HDF_SORTUP | HDF_SORTDOWN), column == 0 ? HDF_SORTDOWN : 0);
  }
}

INSTANTIATE_TEST_SUITE_P(List, HostHeaderList, ::testing::Values(std::uint32_t{QVLS_LISTVIEW}));

TEST(HostHeaderFiles, AreInOneFolderComparesWithoutCase) {
  EXPECT_TRUE(qvl::AreInOneFolder({}));
  EXPECT_TRUE(qvl::AreInOneFolder({L"C:\\B\u00e4r\\x", L"c:\\b\u00c4R\\y"}));
  EXPECT_FALSE(qvl::AreInOneFolder({L"C:\\a\\x", L"C:\\ab\\x"}));
  EXPECT_FALSE(qvl::AreInOneFolder({L"C:\\a\\x", L"C:\\a\\y", L"C:\\a\\b\\x"}));
  EXPECT_FALSE(qvl::AreInOneFolder({L"C:\\a\\x", L"D:\\a\\x"}));
}

TEST(HostHeaderFiles, FirstMissingFileSkipsThoseThatExist) {
  wchar_t program[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  const FileNameList names = {program, L"C:\\missing"};
  EXPECT_EQ(qvl::FirstMissingFile(names), &names[1]);
  EXPECT_EQ(qvl::FirstMissingFile({program}), nullptr);
}

}  // namespace
