#pragma once

#include <commctrl.h>

#include <string>
#include <utility>

#include "support/host_window.h"

// Style flags of the views that hand their selection to the system in the same way.
constexpr std::uint32_t SELECTION_VIEWS[] = {0, QVLS_LISTVIEW};

inline std::string ViewName(std::uint32_t style) { return style & QVLS_LISTVIEW ? "List" : "Tree"; }

// A view of three items, a, b and c, of which the first and the last are selected.
class SelectionTest : public HostTest {
 protected:
  void Open(std::uint32_t style) {
    listView = (style & QVLS_LISTVIEW) != 0;
    control = CreateView(style);
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
    if (listView) {
      NMLISTVIEW record = {};
      record.hdr = {control, id, static_cast<UINT>(LVN_BEGINDRAG)};
      record.iItem = static_cast<int>(item);
      SendMessageW(parent, WM_NOTIFY, id, reinterpret_cast<LPARAM>(&record));
    } else {
      NMTREEVIEWW record = {};
      record.hdr = {control, id, static_cast<UINT>(TVN_BEGINDRAGW)};
      record.itemNew.hItem = reinterpret_cast<HTREEITEM>(item);
      SendMessageW(parent, WM_NOTIFY, id, reinterpret_cast<LPARAM>(&record));
    }
  }

  // From now on the client answers both requests for names with these.
  void AnswerWith(const FileNameList& names, bool answer = true) {
    client.onBeginDrag = [=](ItemHandleList*, FileNameList* files) {
      *files = names;
      return answer;
    };
    client.onShellContextMenu = client.onBeginDrag;
  }

  bool listView = false;
  HWND control = nullptr;
  HWND parent = nullptr;
  ItemHandle a = -1;
  ItemHandle b = -1;
  ItemHandle c = -1;
};

// The same test for each view that has a selection to hand over.
class EachSelectionView : public SelectionTest,
                          public ::testing::WithParamInterface<std::uint32_t> {
 protected:
  void SetUp() override {
    SelectionTest::SetUp();
    Open(GetParam());
  }
};

inline std::string ParamName(const ::testing::TestParamInfo<std::uint32_t>& info) {
  return ViewName(info.param);
}
