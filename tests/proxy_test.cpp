// What a view answers without a control, and how it comes to one.
#include "support/host_window.h"
#include "support/import_patch.h"
#include "support/sent_messages.h"

namespace {

constexpr POINT SOME_POINT = {10, 10};

// What has no control must look at no argument, so some of the pointers are null.
void ExpectNoNumbers(IQVLTreeView& view, ItemHandle noItem) {
  QVLTreeViewItem record;
  ItemHandleList items = {1, 2, 3};
  EXPECT_EQ(view.GetControlWindow(), nullptr);
  EXPECT_EQ(view.InsertItem(&record, -1), noItem);
  EXPECT_EQ(view.HitTest(&SOME_POINT, true, nullptr), noItem);
  std::uint32_t hitFlags = 5;
  EXPECT_EQ(view.HitTest(&SOME_POINT, true, &hitFlags), noItem);
  EXPECT_EQ(hitFlags, noItem == 0 ? 5u : 0u) << "without a view nobody is there to write them";
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

int windowsToCome = 0;

HWND WINAPI CreateUnlessItFails(DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style, int x,
                                int y, int width, int height, HWND parent, HMENU menu,
                                HINSTANCE instance, LPVOID parameter) {
  if (windowsToCome-- == 0) return nullptr;
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

// A view that becomes a tree or a list.
class Proxy : public HostTest, public ::testing::WithParamInterface<std::uint32_t> {
 protected:
  int Type() const { return GetParam() == QVLS_LISTVIEW ? 2 : 1; }

  void Open(std::uint32_t style = GetParam()) {
    control = CreateView(style);
    ASSERT_NE(control, nullptr);
    Insert(TEXT("a"));
    client.Take();
  }

  // What a view answers that has no control, and -1 or 0 for an item that is not there.
  void ExpectFailures(ItemHandle noItem) {
    const SentMessages sent;
    ExpectNoNumbers(*view, noItem);
    ExpectAllFalse(*view);
    DoTheRest(*view);
    EXPECT_TRUE(sent.all.empty() || view->GetViewType() == 1) << "a list tries nothing";
    EXPECT_EQ(client.Take(), Lines());
  }

  // A view comes again, in place of what was there before, and keeps its client.
  void ExpectCreated(std::uint32_t style = 0) {
    const HWND made =
        view->Create(host, CONTROL_ID, 0, 0, WIDTH, HEIGHT, GetParam() | style, nullptr);
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(view->GetControlWindow(), made);
    EXPECT_EQ(CountParents(), 1);
    EXPECT_EQ(view->GetViewType(), Type());
    EXPECT_EQ(view->GetMultiSelect(), Type() == 1 && style != QVLS_SINGLESEL);
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

INSTANTIATE_TEST_SUITE_P(Views, Proxy, ::testing::Values(0u, std::uint32_t{QVLS_LISTVIEW}));

TEST_P(Proxy, AnswersWithoutAnImplementation) {
  for (const bool listening : {false, true}) {
    view->SetClient(listening ? &client : nullptr);
    view->SetMultiSelect(true);
    EXPECT_EQ(view->GetViewType(), -1);
    ExpectFailures(0);
  }
}

TEST_P(Proxy, AnswersWithoutAControlAndKeepsTheClient) {
  Open();
  view->SetMultiSelect(true);
  view->Destroy();
  client.Take();
  EXPECT_EQ(CountParents(), 0);
  EXPECT_EQ(view->GetViewType(), Type());
  ExpectFailures(-1);
  view->SetMultiSelect(true);
  EXPECT_TRUE(view->GetMultiSelect());
  ExpectCreated();
  ReleaseView();
  EXPECT_EQ(CountParents(), 0);
}

TEST_P(Proxy, CreateThatFailsLeavesAViewWithoutControl) {
  for (const int made : {0, 1}) {
    {
      windowsToCome = made;
      const ImportPatch patch("CreateWindowExW", &CreateUnlessItFails);
      EXPECT_EQ(CreateView(GetParam()), nullptr);
      EXPECT_EQ(windowsToCome, -1) << "nothing is tried after the one that failed";
    }
    EXPECT_EQ(client.Take(), Lines());
    EXPECT_EQ(CountParents(), made) << "the parent stays until Destroy";
    EXPECT_EQ(view->GetViewType(), Type());
    if (made == 1) {
      SendMessageW(GetWindow(host, GW_CHILD), WM_CONTEXTMENU, 0, MAKELPARAM(60, 70));
      EXPECT_EQ(client.Take(), Lines{"ContextMenu 60,70 -1 0x0000"});
    }
    view->SetClient(nullptr);
    ExpectFailures(-1);
    view->SetClient(&client);
    ExpectCreated();
  }
}

TEST_P(Proxy, SecondCreateReplacesEverythingButTheClient) {
  for (const std::uint32_t first : {0u, std::uint32_t{QVLS_LISTVIEW}}) {
    Open(first | QVLS_SINGLESEL);
    view->SetMultiSelect(true);
    ExpectCreated(QVLS_SINGLESEL);
    EXPECT_FALSE(IsWindow(control));
  }
}

// A host may close its own window first.
TEST_P(Proxy, ReleaseAfterTheHostsWindowOrOfNothing) {
  Open();
  DestroyWindow(control);
  view->DeleteAllItems();
  EXPECT_EQ(view->GetSelectedCount(), 0);
  Open();
  DestroyWindow(host);
  EXPECT_FALSE(view->DeleteItem(1));
  ReleaseView();
  ReleaseIQVLTreeView(nullptr);
}

TEST_P(Proxy, WindowsThatThePlatformKeepsNoLongerFindTheirView) {
  Open();
  if (Type() == 2) SetWindowLongPtrW(control, GWLP_USERDATA, 42);
  {
    const ImportPatch patch("DestroyWindow", &RefuseToDestroy);
    ReleaseView();
  }
  client.Take();
  SendMessageW(GetParent(control), WM_CONTEXTMENU, 0, MAKELPARAM(60, 70));
  SendMessageW(control, WM_KEYDOWN, VK_DOWN, 1);
  SendMessageW(control, WM_SETREDRAW, TRUE, 0);
  EXPECT_EQ(client.Take(), Lines());
  EXPECT_EQ(GetWindowLongPtrW(control, GWLP_USERDATA), Type() == 2 ? 42 : 0);
}

// Until the view is freed: what a callback asks and sets while its windows go.
TEST_P(Proxy, OperationsReachTheViewThatGoes) {
  const ImportPatch report("DestroyWindow", &ReportThenDestroy);
  Open(0);
  client.onItemExpanded = [&](ItemHandle) {
    client.onItemExpanded = nullptr;
    EXPECT_EQ(view->GetViewType(), 1);
    EXPECT_EQ(view->GetControlWindow(), control);
    view->SetClient(nullptr);
  };
  view->SetItemSelected(Item('a'), true);
  client.Take();
  EXPECT_NE(view->Create(host, CONTROL_ID, 0, 0, 10, 10, GetParam(), nullptr), nullptr);
  EXPECT_EQ(client.Take(), Lines{"Expanded 0"}) << "the rest of the end is not heard";
  view->SetClient(&client);
  ExpectCreated();
}

// The old control goes first, and what it reports then may change everything.
TEST_P(Proxy, CallbackMayCreateOrReleaseWhileASecondCreateEndsTheOldControl) {
  const ImportPatch report("DestroyWindow", &ReportThenDestroy);
  Open(0);
  client.onItemExpanded = [&](ItemHandle) {
    client.onItemExpanded = nullptr;
    control = CreateView();
  };
  ExpectCreated();
  EXPECT_NE(control, nullptr);
  EXPECT_FALSE(IsWindow(control)) << "the outer Create came last";
  Open(0);
  client.onItemExpanded = [&](ItemHandle) {
    client.onItemExpanded = nullptr;
    ReleaseView();
  };
  EXPECT_EQ(CreateView(GetParam()), nullptr);
  EXPECT_EQ(CountParents(), 0);
}

}  // namespace
