// Operations over many items draw once, at the end: when redrawing is suspended and put back, and
// that nothing else differs from a run that draws at every change.

#include <windows.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "support/tree_gestures.h"

namespace {

using Requests = std::vector<bool>;
const Requests NONE;
const Requests SUSPENDED_AND_PUT_BACK = {false, true};

// What the library asks of the drawing of any window, for the life of the object.
class DrawRequests {
 public:
  DrawRequests() { current = this; }
  ~DrawRequests() { current = nullptr; }
  DrawRequests(const DrawRequests&) = delete;
  DrawRequests& operator=(const DrawRequests&) = delete;

  Requests all;

  // Called after each message that the library sent, outside the control.
  std::function<void(UINT message)> afterMessage;

 private:
  static LRESULT WINAPI Relay(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SETREDRAW) current->all.push_back(wParam != 0);
    const LRESULT result =
        current->patch.Original<decltype(SendMessageW)>()(window, message, wParam, lParam);
    if (current->afterMessage) current->afterMessage(message);
    return result;
  }

  static inline DrawRequests* current = nullptr;
  ImportPatch patch{"SendMessageW", &Relay};
};

BOOL WINAPI NotVisible(HWND) { return FALSE; }

enum class Kind { TREE, LIST };

struct Operation {
  const char* name;
  std::function<void(IQVLTreeView&)> prepare;
  std::function<void(IQVLTreeView&)> run;
};

class RedrawTest : public TreeTest, public ::testing::WithParamInterface<Kind> {
 protected:
  bool IsList() const { return GetParam() == Kind::LIST; }

  void OpenAnew() {
    client.labels.clear();
    OpenEmpty(QVLS_CHECKBOXES | QVLS_SHOWSELALWAYS | (IsList() ? QVLS_LISTVIEW : 0));
  }

  // Twenty branches of three, of which the first five are expanded; in a list as many rows.
  // Scrolled to the middle.
  void OpenWithBranches() {
    OpenAnew();
    ItemHandle parent = -1;
    for (int i = 0; i < 80; ++i) {
      const WCHAR name[] = {static_cast<WCHAR>(TEXT('A') + i / 4),
                            static_cast<WCHAR>(TEXT('0') + i % 4), 0};
      const ItemHandle item = Insert(name, i % 4 == 0 ? -1 : parent);
      if (i % 4 == 0) parent = item;
      if (i % 4 == 3 && i < 20) view->ExpandItem(parent, true);
    }
    const ItemHandleList items = Items();
    MoveToEnd(items);
  }

  void MoveToEnd(const ItemHandleList& items) {
    if (!IsList()) MoveCaret(items.front());
    view->EnsureVisible(items.back());
  }

  ItemHandleList Items() {
    ItemHandleList items;
    view->GetItems(&items, true);
    return items;
  }

  // What the client heard, and what can be seen of the view.
  Lines Everything() {
    Lines lines = client.Take();
    int x = 0;
    int y = 0;
    view->GetScrollPosition(&x, &y);
    lines.push_back("scrolled to " + std::to_string(x) + "," + std::to_string(y));
    for (const ItemHandle item : Items()) lines.push_back(Seen(item));
    return lines;
  }

  std::string Seen(ItemHandle item) {
    const RECT rect = IsList() ? RowRect(item) : ItemRect(item);
    std::string line = client.Name(item);
    if (view->IsItemSelected(item)) line += " selected";
    if (view->IsItemChecked(item)) line += " ticked";
    if (view->IsItemExpanded(item)) line += " expanded";
    for (const LONG side : {rect.left, rect.top, rect.right, rect.bottom}) {
      line += " " + std::to_string(side);
    }
    return line;
  }

  RECT RowRect(ItemHandle row) const {
    RECT rect = {};
    rect.left = LVIR_BOUNDS;
    SendMessageW(control, LVM_GETITEMRECT, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(&rect));
    return rect;
  }

  // Top-level items, all of one name.
  void OpenWith(int count) {
    OpenAnew();
    for (int i = 0; i < count; ++i) Insert(TEXT("i"));
    Settle();
  }

  void Settle() {
    PumpMessages();
    client.Take();
    requests.all.clear();
    ValidateRect(control, nullptr);
  }

  void HostSetsRedraw(bool on) { SendMessageW(control, WM_SETREDRAW, on, 0); }

  bool WaitsToBeDrawn() {
    RECT area = {};
    RECT waiting = {};
    GetClientRect(control, &area);
    GetUpdateRect(control, &waiting, FALSE);
    return waiting.right == area.right && waiting.bottom == area.bottom && area.right > 0;
  }

  // The real tree invalidates the items that change even while its redrawing is suspended.
  bool StaysUndrawn() {
    return (REAL_CONTROL && !IsList()) || !GetUpdateRect(control, nullptr, FALSE);
  }

  // Does something in that report of the next operation, from 1.
  void AtReport(int number, std::function<void()> action) {
    reports = 0;
    client.onItemSelectionChanged = [=, this](ItemHandle) {
      if (++reports == number) action();
    };
  }

  // In a list between two messages, since the control need not survive its end in its own report.
  void AtChange(int number, std::function<void()> action) {
    if (!IsList()) return AtReport(number, action);
    requests.afterMessage = [=, left = number](UINT message) mutable {
      if (message == LVM_SETITEMSTATE && --left == 0) action();
    };
  }

  // Without letting anything be drawn.
  void ShiftPress(ItemHandle item) {
    const POINT point = LabelPoint(item);
    const LPARAM packed = MAKELPARAM(point.x, point.y);
    PostMessageW(control, WM_LBUTTONUP, 0, packed);
    SendMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, packed);
  }

  std::vector<Operation> Operations() {
    const auto nothing = [](IQVLTreeView&) {};
    const auto selectAll = [](IQVLTreeView& all) { all.SelectAll(); };
    std::vector<Operation> operations = {
        {"SelectAll", nothing, selectAll},
        {"ClearSelection", selectAll, [](IQVLTreeView& all) { all.ClearSelection(); }},
        {"InvertSelection", nothing, [](IQVLTreeView& all) { all.InvertSelection(); }},
        {"CheckAll", nothing, [](IQVLTreeView& all) { all.CheckAll(); }},
        {"UncheckAll", [](IQVLTreeView& all) { all.CheckAll(); },
         [](IQVLTreeView& all) { all.UncheckAll(); }},
    };
    if (!IsList()) {
      operations.push_back({"a Shift press", [this](IQVLTreeView&) { MoveToEnd(Items()); },
                            [this](IQVLTreeView&) { ShiftPress(Items().back()); }});
      operations.push_back({"ExpandAll", nothing, [](IQVLTreeView& all) { all.ExpandAll(); }});
      operations.push_back({"CollapseAll", [](IQVLTreeView& all) { all.ExpandAll(); },
                            [](IQVLTreeView& all) { all.CollapseAll(); }});
    }
    return operations;
  }

  DrawRequests requests;
  int reports = 0;
};

TEST_P(RedrawTest, ManyChangesAreDrawnOnceAtTheEnd) {
  for (const Operation& operation : Operations()) {
    SCOPED_TRACE(operation.name);
    OpenWith(20);
    operation.prepare(*view);
    Settle();
    operation.run(*view);
    EXPECT_EQ(requests.all, SUSPENDED_AND_PUT_BACK);
    EXPECT_TRUE(WaitsToBeDrawn());
    EXPECT_TRUE(IsWindowVisible(control));
  }
}

TEST_P(RedrawTest, AHandfulOfChangesIsDrawnAsItComes) {
  for (const int count : {1, 8, 9}) {
    for (const Operation& operation : Operations()) {
      SCOPED_TRACE(operation.name + std::to_string(count));
      OpenWith(count);
      operation.prepare(*view);
      Settle();
      operation.run(*view);
      EXPECT_EQ(requests.all, count > 8 ? SUSPENDED_AND_PUT_BACK : NONE);
    }
  }
}

TEST_P(RedrawTest, ItemsThatStayAsTheyAreAreNoChanges) {
  OpenWith(20);
  const ItemHandleList items = Items();
  for (std::size_t i = 0; i < 12; ++i) view->SetItemSelected(items[i], true);
  Settle();
  view->SelectAll();
  EXPECT_EQ(requests.all, NONE);
  EXPECT_EQ(view->GetSelectedCount(), 20);
}

TEST_P(RedrawTest, AHiddenControlIsLeftHidden) {
  for (const bool hostHides : {true, false}) {
    SCOPED_TRACE(hostHides ? "its host is hidden" : "hidden itself");
    ShowWindow(host, SW_SHOWNOACTIVATE);
    OpenWith(20);
    if (hostHides) {
      ShowWindow(host, SW_HIDE);
    } else {
      view->Hide();
    }
    Settle();
    view->SelectAll();
    EXPECT_EQ(requests.all, NONE);
    EXPECT_FALSE(IsWindowVisible(control));
    EXPECT_EQ((GetWindowLongPtrW(control, GWL_STYLE) & WS_VISIBLE) != 0, hostHides);
    EXPECT_EQ(view->GetSelectedCount(), 20);
  }
}

TEST_P(RedrawTest, AControlHiddenMeanwhileStaysHidden) {
  OpenWith(20);
  AtReport(12, [this] { view->Hide(); });
  view->SelectAll();
  EXPECT_EQ(requests.all, SUSPENDED_AND_PUT_BACK);
  EXPECT_EQ(GetWindowLongPtrW(control, GWL_STYLE) & WS_VISIBLE, 0);
  view->Show();
  EXPECT_TRUE(IsWindowVisible(control));
}

TEST_P(RedrawTest, AHostsSuspensionIsLeftToTheHost) {
  OpenWith(20);
  HostSetsRedraw(false);
  Settle();
  view->SelectAll();
  view->CheckAll();
  EXPECT_EQ(requests.all, NONE);
  EXPECT_TRUE(StaysUndrawn());
  HostSetsRedraw(true);
  Settle();
  view->ClearSelection();
  EXPECT_EQ(requests.all, SUSPENDED_AND_PUT_BACK);
}

TEST_P(RedrawTest, AHostsSuspensionThatBeginsInACallbackGoesOn) {
  for (const int report : {3, 12}) {
    SCOPED_TRACE(report);
    OpenWith(20);
    AtReport(report, [this] { HostSetsRedraw(false); });
    view->SelectAll();
    EXPECT_EQ(requests.all, report < 9 ? NONE : Requests{false});
    client.onItemSelectionChanged = nullptr;
    Settle();
    view->InvertSelection();
    EXPECT_EQ(requests.all, NONE);
    EXPECT_TRUE(StaysUndrawn());
    HostSetsRedraw(true);
    view->SelectAll();
    EXPECT_EQ(requests.all, SUSPENDED_AND_PUT_BACK);
  }
}

TEST_P(RedrawTest, AHostThatSuspendsAndPutsBackInACallbackChangesNothing) {
  OpenWith(20);
  AtReport(12, [this] {
    HostSetsRedraw(false);
    HostSetsRedraw(true);
  });
  view->SelectAll();
  EXPECT_EQ(requests.all, SUSPENDED_AND_PUT_BACK);
  EXPECT_TRUE(WaitsToBeDrawn());
}

TEST_P(RedrawTest, AnOperationInACallbackLeavesTheDrawingToTheOuterOne) {
  OpenWith(20);
  Requests afterInner;
  AtReport(12, [&] {
    view->CheckAll();
    view->ClearSelection();
    afterInner = requests.all;
  });
  view->SelectAll();
  EXPECT_EQ(afterInner, Requests{false});
  EXPECT_EQ(requests.all, SUSPENDED_AND_PUT_BACK);
}

TEST_P(RedrawTest, AnOperationBeforeTheOuterOneSuspendsHasItsOwnEnd) {
  OpenWith(20);
  Requests afterInner;
  AtReport(3, [&] {
    view->CheckAll();
    afterInner = requests.all;
  });
  view->SelectAll();
  EXPECT_EQ(afterInner, SUSPENDED_AND_PUT_BACK);
  EXPECT_EQ(requests.all, (Requests{false, true, false, true}));
}

TEST_P(RedrawTest, AViewThatEndsMeanwhileTakesItsSuspensionAlong) {
  const std::vector<std::pair<const char*, std::function<void()>>> endings = {
      {"Destroy", [this] { view->Destroy(); }},
      {"Release", [this] { ReleaseView(); }},
      {"Create", [this] { OpenAnew(); }},
  };
  for (const auto& [name, end] : endings) {
    SCOPED_TRACE(name);
    if (!view) view = client.view = GetIQVLTreeView();
    OpenWith(20);
    const HWND before = control;
    AtChange(12, end);
    view->SelectAll();
    requests.afterMessage = nullptr;
    client.onItemSelectionChanged = nullptr;
    EXPECT_EQ(requests.all, Requests{false});
    EXPECT_FALSE(IsWindow(before));
  }
  // Create came last: nothing of the old suspension sticks to the new control.
  for (int i = 0; i < 20; ++i) Insert(TEXT("i"));
  Settle();
  view->SelectAll();
  EXPECT_EQ(requests.all, SUSPENDED_AND_PUT_BACK);
}

TEST_P(RedrawTest, NothingElseDiffersFromARunThatDrawsEveryChange) {
  for (const Operation& operation : Operations()) {
    SCOPED_TRACE(operation.name);
    Lines runs[2];
    for (const bool draws : {false, true}) {
      OpenWithBranches();
      operation.prepare(*view);
      Settle();
      if (draws) {
        const ImportPatch neverPauses("IsWindowVisible", &NotVisible);
        operation.run(*view);
      } else {
        operation.run(*view);
      }
      EXPECT_EQ(requests.all, draws ? NONE : SUSPENDED_AND_PUT_BACK);
      runs[draws] = Everything();
    }
    EXPECT_EQ(runs[0], runs[1]);
  }
}

INSTANTIATE_TEST_SUITE_P(BothViews, RedrawTest, ::testing::Values(Kind::TREE, Kind::LIST),
                         [](const auto& tested) {
                           return tested.param == Kind::TREE ? "Tree" : "List";
                         });

}  // namespace
