#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "qvl.h"
#include "support/host_window.h"
#include "support/import_patch.h"
#include "support/sent_messages.h"

namespace {

constexpr std::uint32_t BOTH_TYPES[] = {0, QVLS_LISTVIEW};

std::int64_t Number(HWND window) { return reinterpret_cast<std::int64_t>(window); }

// What an operation gives on a view that never had a control, and on one that has none any more.
struct Answer {
  const char* operation;
  std::function<std::int64_t(IQVLTreeView&)> call;
  std::int64_t empty;
  std::int64_t hollow;
};

QVLTreeViewItem record;
int written = 0;
std::uint32_t hitFlags = 0;
constexpr POINT SOME_POINT = {10, 10};

std::int64_t LengthOfItems(IQVLTreeView& view) {
  ItemHandleList items = {1, 2, 3};
  const std::int64_t length = view.GetItems(&items, true);
  EXPECT_EQ(items, (ItemHandleList{1, 2, 3}));
  return length;
}

// A null pointer stands for a value: what has no control must not look at it.
const Answer ANSWERS[] = {
    {"SetImageList", [](auto& v) { return v.SetImageList(nullptr); }, 0, 0},
    {"UseSystemImageList", [](auto& v) { return v.UseSystemImageList(); }, 0, 0},
    {"SetStateImageList", [](auto& v) { return v.SetStateImageList(nullptr); }, 0, 0},
    {"SetBkColor", [](auto& v) { return v.SetBkColor(1); }, 0, 0},
    {"SetTextColor", [](auto& v) { return v.SetTextColor(1); }, 0, 0},
    {"GetMultiSelect", [](auto& v) { return v.GetMultiSelect(); }, 0, 0},
    {"GetControlWindow", [](auto& v) { return Number(v.GetControlWindow()); }, 0, 0},
    {"Move", [](auto& v) { return v.Move(1, 2, 3, 4); }, 0, 0},
    {"GetScrollPosition", [](auto& v) { return v.GetScrollPosition(&written, &written); }, 0, 0},
    {"InsertItem", [](auto& v) { return v.InsertItem(&record, -1); }, 0, -1},
    {"UpdateItem", [](auto& v) { return v.UpdateItem(&record, 1); }, 0, 0},
    {"DeleteItem", [](auto& v) { return v.DeleteItem(1); }, 0, 0},
    {"GetItems", &LengthOfItems, 0, 0},
    {"GetParentItem", [](auto& v) { return v.GetParentItem(1); }, -1, -1},
    {"GetFirstChildItem", [](auto& v) { return v.GetFirstChildItem(1); }, -1, -1},
    {"GetNextSiblingItem", [](auto& v) { return v.GetNextSiblingItem(1); }, -1, -1},
    {"IsItemExpanded", [](auto& v) { return v.IsItemExpanded(1); }, 0, 0},
    {"HitTest", [](auto& v) { return v.HitTest(&SOME_POINT, true, &hitFlags); }, 0, -1},
    {"GetItemClientPtr", [](auto& v) { return v.GetItemClientPtr(1); }, 0, 0},
    {"GetSelectedCount", [](auto& v) { return v.GetSelectedCount(); }, 0, 0},
    {"GetSelectedItem", [](auto& v) { return v.GetSelectedItem(0); }, 0, 0},
    {"IsItemSelected", [](auto& v) { return v.IsItemSelected(1); }, 0, 0},
    {"GetCheckedCount", [](auto& v) { return v.GetCheckedCount(); }, 0, 0},
    {"GetCheckedItem", [](auto& v) { return v.GetCheckedItem(0); }, 0, 0},
    {"IsItemChecked", [](auto& v) { return v.IsItemChecked(1); }, 0, 0},
    {"ShowContextMenu", [](auto& v) { return v.ShowContextMenu(1, 2); }, 0, 0},
};

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
  void ExpectAnswers(std::int64_t Answer::*column) {
    const SentMessages sent;
    written = 77;
    for (const Answer& answer : ANSWERS) {
      EXPECT_EQ(answer.call(*view), answer.*column) << answer.operation;
    }
    DoTheRest(*view);
    EXPECT_EQ(written, 77) << "GetScrollPosition wrote something";
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
  for (IQVLTreeViewClient* listening :
       {static_cast<IQVLTreeViewClient*>(nullptr), static_cast<IQVLTreeViewClient*>(&client)}) {
    view->SetClient(listening);
    view->SetMultiSelect(true);
    EXPECT_EQ(view->GetViewType(), -1);
    hitFlags = 5;
    ExpectAnswers(&Answer::empty);
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
    hitFlags = 5;
    ExpectAnswers(&Answer::hollow);
    EXPECT_EQ(hitFlags, 0u);
    EXPECT_EQ(view->HitTest(&SOME_POINT, true, nullptr), -1);
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
      ExpectAnswers(&Answer::hollow);
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

TEST_F(Proxy, OperationThatACallbackEndsTheViewInFails) {
  const std::function<void()> endings[] = {
      [this] { view->Destroy(); },
      [this] { CreateView(); },
      [this] { CreateView(QVLS_LISTVIEW); },
      [this] { ReleaseView(); },
  };
  for (const auto& end : endings) {
    ASSERT_NE(CreateView(), nullptr);
    Insert(TEXT("a"));
    client.onItemSelectionChanged = [&](ItemHandle) {
      client.onItemSelectionChanged = nullptr;
      end();
    };
    QVLTreeViewItem selected;
    selected.SetSelected(true);
    IQVLTreeView* inserting = view;
    EXPECT_EQ(inserting->InsertItem(&selected, -1), -1);
    EXPECT_EQ(CountParents(), view && view->GetControlWindow() ? 1 : 0);
  }
  EXPECT_EQ(view, nullptr);
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
