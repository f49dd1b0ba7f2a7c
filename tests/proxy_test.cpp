// The results of a view without a control or without the item, and how a view gets and loses its
// control.
#include "support/each_view.h"
#include "support/replaced_call.h"
#include "support/sent_messages.h"

namespace {

using V = IQVLTreeView;

constexpr ItemHandle kHighHalf = 0x7FFFFFFF00000000;

void ExpectItemFailures(V& view, ItemHandle handle) {
  QVLTreeViewItem record;
  record.SetItemName(TEXT("changed"));
  record.SetSelected(true);
  EXPECT_FALSE(view.UpdateItem(&record, handle));
  for (const auto next : {&V::GetParentItem, &V::GetFirstChildItem, &V::GetNextSiblingItem}) {
    EXPECT_EQ((view.*next)(handle), -1);
  }
  for (const auto set : {&V::SetItemSelected, &V::SetItemChecked}) {
    for (const bool on : {true, false}) (view.*set)(handle, on);
  }
  for (const auto is :
       {&V::DeleteItem, &V::IsItemExpanded, &V::IsItemSelected, &V::IsItemChecked}) {
    EXPECT_FALSE((view.*is)(handle));
  }
  EXPECT_EQ(view.GetItemClientPtr(handle), 0);
}

// Every operation but Create and those of the mode and the client. Without a control no argument is
// read, so some of the pointers are null.
void ExpectFailures(V& view, ItemHandle noItem) {
  const POINT point = {10, 10};
  QVLTreeViewItem record;
  ItemHandleList items = {1, 2, 3};
  EXPECT_EQ(view.GetControlWindow(), nullptr);
  EXPECT_EQ(view.InsertItem(&record, -1), noItem);
  EXPECT_EQ(view.HitTest(&point, true, nullptr), noItem);
  std::uint32_t hitFlags = 5;
  EXPECT_EQ(view.HitTest(&point, true, &hitFlags), noItem);
  EXPECT_EQ(hitFlags, noItem == 0 ? 5u : 0u) << "only an implementation writes them";
  EXPECT_EQ(view.GetItems(&items, true), 0);
  EXPECT_EQ(items, (ItemHandleList{1, 2, 3}));
  ExpectItemFailures(view, 1);
  for (const auto count : {&V::GetSelectedCount, &V::GetCheckedCount})
    EXPECT_EQ((view.*count)(), 0);
  for (const auto item : {&V::GetSelectedItem, &V::GetCheckedItem}) EXPECT_EQ((view.*item)(0), 0);

  int written = 77;
  for (const auto set : {&V::SetImageList, &V::SetStateImageList})
    EXPECT_FALSE((view.*set)(nullptr));
  for (const auto set : {&V::SetBkColor, &V::SetTextColor}) EXPECT_FALSE((view.*set)(1));
  EXPECT_FALSE(view.UseSystemImageList() || view.Move(1, 2, 3, 4) || view.ShowContextMenu(1, 2));
  EXPECT_FALSE(view.GetScrollPosition(&written, &written));
  EXPECT_EQ(written, 77);

  view.SetScrollPosition(1, 2);
  view.EnsureVisible(-1);
  for (const auto set : {&V::SetToolTipWidth, &V::SetToolTipDelay}) (view.*set)(100);
  view.ExpandItem(1, true);
  for (const auto operation : {&V::DeleteAllItems, &V::Hide, &V::Show, &V::Redraw, &V::ExpandAll,
                               &V::CollapseAll, &V::SelectAll, &V::ClearSelection,
                               &V::InvertSelection, &V::CheckAll, &V::UncheckAll, &V::Destroy}) {
    (view.*operation)();
  }
}

class Proxy : public EachView {
 protected:
  int Type() const { return TreeOrList(1, 2); }

  void ExpectWithoutControl(ItemHandle noItem) {
    const SentMessages sent;
    ExpectFailures(*view, noItem);
    EXPECT_TRUE(sent.all.empty() || !IsList()) << "a list sends nothing";
    EXPECT_EQ(Callbacks(), "");
  }

  // Create makes a new view in place of what was there before, and keeps the client.
  void ExpectCreated(std::uint32_t style = 0) {
    const HWND made =
        view->Create(host, kControlId, 0, 0, kWidth, kHeight, GetParam() | style, nullptr);
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(view->GetControlWindow(), made);
    EXPECT_EQ(CountParents(), 1);
    EXPECT_EQ(view->GetViewType(), Type());
    EXPECT_EQ(view->GetMultiSelect(), !IsList() && style != QVLS_SINGLESEL);
    ItemHandleList items;
    EXPECT_EQ(view->GetItems(&items, true), 0);
    client.Take();
    view->SetItemSelected(Insert(TEXT("b")), true);
    EXPECT_EQ(Callbacks(), "B b E");
  }

  // The view's parent windows inside the host.
  int CountParents() const {
    int count = 0;
    HWND child = GetWindow(host, GW_CHILD);
    for (; child; child = GetWindow(child, GW_HWNDNEXT)) ++count;
    return count;
  }
};

INSTANTIATE_TEST_SUITE_P(Views, Proxy, kEachView, ViewName);

TEST_P(Proxy, WithoutImplementationOrControlEveryOperationFails) {
  for (const bool withClient : {false, true}) {
    view->SetClient(withClient ? &client : nullptr);
    view->SetMultiSelect(true);
    EXPECT_EQ(view->GetViewType(), -1);
    EXPECT_FALSE(view->GetMultiSelect());
    ExpectWithoutControl(0);
  }
  OpenWithItems();
  view->SetMultiSelect(true);
  view->Destroy();
  client.Take();
  EXPECT_EQ(CountParents(), 0);
  EXPECT_EQ(view->GetViewType(), Type());
  EXPECT_FALSE(view->GetMultiSelect());
  ExpectWithoutControl(-1);
  view->SetMultiSelect(true);
  EXPECT_TRUE(view->GetMultiSelect());
  ExpectCreated();
  ReleaseView();
  EXPECT_EQ(CountParents(), 0);
}

TEST_P(Proxy, HandleOfNoItemChangesNothing) {
  OpenWithItems(QVLS_CHECKBOXES);
  ItemHandleList handles = {-1};
  // Their low halves look like a row, or like all of them. A tree's control checks these itself.
  if (IsList()) handles = {-1, 0x100000000, 0x100000001, 0xFFFFFFFF, -0x100000000, kHighHalf};
  for (const ItemHandle handle : handles) {
    SCOPED_TRACE(handle);
    const SentMessages sent;
    ExpectItemFailures(*view, handle);
    EXPECT_TRUE(IsList() || view->GetItemClientPtr(0) == 0) << "the control has no item 0";
    EXPECT_EQ(sent.all.size(), sent.Of(LVM_GETITEMW).size()) << "a list may ask for the row";
    if (IsList()) view->EnsureVisible(handle);
  }
  EXPECT_EQ(Callbacks(), "");
  ItemHandleList items;
  EXPECT_EQ(view->GetItems(&items, true), 3);
  EXPECT_EQ(TextOf(a), TEXT("a"));
}

TEST_P(Proxy, CreateThatFailsLeavesAViewWithoutControl) {
  for (const int made : {0, 1}) {
    int windows = made;
    {
      const Replaced patch("CreateWindowExW", &CreateWindowExW, [&](auto... arguments) {
        return windows-- == 0 ? nullptr : CreateWindowExW(arguments...);
      });
      EXPECT_EQ(CreateView(GetParam()), nullptr);
      EXPECT_EQ(windows, -1) << "nothing is created after the one that failed";
    }
    EXPECT_EQ(Callbacks(), "");
    EXPECT_EQ(CountParents(), made) << "the parent stays until Destroy";
    EXPECT_EQ(view->GetViewType(), Type());
    if (made == 1) {
      SendMessageW(GetWindow(host, GW_CHILD), WM_CONTEXTMENU, 0, MAKELPARAM(60, 70));
      EXPECT_EQ(Callbacks(), "ContextMenu 60,70 -1 0x0000");
    }
    view->SetClient(nullptr);
    ExpectWithoutControl(-1);
    view->SetClient(&client);
    ExpectCreated();
  }
}

TEST_P(Proxy, SecondCreateReplacesEverythingButTheClient) {
  for (const std::uint32_t first : {0u, std::uint32_t{QVLS_LISTVIEW}}) {
    OpenView(first | QVLS_SINGLESEL);
    view->SetMultiSelect(true);
    ExpectCreated(QVLS_SINGLESEL);
    EXPECT_FALSE(IsWindow(control));
  }
}

TEST_P(Proxy, HostMayDestroyTheWindowsBeforeTheView) {
  OpenWithItems();
  DestroyWindow(control);
  view->DeleteAllItems();
  EXPECT_EQ(view->GetSelectedCount(), 0);
  OpenWithItems();
  DestroyWindow(host);
  EXPECT_FALSE(view->DeleteItem(1));
  ReleaseView();
  ReleaseIQVLTreeView(nullptr);
}

TEST_P(Proxy, WindowsThatThePlatformKeepsDoNotFindTheView) {
  OpenWithItems();
  if (IsList()) SetWindowLongPtrW(control, GWLP_USERDATA, 42);
  {
    const Replaced refuse("DestroyWindow", &DestroyWindow, [](HWND) { return FALSE; });
    ReleaseView();
  }
  client.Take();
  SendMessageW(parent, WM_CONTEXTMENU, 0, MAKELPARAM(60, 70));
  Ask(WM_KEYDOWN, VK_DOWN, 1);
  Ask(WM_SETREDRAW, TRUE);
  EXPECT_EQ(Callbacks(), "");
  EXPECT_EQ(GetWindowLongPtrW(control, GWLP_USERDATA), TreeOrList(0, 42));
}

// A control may report while it is destroyed. Until then operations reach the old view.
TEST_P(Proxy, CallbackMayDoAnythingWhileASecondCreateDestroysTheControl) {
  const Replaced report("DestroyWindow", &DestroyWindow, [](HWND window) {
    NMTREEVIEWW record = {};
    record.hdr = {window, static_cast<UINT_PTR>(GetDlgCtrlID(window)), TVN_ITEMEXPANDEDW};
    SendMessageW(GetParent(window), WM_NOTIFY, record.hdr.idFrom,
                 reinterpret_cast<LPARAM>(&record));
    return DestroyWindow(window);
  });
  const auto openTree = [this](auto reaction) {
    OpenView(0);
    view->SetItemSelected(Insert(TEXT("a")), true);
    client.Take();
    client.onItemExpanded = [this, reaction](ItemHandle) {
      client.onItemExpanded = nullptr;
      reaction();
    };
  };
  openTree([this] {
    EXPECT_EQ(view->GetViewType(), 1);
    EXPECT_EQ(view->GetControlWindow(), control);
    view->SetClient(nullptr);
  });
  EXPECT_NE(view->Create(host, kControlId, 0, 0, 10, 10, GetParam(), nullptr), nullptr);
  EXPECT_EQ(Callbacks(), "Expanded 0") << "nothing more without a client";
  view->SetClient(&client);
  ExpectCreated();

  openTree([this] { control = CreateView(); });
  ExpectCreated();
  EXPECT_NE(control, nullptr);
  EXPECT_FALSE(IsWindow(control)) << "the outer Create came last";

  openTree([this] { ReleaseView(); });
  EXPECT_EQ(CreateView(GetParam()), nullptr);
  EXPECT_EQ(CountParents(), 0);
}

}  // namespace
