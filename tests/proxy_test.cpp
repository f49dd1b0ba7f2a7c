#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "qvl.h"
#include "support/host_window.h"
#include "support/import_patch.h"
#include "support/virtual_place.h"

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

// Operations without a result that need a control to do anything.
const std::function<void(IQVLTreeView&)> SILENT[] = {
    [](auto& v) { v.DeleteAllItems(); },
    [](auto& v) { v.Hide(); },
    [](auto& v) { v.Show(); },
    [](auto& v) { v.Redraw(); },
    [](auto& v) { v.SetScrollPosition(1, 2); },
    [](auto& v) { v.SetToolTipWidth(100); },
    [](auto& v) { v.SetToolTipDelay(100); },
    [](auto& v) { v.ExpandItem(1, true); },
    [](auto& v) { v.ExpandAll(); },
    [](auto& v) { v.CollapseAll(); },
    [](auto& v) { v.EnsureVisible(-1); },
    [](auto& v) { v.SetItemSelected(1, true); },
    [](auto& v) { v.SelectAll(); },
    [](auto& v) { v.ClearSelection(); },
    [](auto& v) { v.InvertSelection(); },
    [](auto& v) { v.SetItemChecked(1, true); },
    [](auto& v) { v.CheckAll(); },
    [](auto& v) { v.UncheckAll(); },
    [](auto& v) { v.Destroy(); },
};

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

class Proxy : public HostTest {
 protected:
  void ExpectAnswers(std::int64_t Answer::*column) {
    written = 77;
    for (const Answer& answer : ANSWERS) {
      EXPECT_EQ(answer.call(*view), answer.*column) << answer.operation;
    }
    for (const auto& operation : SILENT) operation(*view);
    EXPECT_EQ(written, 77) << "GetScrollPosition wrote something";
    EXPECT_EQ(client.Take(), Lines());
  }

  // Creates a view whose window number `which` can't be made, of the two that it needs.
  void FailToCreate(std::uint32_t style, int which) {
    creations = 0;
    creationThatFails = which;
    ImportPatch patch("CreateWindowExW", &CreateUnlessItFails);
    EXPECT_EQ(CreateView(style), nullptr);
    EXPECT_EQ(creations, which) << "windows tried";
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

TEST(Factory, IgnoresNull) { ReleaseIQVLTreeView(nullptr); }

TEST(Factory, OperationsStandInTheOrderOfTheContract) {
  using V = IQVLTreeView;
  EXPECT_EQ(
      VirtualPlaces(
          &V::Create, &V::Destroy, &V::GetViewType, &V::SetImageList, &V::UseSystemImageList,
          &V::SetStateImageList, &V::SetBkColor, &V::SetTextColor, &V::SetMultiSelect,
          &V::GetMultiSelect, &V::SetClient, &V::GetControlWindow, &V::Move, &V::DeleteAllItems,
          &V::Hide, &V::Show, &V::Redraw, &V::GetScrollPosition, &V::SetScrollPosition,
          &V::SetToolTipWidth, &V::SetToolTipDelay, &V::InsertItem, &V::UpdateItem, &V::DeleteItem,
          &V::GetItems, &V::GetParentItem, &V::GetFirstChildItem, &V::GetNextSiblingItem,
          &V::ExpandItem, &V::IsItemExpanded, &V::ExpandAll, &V::CollapseAll, &V::EnsureVisible,
          &V::HitTest, &V::GetItemClientPtr, &V::GetSelectedCount, &V::GetSelectedItem,
          &V::SetItemSelected, &V::IsItemSelected, &V::SelectAll, &V::ClearSelection,
          &V::InvertSelection, &V::GetCheckedCount, &V::GetCheckedItem, &V::SetItemChecked,
          &V::IsItemChecked, &V::CheckAll, &V::UncheckAll, &V::ShowContextMenu),
      PlacesFrom(0, 49));
  using C = IQVLTreeViewClient;
  EXPECT_EQ(VirtualPlaces(&C::OnContextMenu, &C::OnGetInfoTip, &C::OnBeginDrag, &C::OnCreateColumns,
                          &C::OnShellContextMenu, &C::OnLabelEdit, &C::OnBeginSelectionChange,
                          &C::OnItemSelectionChanged, &C::OnEndSelectionChange, &C::OnColumnClick,
                          &C::OnItemExpanded),
            PlacesFrom(0, 11));
}

TEST_F(Proxy, AnswersWithoutAnImplementation) {
  EXPECT_EQ(view->GetViewType(), -1);
  view->SetMultiSelect(true);
  hitFlags = 5;
  ExpectAnswers(&Answer::empty);
  EXPECT_EQ(hitFlags, 5u) << "nobody was there to write them";
  view->SetClient(&client);
  ExpectAnswers(&Answer::empty);
}

TEST_F(Proxy, AnswersWithoutAControl) {
  for (const std::uint32_t style : BOTH_TYPES) {
    SCOPED_TRACE(style);
    ASSERT_NE(CreateView(style), nullptr);
    Insert(TEXT("a"));
    view->SetMultiSelect(true);
    view->Destroy();
    client.Take();
    EXPECT_EQ(view->GetViewType(), style ? 2 : 1);
    hitFlags = 5;
    ExpectAnswers(&Answer::hollow);
    EXPECT_EQ(hitFlags, 0u);
    view->SetMultiSelect(true);
    EXPECT_TRUE(view->GetMultiSelect());
  }
}

TEST_F(Proxy, CreateThatFailsLeavesAViewWithoutControl) {
  for (const std::uint32_t style : BOTH_TYPES) {
    for (const int which : {1, 2}) {
      SCOPED_TRACE(std::to_string(style) + " window " + std::to_string(which));
      FailToCreate(style, which);
      EXPECT_EQ(client.Take(), Lines());
      EXPECT_EQ(CountParents(), which - 1) << "the parent stays until Destroy";
      EXPECT_EQ(view->GetViewType(), style ? 2 : 1);
      view->SetClient(nullptr);
      ExpectAnswers(&Answer::hollow);
      EXPECT_EQ(CountParents(), 0);
    }
  }
}

TEST_F(Proxy, CreateAfterAFailureStartsAfresh) {
  for (const std::uint32_t style : BOTH_TYPES) {
    for (const int which : {1, 2}) {
      FailToCreate(style, which);
      EXPECT_TRUE(CreateView(style));
      EXPECT_EQ(CountParents(), 1);
      EXPECT_NE(Insert(TEXT("a")), -1);
    }
  }
}

TEST_F(Proxy, ViewWhoseControlFailedAnswersItsParentsMessages) {
  for (const std::uint32_t style : BOTH_TYPES) {
    FailToCreate(style, 2);
    SendMessageW(GetWindow(host, GW_CHILD), WM_CONTEXTMENU, 0, MAKELPARAM(60, 60));
    EXPECT_EQ(client.Take(), Lines{"ContextMenu 60,60 -1 0x0000"});
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
      client.Take();
      const HWND control =
          view->Create(host, CONTROL_ID, 0, 0, WIDTH, HEIGHT, second | QVLS_SINGLESEL, nullptr);
      ASSERT_NE(control, nullptr);
      EXPECT_FALSE(IsWindow(old));
      EXPECT_EQ(CountParents(), 1);
      EXPECT_EQ(view->GetControlWindow(), control);
      EXPECT_EQ(view->GetViewType(), second ? 2 : 1);
      EXPECT_FALSE(view->GetMultiSelect());
      ItemHandleList items;
      EXPECT_EQ(view->GetItems(&items, true), 0);
      client.Take();
      const ItemHandle item = Insert(TEXT("b"));
      view->SetItemSelected(item, true);
      EXPECT_EQ(client.Take(), (Lines{"Begin", "Changed b", "End"}));
    }
  }
}

TEST_F(Proxy, ClientSurvivesDestroy) {
  for (const std::uint32_t style : BOTH_TYPES) {
    ASSERT_NE(CreateView(style), nullptr);
    view->Destroy();
    client.Take();
    ASSERT_NE(view->Create(host, CONTROL_ID, 0, 0, WIDTH, HEIGHT, style, nullptr), nullptr);
    client.Take();
    view->SetItemSelected(Insert(TEXT("a")), true);
    EXPECT_EQ(client.Take(), (Lines{"Begin", "Changed a", "End"}));
    view->SetClient(nullptr);
    view->ClearSelection();
    EXPECT_EQ(client.Take(), Lines());
  }
}

TEST_F(Proxy, MultiSelectStartsAsTheViewHasIt) {
  struct Row {
    std::uint32_t style;
    bool initial;
  };
  for (const Row row : {Row{0, true}, Row{QVLS_SINGLESEL, false}, Row{QVLS_LISTVIEW, false},
                        Row{QVLS_LISTVIEW | QVLS_SINGLESEL, false}}) {
    ASSERT_NE(CreateView(row.style), nullptr);
    EXPECT_EQ(view->GetMultiSelect(), row.initial) << row.style;
    for (const bool value : {true, false}) {
      view->SetMultiSelect(value);
      EXPECT_EQ(view->GetMultiSelect(), value) << row.style;
    }
  }
}

TEST_F(Proxy, ReleaseClosesTheWindows) {
  for (const std::uint32_t style : BOTH_TYPES) {
    const HWND control = CreateView(style);
    ASSERT_NE(control, nullptr);
    ReleaseView();
    EXPECT_FALSE(IsWindow(control));
    EXPECT_EQ(CountParents(), 0);
    EXPECT_TRUE(IsWindow(host));
    view = GetIQVLTreeView();
    client.view = view;
  }
}

// A host may close its own window first.
TEST_F(Proxy, ReleaseAfterTheHostsWindow) {
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
}

// What the control reports is sent to the view's window, as the control does it.
class ProxyIsNamed : public Proxy {
 protected:
  template <class Record>
  void Send(Record& sent, UINT code) {
    auto& header = reinterpret_cast<NMHDR&>(sent);
    header = {view->GetControlWindow(), static_cast<UINT_PTR>(CONTROL_ID), code};
    SendMessageW(GetParent(view->GetControlWindow()), WM_NOTIFY, CONTROL_ID,
                 reinterpret_cast<LPARAM>(&sent));
  }

  // The names of the operations called, each once, in the order of the first call.
  Lines TakeOperations() {
    Lines operations;
    for (const std::string& line : client.Take()) {
      const std::string operation = line.substr(0, line.find(' '));
      if (std::find(operations.begin(), operations.end(), operation) == operations.end()) {
        operations.push_back(operation);
      }
    }
    return operations;
  }
};

// The recording client checks the first argument of each call.
TEST_F(ProxyIsNamed, InEveryCallOfATree) {
  ASSERT_NE(CreateView(), nullptr);
  const ItemHandle item = Insert(TEXT("a"));
  view->SetItemSelected(item, true);
  NMTREEVIEWW expanded = {};
  Send(expanded, TVN_ITEMEXPANDEDW);
  NMTVDISPINFOW label = {};
  Send(label, TVN_BEGINLABELEDITW);
  NMTVGETINFOTIPW tip = {};
  Send(tip, TVN_GETINFOTIPW);
  NMTREEVIEWW drag = {};
  drag.itemNew.hItem = reinterpret_cast<HTREEITEM>(item);
  Send(drag, TVN_BEGINDRAGW);
  SendMessageW(GetParent(view->GetControlWindow()), WM_CONTEXTMENU, 0, 0);
  view->ShowContextMenu(0, 0);
  EXPECT_EQ(TakeOperations(), (Lines{"Begin", "Changed", "End", "Expanded", "LabelEdit", "InfoTip",
                                     "BeginDrag", "ContextMenu", "ShellContextMenu"}));
}

TEST_F(ProxyIsNamed, InEveryCallOfAList) {
  ASSERT_NE(CreateView(QVLS_LISTVIEW), nullptr);
  const ItemHandle item = Insert(TEXT("a"));
  client.Take();
  view->SetItemSelected(item, true);
  NMLISTVIEW click = {};
  Send(click, LVN_COLUMNCLICK);
  NMLVDISPINFOW label = {};
  Send(label, LVN_BEGINLABELEDITW);
  NMLVGETINFOTIPW tip = {};
  Send(tip, LVN_GETINFOTIPW);
  NMLISTVIEW drag = {};
  Send(drag, LVN_BEGINDRAG);
  SendMessageW(GetParent(view->GetControlWindow()), WM_CONTEXTMENU, 0, 0);
  view->ShowContextMenu(0, 0);
  EXPECT_EQ(TakeOperations(), (Lines{"Begin", "Changed", "End", "ColumnClick", "LabelEdit",
                                     "InfoTip", "BeginDrag", "ContextMenu", "ShellContextMenu"}));
  view->Create(host, CONTROL_ID, 0, 0, WIDTH, HEIGHT, QVLS_LISTVIEW, nullptr);
  EXPECT_EQ(TakeOperations().front(), "CreateColumns");
}

// Each way in which a callback can end the view, and the operation's answer to that.
class EndedByCallback : public Proxy {
 protected:
  void ExpectInterrupted(const std::function<void()>& end) {
    ASSERT_NE(CreateView(), nullptr);
    Insert(TEXT("a"));
    client.Take();
    client.onItemSelectionChanged = [=, this](ItemHandle) {
      client.onItemSelectionChanged = nullptr;
      end();
    };
    QVLTreeViewItem selected;
    selected.SetSelected(true);
    IQVLTreeView* inserting = view;
    EXPECT_EQ(inserting->InsertItem(&selected, -1), -1);
  }
};

TEST_F(EndedByCallback, Destroy) {
  ExpectInterrupted([this] { view->Destroy(); });
  EXPECT_EQ(view->GetControlWindow(), nullptr);
}

TEST_F(EndedByCallback, Release) {
  ExpectInterrupted([this] { ReleaseView(); });
  EXPECT_EQ(CountParents(), 0);
}

TEST_F(EndedByCallback, AnotherCreate) {
  for (const std::uint32_t style : BOTH_TYPES) {
    ExpectInterrupted([=, this] { CreateView(style); });
    EXPECT_EQ(view->GetViewType(), style ? 2 : 1);
    EXPECT_EQ(CountParents(), 1);
    EXPECT_NE(Insert(TEXT("b")), -1);
  }
}

TEST_F(EndedByCallback, ReleaseInsideCreate) {
  client.onCreateColumns = [this](HWND, RECT*) {
    ReleaseView();
    return true;
  };
  EXPECT_EQ(CreateView(QVLS_LISTVIEW), nullptr);
  EXPECT_EQ(CountParents(), 0);
}

// The old control goes first, and what it reports then may change everything.
TEST_F(EndedByCallback, WhileASecondCreateEndsTheOldControl) {
  ImportPatch report("DestroyWindow", &ReportThenDestroy);
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

TEST_F(EndedByCallback, CreateInsideCreate) {
  for (const std::uint32_t style : BOTH_TYPES) {
    HWND inner = nullptr;
    client.onCreateColumns = [&](HWND, RECT*) {
      client.onCreateColumns = nullptr;
      inner = CreateView(style);
      return true;
    };
    EXPECT_EQ(CreateView(QVLS_LISTVIEW), nullptr);
    EXPECT_NE(inner, nullptr);
    EXPECT_EQ(view->GetControlWindow(), inner);
    EXPECT_EQ(CountParents(), 1);
  }
}

}  // namespace
