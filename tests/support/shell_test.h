#pragma once

#include <commctrl.h>

#include <string>

#include "support/host_window.h"

// A view of three items, a, b and c, of which the first and the last are selected: each kind of
// view in turn, since they hand their selection to the system in the same way.
class EachSelectionView : public HostTest, public ::testing::WithParamInterface<std::uint32_t> {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    Open();
  }

  void Open() {
    if (!view) {
      view = client.view = GetIQVLTreeView();
    }
    control = CreateView(GetParam());
    ASSERT_NE(control, nullptr);
    parent = GetParent(control);
    a = Insert(TEXT("a"));
    b = Insert(TEXT("b"));
    c = Insert(TEXT("c"));
    view->SetItemSelected(a, true);
    view->SetItemSelected(c, true);
    PumpMessages();
    client.Take();
  }

  // What the control tells the view's window when the mouse drags `item`.
  void BeginDrag(ItemHandle item) {
    const auto id = static_cast<UINT_PTR>(CONTROL_ID);
    NMLISTVIEW row = {};
    row.hdr = {control, id, static_cast<UINT>(LVN_BEGINDRAG)};
    row.iItem = static_cast<int>(item);
    NMTREEVIEWW branch = {};
    branch.hdr = {control, id, static_cast<UINT>(TVN_BEGINDRAGW)};
    branch.itemNew.hItem = reinterpret_cast<HTREEITEM>(item);
    NMHDR* const record = GetParam() & QVLS_LISTVIEW ? &row.hdr : &branch.hdr;
    SendMessageW(parent, WM_NOTIFY, id, reinterpret_cast<LPARAM>(record));
  }

  // From now on the client answers both requests for names with these.
  void AnswerWith(const FileNameList& names, bool answer = true) {
    client.onBeginDrag = [=](ItemHandleList*, FileNameList* files) {
      *files = names;
      return answer;
    };
    client.onShellContextMenu = client.onBeginDrag;
  }

  HWND control = nullptr;
  HWND parent = nullptr;
  ItemHandle a = -1;
  ItemHandle b = -1;
  ItemHandle c = -1;
};

// What INSTANTIATE_TEST_SUITE_P takes behind the suite for these views.
inline const auto SELECTION_VIEWS = ::testing::Values(0u, std::uint32_t{QVLS_LISTVIEW});

inline std::string ViewName(const ::testing::TestParamInfo<std::uint32_t>& info) {
  return info.param & QVLS_LISTVIEW ? "List" : "Tree";
}
