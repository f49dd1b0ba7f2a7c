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
    if (IsList()) SetWindowLongPtrW(control, GWLP_USERDATA, 42);  // the host's own
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
    EXPECT_TRUE(!IsList() || GetWindowLongPtrW(control, GWLP_USERDATA) == 42);
  }
}

// Some controls leave WM_SETREDRAW to default handling, which hides the window and shows it again.
LRESULT WINAPI HideWhileSuspended(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_SETREDRAW) ShowWindow(window, wParam ? SW_SHOWNOACTIVATE : SW_HIDE);
  return SendMessageW(window, message, wParam, lParam);
}

UINT redrawn = 0;
BOOL WINAPI NoteRedraw(HWND window, const RECT* rect, HRGN region, UINT flags) {
  redrawn = rect || region ? 0 : flags;
  return RedrawWindow(window, rect, region, flags);
}

TEST_P(RedrawTest, AViewThatIsHiddenMeanwhileStaysHidden) {
  for (const bool hides : {false, true}) {
    OpenWith(20);
    client.onItemSelectionChanged = [&](ItemHandle item) {
      if (hides && item == items[12]) view->Hide();
    };
    const ImportPatch hide("SendMessageW", &HideWhileSuspended);
    const ImportPatch note("RedrawWindow", &NoteRedraw);
    view->SelectAll();
    EXPECT_EQ(IsWindowVisible(control) == 0, hides);
    EXPECT_EQ(redrawn, UINT{RDW_ERASE | RDW_FRAME | RDW_INVALIDATE | RDW_ALLCHILDREN});
  }
}

// The runtime's tree works out its bars at each change, unless it has none.
class TreeBarsTest : public RedrawTest {
 protected:
  // 100 items, scrolled down, or as many as fit.
  void OpenScrolled(bool fits = false) {
    OpenEmpty(QVLS_EDITLABELS | QVLS_SHOWSELALWAYS);
    items.clear();
    for (int i = 0; i < (fits ? 10 : 100); ++i) items.push_back(Insert(TEXT("i")));
    if (!fits) view->EnsureVisible(items[70]);
    UpdateWindow(control);
    Settle();
  }

  bool HasNoScroll() const { return (GetWindowLongPtrW(control, GWL_STYLE) & TVS_NOSCROLL) != 0; }
  HWND Edit() const { return reinterpret_cast<HWND>(Ask(TVM_GETEDITCONTROL)); }

  // Marks all, doing something in the report of the tenth. Whether the bars were away by then.
  bool TakesBars(const std::function<void()>& inside = [] {}) {
    bool taken = false;
    client.onItemSelectionChanged = [&](ItemHandle item) {
      if (item != items[9]) return;
      taken = HasNoScroll();
      inside();
    };
    view->InvertSelection();
    client.onItemSelectionChanged = nullptr;
    return taken;
  }
};

TEST_P(TreeBarsTest, TheBarsComeBackAsTheyWere) {
  OpenScrolled();
  const LONG_PTR style = GetWindowLongPtrW(control, GWL_STYLE);
  EXPECT_TRUE(style & WS_VSCROLL);
  const LRESULT top = Ask(TVM_GETNEXTITEM, TVGN_FIRSTVISIBLE);
  int x = 0, y = 0, newX = 0, newY = 0;
  view->GetScrollPosition(&x, &y);
  EXPECT_GT(y, 0);
  EXPECT_TRUE(TakesBars());
  view->GetScrollPosition(&newX, &newY);
  EXPECT_EQ(GetWindowLongPtrW(control, GWL_STYLE), style);
  EXPECT_EQ(Ask(TVM_GETNEXTITEM, TVGN_FIRSTVISIBLE), top);
  EXPECT_TRUE(x == newX && y == newY);
  HostSetsRedraw(false);
  EXPECT_TRUE(TakesBars()) << "the host may suspend the drawing, which does not keep the bars away";
}

TEST_P(TreeBarsTest, WhatMayNotBeTouchedIsNot) {
  OpenScrolled(true);
  EXPECT_FALSE(TakesBars()) << "a tree without bars";
  OpenScrolled();
  SetWindowLongPtrW(control, GWL_STYLE, GetWindowLongPtrW(control, GWL_STYLE) | TVS_NOSCROLL);
  EXPECT_TRUE(TakesBars());
  EXPECT_TRUE(HasNoScroll()) << "the host's own";

  OpenScrolled();
  const HWND edit = reinterpret_cast<HWND>(Ask(TVM_EDITLABELW, 0, items[70]));
  ASSERT_NE(edit, nullptr);
  EXPECT_FALSE(TakesBars());
  EXPECT_EQ(Edit(), edit);
}

TEST_P(TreeBarsTest, AnEditThatBeginsMeanwhileKeepsTheBarsUntilItEnds) {
  OpenScrolled();
  EXPECT_TRUE(TakesBars([this] { Ask(TVM_EDITLABELW, 0, items[70]); }));
  const HWND edit = Edit();
  ASSERT_NE(edit, nullptr);
  UpdateWindow(control);
  EXPECT_EQ(Edit(), edit);
  SendMessageW(edit, WM_KEYDOWN, VK_ESCAPE, 1);
  InvalidateRect(control, nullptr, TRUE);
  UpdateWindow(control);
  EXPECT_EQ(Edit(), nullptr);
  EXPECT_FALSE(HasNoScroll());
}

INSTANTIATE_TEST_SUITE_P(Tree, TreeBarsTest, ::testing::Values(0));

INSTANTIATE_TEST_SUITE_P(BothViews, RedrawTest, ::testing::Values(0, QVLS_LISTVIEW),
                         [](const auto& tested) { return tested.param ? "List" : "Tree"; });

}  // namespace
