// Operations over many items draw once, at the end: when redrawing is suspended and put back.

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "support/sent_messages.h"
#include "support/tree_gestures.h"

namespace {

// What the library asks of the drawing of any window.
const std::string NOTHING;
const std::string SUSPENDED = "off ";
const std::string ONE_DRAWING = "off on ";
const std::string TWO_DRAWINGS = "off on off on ";

struct Operation {
  const char* name;
  std::function<void()> prepare;
  std::function<void()> run;
};

// What the host does with the drawing, and what the library asks for then.
struct HostsWay {
  const char* name;
  std::function<void()> action;
  int report;  // in which of SelectAll's reports it is done; 0 is before
  std::string requests;
  std::string next;  // what the operation after that asks for
};

class RedrawTest : public TreeTest, public ::testing::WithParamInterface<std::uint32_t> {
 protected:
  bool IsList() const { return GetParam() == QVLS_LISTVIEW; }

  void OpenWith(int count) {
    OpenEmpty(QVLS_CHECKBOXES | QVLS_SHOWSELALWAYS | GetParam());
    items.clear();
    for (int i = 0; i < count; ++i) items.push_back(Insert(TEXT("i")));
    Settle();
  }

  void Settle() {
    PumpMessages();
    client.Take();
    sent.Forget();
    ValidateRect(control, nullptr);
  }

  // What was asked since the view settled.
  std::string Requests() const {
    std::string requests;
    for (const SentMessage& request : sent.Of(WM_SETREDRAW)) {
      requests += request.wParam ? "on " : "off ";
    }
    return requests;
  }

  void HostSetsRedraw(bool on) { Ask(WM_SETREDRAW, on); }

  bool WaitsToBeDrawn() {
    RECT area = {};
    RECT waiting = {};
    GetClientRect(control, &area);
    GetUpdateRect(control, &waiting, FALSE);
    return waiting.right == area.right && waiting.bottom == area.bottom && area.right > 0;
  }

  // Without letting anything be drawn.
  void ShiftPress(ItemHandle item) {
    const POINT point = LabelPoint(item);
    const LPARAM packed = MAKELPARAM(point.x, point.y);
    PostMessageW(control, WM_LBUTTONUP, 0, packed);
    Ask(WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, packed);
  }

  std::vector<Operation> Operations() {
    const auto nothing = [] {};
    const auto selectAll = [this] { view->SelectAll(); };
    const auto checkAll = [this] { view->CheckAll(); };
    std::vector<Operation> operations = {
        {"SelectAll", nothing, selectAll},
        {"ClearSelection", selectAll, [this] { view->ClearSelection(); }},
        {"InvertSelection", nothing, [this] { view->InvertSelection(); }},
        {"CheckAll", nothing, checkAll},
        {"UncheckAll", checkAll, [this] { view->UncheckAll(); }},
    };
    if (IsList()) return operations;
    const auto expandAll = [this] { view->ExpandAll(); };
    operations.push_back({"ExpandAll", nothing, expandAll});
    operations.push_back({"CollapseAll", expandAll, [this] { view->CollapseAll(); }});
    operations.push_back({"a Shift press", [this] { MoveCaret(items.front()); },
                          [this] { ShiftPress(items.back()); }});
    // All the items above lose their marks.
    operations.push_back({"a Shift press on the last", [this] { MoveCaret(items.back()); },
                          [this] { ShiftPress(items.back()); }});
    return operations;
  }

  std::vector<HostsWay> HostsWays() {
    const auto suspend = [this] { HostSetsRedraw(false); };
    const auto hide = [this] { view->Hide(); };
    const auto hideHost = [this] { ShowWindow(host, SW_HIDE); };
    const auto putBack = [this] { HostSetsRedraw(false), HostSetsRedraw(true); };
    const auto check = [this] { view->CheckAll(); };
    const auto checkAndClear = [this] { view->CheckAll(), view->ClearSelection(); };
    return {
        {"suspended before", suspend, 0, NOTHING, NOTHING},
        {"suspended early", suspend, 3, NOTHING, NOTHING},
        {"suspended late", suspend, 12, SUSPENDED, NOTHING},
        {"put back", putBack, 12, ONE_DRAWING, ONE_DRAWING},
        {"hidden before", hide, 0, NOTHING, NOTHING},
        {"hidden with its host", hideHost, 0, NOTHING, NOTHING},
        {"hidden late", hide, 12, ONE_DRAWING, NOTHING},
        {"operation before the outer one suspends", check, 3, TWO_DRAWINGS, ONE_DRAWING},
        {"operation within", checkAndClear, 12, ONE_DRAWING, ONE_DRAWING},
    };
  }

  ItemHandleList items;
  SentMessages sent;
};

TEST_P(RedrawTest, ManyChangesAreDrawnOnceAtTheEndAndAHandfulAsItComes) {
  for (const int count : {1, 8, 9, 20}) {
    for (const Operation& operation : Operations()) {
      SCOPED_TRACE(operation.name + std::to_string(count));
      OpenWith(count);
      operation.prepare();
      Settle();
      operation.run();
      EXPECT_EQ(Requests(), count > 8 ? ONE_DRAWING : NOTHING);
      EXPECT_TRUE(count <= 8 || WaitsToBeDrawn());
      EXPECT_TRUE(IsWindowVisible(control));
    }
  }
}

TEST_P(RedrawTest, ItemsThatStayAsTheyAreAreNoChanges) {
  for (const bool select : {true, false}) {
    OpenWith(20);
    if (!select) view->SelectAll();
    for (std::size_t i = 0; i < 12; ++i) view->SetItemSelected(items[i], select);
    Settle();
    select ? view->SelectAll() : view->ClearSelection();
    EXPECT_EQ(Requests(), NOTHING);
    EXPECT_EQ(view->GetSelectedCount(), select ? 20 : 0);
  }
}

TEST_P(RedrawTest, TheHostsOwnWayWithTheDrawingComesFirst) {
  for (const HostsWay& c : HostsWays()) {
    SCOPED_TRACE(c.name);
    OpenWith(20);
    if (c.report == 0) c.action();
    Settle();
    int reports = 0;
    client.onItemSelectionChanged = [&](ItemHandle) {
      if (++reports == c.report) c.action();
    };
    view->SelectAll();
    EXPECT_EQ(Requests(), c.requests);
    client.onItemSelectionChanged = nullptr;
    Settle();
    view->InvertSelection();
    EXPECT_EQ(Requests(), c.next);
    // The real tree invalidates the items that change even while its redrawing is suspended.
    EXPECT_TRUE(c.next != NOTHING || (REAL_CONTROL && !IsList()) || !WaitsToBeDrawn());

    HostSetsRedraw(true);
    view->Show();
    ShowWindow(host, SW_SHOWNOACTIVATE);
    EXPECT_TRUE(IsWindowVisible(control));
    Settle();
    view->InvertSelection();
    EXPECT_EQ(Requests(), ONE_DRAWING);
  }
}

INSTANTIATE_TEST_SUITE_P(BothViews, RedrawTest, ::testing::Values(0, QVLS_LISTVIEW),
                         [](const auto& tested) { return tested.param ? "List" : "Tree"; });

}  // namespace
