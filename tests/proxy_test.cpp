#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "qvl.h"
#include "support/host_window.h"
#include "support/import_patch.h"
#include "support/sent_messages.h"

namespace {

constexpr std::uint32_t BOTH_TYPES[] = {0, QVLS_LISTVIEW};

constexpr POINT SOME_POINT = {10, 10};

// What has no control must look at no argument, so some of the pointers are null.
void ExpectNoNumbers(IQVLTreeView& view, ItemHandle noItem) {
  QVLTreeViewItem record;
  ItemHandleList items = {1, 2, 3};
  EXPECT_EQ(view.GetControlWindow(), nullptr);
  EXPECT_EQ(view.InsertItem(&record, -1), noItem);
  EXPECT_EQ(view.HitTest(&SOME_POINT, true, nullptr), noItem);
  EXPECT_EQ(view.GetItems(&items, true), 0);
  EXPECT_EQ(items, (ItemHandleList{1, 2, 3}));
  EXPECT_EQ(view.GetParentItem(1), -1);
  EXPECT_EQ(view.GetFirstChildItem(1), -1);
  EXPECT_EQ(view.GetNextSiblingItem(1), -1);
  EXPECT_EQ(view.GetItemClientPtr(1), 0);
  EXPECT_EQ(view.GetSelectedCount(), 0);
  EXPECT_EQ(view.GetSelectedItem(0), 0);
  EXPECT_EQ(view.GetCheckedCount(), 0);
  EXPECT_EQ(view.GetCheckedItem(0), 0);
}

void ExpectAllFalse(IQVLTreeView& view) {
  QVLTreeViewItem record;
  int written = 77;
  EXPECT_FALSE(view.SetImageList(nullptr));
  EXPECT_FALSE(view.UseSystemImageList());
  EXPECT_FALSE(view.SetStateImageList(nullptr));
  EXPECT_FALSE(view.SetBkColor(1));
  EXPECT_FALSE(view.SetTextColor(1));
  EXPECT_FALSE(view.GetMultiSelect());
  EXPECT_FALSE(view.Move(1, 2, 3, 4));
  EXPECT_FALSE(view.GetScrollPosition(&written, &written));
  EXPECT_EQ(written, 77);
  EXPECT_FALSE(view.UpdateItem(&record, 1));
  EXPECT_FALSE(view.DeleteItem(1));
  EXPECT_FALSE(view.IsItemExpanded(1));
  EXPECT_FALSE(view.IsItemSelected(1));
  EXPECT_FALSE(view.IsItemChecked(1));
  EXPECT_FALSE(view.ShowContextMenu(1, 2));
}

// The operations without a result that need a control to do anything.
void DoTheRest(IQVLTreeView& view) {
  using V = IQVLTreeView;
  view.SetScrollPosition(1, 2);
  view.SetToolTipWidth(100);
  view.SetToolTipDelay(100);
  view.ExpandItem(1, true);
  view.EnsureVisible(-1);
  view.SetItemSelected(1, true);
  view.SetItemChecked(1, true);
  for (const auto operation : {&V::DeleteAllItems, &V::Hide, &V::Show, &V::Redraw, &V::ExpandAll,
                               &V::CollapseAll, &V::SelectAll, &V::ClearSelection,
                               &V::InvertSelection, &V::CheckAll, &V::UncheckAll, &V::Destroy}) {
    (view.*operation)();
  }
}

int creations = 0;
int creationThatFails = 0;

HWND WINAPI CreateUnlessItFails(DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style, int x,
                                int y, int width, int height, HWND parent, HMENU menu,
                                HINSTANCE instance, LPVOID parameter) {
  if (++creations == creationThatFails) return nullptr;
  return CreateWindowExW(exStyle, className, title, style, x, y, width, height, parent, menu,
                         instance, parameter);
}

// Has a window report an expansion before it goes.
BOOL WINAPI ReportThenDestroy(HWND window) {
  NMTREEVIEWW record = {};
  record.hdr = {window, static_cast<UINT_PTR>(GetDlgCtrlID(window)),
                static_cast<UINT>(TVN_ITEMEXPANDEDW)};
  SendMessageW(GetParent(window), WM_NOTIFY, record.hdr.idFrom, reinterpret_cast<LPARAM>(&record));
  return DestroyWindow(window);
}

BOOL WINAPI RefuseToDestroy(HWND) { return FALSE; }

class Proxy : public HostTest {
 protected:
  // What a view answers that has no control, and -1 or 0 for an item that is not there.
  void ExpectFailures(ItemHandle noItem) {
    const SentMessages sent;
    ExpectNoNumbers(*view, noItem);
    ExpectAllFalse(*view);
    DoTheRest(*view);
    EXPECT_TRUE(sent.all.empty() || view->GetViewType() == 1) << "a list tries nothing";
    EXPECT_EQ(client.Take(), Lines());
  }

  // What a host can do with a view that is there again.
  void ExpectUsable(std::uint32_t style) {
    EXPECT_EQ(CountParents(), 1);
    EXPECT_EQ(view->GetViewType(), style ? 2 : 1);
    EXPECT_FALSE(view->GetMultiSelect() && style);
    ItemHandleList items;
    EXPECT_EQ(view->GetItems(&items, true), 0);
    const ItemHandle item = Insert(TEXT("b"));
    client.Take();
    view->SetItemSelected(item, true);
    EXPECT_EQ(client.Take(), (Lines{"Begin", "Changed b", "End"}));
  }

  // The view's parent windows inside the host.
  int CountParents() const {
    int count = 0;
    for (HWND child = GetWindow(host, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
      ++count;
    }
    return count;
  }
};

TEST_F(Proxy, AnswersWithoutAnImplementation) {
  std::uint32_t hitFlags = 5;
  for (const bool listening : {false, true}) {
    view->SetClient(listening ? &client : nullptr);
    view->SetMultiSelect(true);
    EXPECT_EQ(view->GetViewType(), -1);
    ExpectFailures(0);
    EXPECT_EQ(view->HitTest(&SOME_POINT, true, &hitFlags), 0);
    EXPECT_EQ(hitFlags, 5u) << "nobody was there to write them";
  }
}

TEST_F(Proxy, AnswersWithoutAControlAndKeepsTheClient) {
  for (const std::uint32_t style : BOTH_TYPES) {
    SCOPED_TRACE(style);
    ASSERT_NE(CreateView(style), nullptr);
    Insert(TEXT("a"));
    view->SetMultiSelect(true);
    view->Destroy();
    client.Take();
    EXPECT_EQ(CountParents(), 0);
    EXPECT_EQ(view->GetViewType(), style ? 2 : 1);
    ExpectFailures(-1);
    std::uint32_t hitFlags = 5;
    EXPECT_EQ(view->HitTest(&SOME_POINT, true, &hitFlags), -1);
    EXPECT_EQ(hitFlags, 0u);
    view->SetMultiSelect(true);
    EXPECT_TRUE(view->GetMultiSelect());
    ASSERT_NE(view->Create(host, CONTROL_ID, 0, 0, WIDTH, HEIGHT, style, nullptr), nullptr);
    ExpectUsable(style);
    ReleaseView();
    EXPECT_EQ(CountParents(), 0);
    view = client.view = GetIQVLTreeView();
  }
}

TEST_F(Proxy, CreateThatFailsLeavesAViewWithoutControl) {
  for (const std::uint32_t style : BOTH_TYPES) {
    for (const int which : {1, 2}) {
      SCOPED_TRACE(std::to_string(style) + " window " + std::to_string(which));
      {
        creations = 0;
        creationThatFails = which;
        const ImportPatch patch("CreateWindowExW", &CreateUnlessItFails);
        EXPECT_EQ(CreateView(style), nullptr);
        EXPECT_EQ(creations, which) << "windows tried";
      }
      EXPECT_EQ(client.Take(), Lines());
      EXPECT_EQ(CountParents(), which - 1) << "the parent stays until Destroy";
      EXPECT_EQ(view->GetViewType(), style ? 2 : 1);
      if (which == 2) {
        SendMessageW(GetWindow(host, GW_CHILD), WM_CONTEXTMENU, 0, MAKELPARAM(60, 70));
        EXPECT_EQ(client.Take(), Lines{"ContextMenu 60,70 -1 0x0000"});
      }
      view->SetClient(nullptr);
      ExpectFailures(-1);
      EXPECT_EQ(CountParents(), 0);
      ASSERT_NE(CreateView(style), nullptr);
      ExpectUsable(style);
    }
  }
}

TEST_F(Proxy, SecondCreateReplacesEverythingButTheClient) {
  for (const std::uint32_t first : BOTH_TYPES) {
    for (const std::uint32_t second : BOTH_TYPES) {
      SCOPED_TRACE(std::to_string(first) + " then " + std::to_string(second));
      const HWND old = CreateView(first | QVLS_SINGLESEL);
      ASSERT_NE(old, nullptr);
      Insert(TEXT("a"));
      view->SetMultiSelect(true);
      const HWND control =
          view->Create(host, CONTROL_ID, 0, 0, WIDTH, HEIGHT, second | QVLS_SINGLESEL, nullptr);
      ASSERT_NE(control, nullptr);
      EXPECT_FALSE(IsWindow(old));
      EXPECT_EQ(view->GetControlWindow(), control);
      EXPECT_FALSE(view->GetMultiSelect());
      ExpectUsable(second);
    }
  }
}

// A host may close its own window first.
TEST_F(Proxy, ReleaseAfterTheHostsWindowOrOfNothing) {
  for (const std::uint32_t style : BOTH_TYPES) {
    ASSERT_NE(CreateView(style), nullptr);
    Insert(TEXT("a"));
    DestroyWindow(view->GetControlWindow());
    view->DeleteAllItems();
    EXPECT_EQ(view->GetSelectedCount(), 0);
  }
  DestroyWindow(host);
  EXPECT_FALSE(view->DeleteItem(1));
  ReleaseView();
  ReleaseIQVLTreeView(nullptr);
}

TEST_F(Proxy, WindowsThatThePlatformKeepsNoLongerFindTheirView) {
  for (const std::uint32_t style : BOTH_TYPES) {
    const HWND control = CreateView(style);
    ASSERT_NE(control, nullptr);
    Insert(TEXT("a"));
    {
      const ImportPatch patch("DestroyWindow", &RefuseToDestroy);
      ReleaseView();
    }
    client.Take();
    SendMessageW(GetParent(control), WM_CONTEXTMENU, 0, MAKELPARAM(60, 70));
    SendMessageW(control, WM_KEYDOWN, VK_DOWN, 1);
    SendMessageW(control, WM_SETREDRAW, TRUE, 0);
    EXPECT_EQ(client.Take(), Lines());
    DestroyWindow(GetParent(control));
    view = client.view = GetIQVLTreeView();
  }
}

// The old control goes first, and what it reports then may change everything.
TEST_F(Proxy, CallbackMayCreateOrReleaseWhileASecondCreateEndsTheOldControl) {
  const ImportPatch report("DestroyWindow", &ReportThenDestroy);
  HWND inner = nullptr;
  ASSERT_NE(CreateView(), nullptr);
  client.onItemExpanded = [&](ItemHandle) {
    client.onItemExpanded = nullptr;
    inner = CreateView();
  };
  const HWND outer = CreateView();
  EXPECT_NE(outer, nullptr);
  EXPECT_NE(inner, nullptr);
  EXPECT_FALSE(IsWindow(inner)) << "the outer Create came last";
  EXPECT_EQ(view->GetControlWindow(), outer);
  EXPECT_EQ(CountParents(), 1);
  client.onItemExpanded = [&](ItemHandle) {
    client.onItemExpanded = nullptr;
    ReleaseView();
  };
  EXPECT_EQ(CreateView(), nullptr);
  EXPECT_EQ(CountParents(), 0);
}

}  // namespace
