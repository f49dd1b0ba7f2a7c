// Operations with many changes draw once, at the end: when drawing is suspended and resumed.
#include <functional>
#include <string>

#include "support/each_view.h"
#include "support/replaced_call.h"
#include "support/sent_messages.h"

namespace {

using Step = std::function<void()>;

constexpr std::size_t kUnchanged = 12;

// The library's requests to a control that draws once.
const std::string kOneDrawing = "off on ";

// Prepared so that all items change but for the first or the last ones.
struct Operation {
  const char* name;
  std::size_t unchanged;
  Step prepare;
  Step run;
};

// What the host does before a SelectAll or in one of its reports, the library's requests during the
// SelectAll, and those during the next operation.
struct HostStep {
  const char* name;
  Step run;
  int report;  // 0 is before
  std::string requests;
  std::string next;
};

class Redraw : public EachView {
 protected:
  void OpenWith(std::size_t count) {
    Open(QVLS_CHECKBOXES | QVLS_SHOWSELALWAYS);
    if (IsList()) SetWindowLongPtrW(control, GWLP_USERDATA, 42);  // the host's own
    SetFocus(control);
    items.clear();
    while (items.size() < count) items.push_back(Insert(TEXT("i")));
    Settle();
  }

  void Settle() {
    PumpMessages();
    sent.Forget();
    ValidateRect(control, nullptr);
  }

  std::string Requests() const {
    std::string requests;
    for (const SentMessage& each : sent.Of(WM_SETREDRAW)) requests += each.wParam ? "on " : "off ";
    return requests;
  }

  bool WaitsToBeDrawn() {
    RECT waiting = {};
    GetUpdateRect(control, &waiting, FALSE);
    const RECT area = ClientRect();
    return waiting.right == area.right && waiting.bottom == area.bottom && area.right > 0;
  }

  // Calls `reaction` in the report of that number, from 1.
  void InReport(int number, const Step& reaction) {
    reports = 0;
    client.onItemSelectionChanged = [=, this](ItemHandle) {
      if (++reports == number) reaction();
    };
  }

  // Without drawing.
  void ShiftPress(ItemHandle item) {
    const POINT point = LabelPoint(item);
    PostMessageW(control, WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
    Ask(WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, MAKELPARAM(point.x, point.y));
  }

  std::vector<Operation> Operations() {
    using V = IQVLTreeView;
    const auto set = [this](auto setter, bool first) -> Step {
      return [=, this] {
        for (std::size_t i = 0; i < items.size(); ++i) {
          (view->*setter)(items[i], (i < kUnchanged) == first);
        }
      };
    };
    const auto run = [this](void (V::*operation)()) -> Step {
      return [=, this] { (view->*operation)(); };
    };
    const auto caretTo = [this](bool last) -> Step {
      return [=, this] { Ask(TVM_SELECTITEM, TVGN_CARET, last ? items.back() : items.front()); };
    };
    const Step press = [this] { ShiftPress(items.back()); };
    std::vector<Operation> operations = {
        {"SelectAll", kUnchanged, set(&V::SetItemSelected, true), run(&V::SelectAll)},
        {"ClearSelection", kUnchanged, set(&V::SetItemSelected, false), run(&V::ClearSelection)},
        {"InvertSelection", 0, [] {}, run(&V::InvertSelection)},
        {"CheckAll", kUnchanged, set(&V::SetItemChecked, true), run(&V::CheckAll)},
        {"UncheckAll", kUnchanged, set(&V::SetItemChecked, false), run(&V::UncheckAll)},
        {"ExpandAll", 0, [] {}, run(&V::ExpandAll)},
        {"CollapseAll", 0, run(&V::ExpandAll), run(&V::CollapseAll)},
        {"Shift press that selects", 0, caretTo(false), press},
        {"Shift press that deselects", 0, caretTo(true), press},
    };
    if (IsList()) operations.resize(5);
    return operations;
  }

  std::vector<HostStep> HostSteps() {
    const Step suspend = [this] { Ask(WM_SETREDRAW, FALSE); };
    const Step resume = [this] { Ask(WM_SETREDRAW, FALSE), Ask(WM_SETREDRAW, TRUE); };
    const Step hide = [this] { view->Hide(); };
    const Step hideHost = [this] { ShowWindow(host, SW_HIDE); };
    const Step check = [this] { view->CheckAll(); };
    const Step checkAndClear = [this] { view->CheckAll(), view->ClearSelection(); };
    return {
        {"suspended before", suspend, 0, "", ""},
        {"suspended early", suspend, 3, "", ""},
        {"suspended late", suspend, 12, "off ", ""},
        {"resumed", resume, 12, kOneDrawing, kOneDrawing},
        {"hidden before", hide, 0, "", ""},
        {"hidden with its host", hideHost, 0, "", ""},
        {"hidden late", hide, 12, kOneDrawing, ""},
        {"operation before the pause", check, 3, kOneDrawing + kOneDrawing, kOneDrawing},
        {"operations in the pause", checkAndClear, 12, kOneDrawing, kOneDrawing},
    };
  }

  ItemHandleList items;
  SentMessages sent;
  int reports = 0;
};

INSTANTIATE_TEST_SUITE_P(Views, Redraw, kEachView, ViewName);

TEST_P(Redraw, MoreThanEightChangesAreDrawnOnceAtTheEnd) {
  for (const Operation& operation : Operations()) {
    for (const std::size_t changes : {8, 9}) {
      SCOPED_TRACE(operation.name + std::to_string(changes));
      OpenWith(changes + operation.unchanged);
      operation.prepare();
      Settle();
      operation.run();
      EXPECT_EQ(Requests(), changes > 8 ? kOneDrawing : "");
      EXPECT_TRUE(changes <= 8 || WaitsToBeDrawn());
      EXPECT_TRUE(IsWindowVisible(control));
    }
  }
}

TEST_P(Redraw, HostsSuspensionStaysInForceOnTestRuntime) {
  for (const HostStep& step : HostSteps()) {
    SCOPED_TRACE(step.name);
    OpenWith(20);
    if (step.report == 0) step.run();
    Settle();
    InReport(step.report, step.run);
    view->SelectAll();
    EXPECT_EQ(Requests(), step.requests);
    client.onItemSelectionChanged = nullptr;
    Settle();
    view->InvertSelection();
    EXPECT_EQ(Requests(), step.next);
    // The real tree invalidates the items that change even while its drawing is suspended.
    EXPECT_TRUE(!step.next.empty() || (kRealControl && !IsList()) || !WaitsToBeDrawn());

    Ask(WM_SETREDRAW, TRUE);
    view->Show();
    ShowWindow(host, SW_SHOWNOACTIVATE);
    EXPECT_TRUE(IsWindowVisible(control));
    Settle();
    view->InvertSelection();
    EXPECT_EQ(Requests(), kOneDrawing);
    EXPECT_TRUE(!IsList() || GetWindowLongPtrW(control, GWLP_USERDATA) == 42);
  }
}

// Some controls leave WM_SETREDRAW to default handling, which hides the window and shows it again.
TEST_P(Redraw, ViewThatIsHiddenMeanwhileStaysHidden) {
  for (const bool hides : {false, true}) {
    OpenWith(20);
    InReport(12, [&] {
      if (hides) view->Hide();
    });
    UINT redrawn = 0;
    const auto send = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
      if (message == WM_SETREDRAW) ShowWindow(window, wParam ? SW_SHOWNOACTIVATE : SW_HIDE);
      return SendMessageW(window, message, wParam, lParam);
    };
    const auto redraw = [&](HWND window, const RECT* rect, HRGN region, UINT flags) {
      redrawn = rect || region ? 0 : flags;
      return RedrawWindow(window, rect, region, flags);
    };
    const Replaced hide("SendMessageW", &SendMessageW, send);
    const Replaced note("RedrawWindow", &RedrawWindow, redraw);
    view->SelectAll();
    EXPECT_EQ(IsWindowVisible(control) == 0, hides);
    EXPECT_EQ(redrawn, UINT{RDW_ERASE | RDW_FRAME | RDW_INVALIDATE | RDW_ALLCHILDREN});
  }
}

// The runtime's tree computes its scroll bars at each change, unless it has none.
class TreeBars : public Redraw {
 protected:
  // With more items than fit, and scrolled down.
  void OpenScrolled() {
    Open(QVLS_EDITLABELS | QVLS_SHOWSELALWAYS);
    items.clear();
    while (items.size() < 100) items.push_back(Insert(TEXT("i")));
    view->EnsureVisible(items[70]);
    UpdateWindow(control);
  }

  LONG_PTR Style() const { return GetWindowLongPtrW(control, GWL_STYLE); }
  HWND Edit() const { return reinterpret_cast<HWND>(Ask(TVM_GETEDITCONTROL)); }
  HWND BeginEdit() const { return reinterpret_cast<HWND>(Ask(TVM_EDITLABELW, 0, items[70])); }

  // Whether an operation over all items has taken the bars by its tenth report.
  bool TakesBars(const Step& reaction = [] {}) {
    bool taken = false;
    InReport(10, [&] {
      taken = (Style() & TVS_NOSCROLL) != 0;
      reaction();
    });
    view->InvertSelection();
    return taken;
  }
};

INSTANTIATE_TEST_SUITE_P(Tree, TreeBars, ::testing::Values(0));

TEST_P(TreeBars, BarsAndScrollPositionComeBackOnTestRuntime) {
  OpenScrolled();
  const LONG_PTR style = Style();
  EXPECT_TRUE(style & WS_VSCROLL);
  const LRESULT top = Ask(TVM_GETNEXTITEM, TVGN_FIRSTVISIBLE);
  int x = 0, y = 0, newX = 0, newY = 0;
  view->GetScrollPosition(&x, &y);
  EXPECT_GT(y, 0);
  EXPECT_TRUE(TakesBars());
  view->GetScrollPosition(&newX, &newY);
  EXPECT_EQ(Style(), style);
  EXPECT_EQ(Ask(TVM_GETNEXTITEM, TVGN_FIRSTVISIBLE), top);
  EXPECT_TRUE(x == newX && y == newY);
  Ask(WM_SETREDRAW, FALSE);
  EXPECT_TRUE(TakesBars()) << "also while the host suspends drawing";
}

TEST_P(TreeBars, HostsStyleAndLabelEditStayOnTestRuntime) {
  OpenWith(10);
  EXPECT_FALSE(TakesBars()) << "a tree without bars";
  OpenScrolled();
  SetWindowLongPtrW(control, GWL_STYLE, Style() | TVS_NOSCROLL);
  EXPECT_TRUE(TakesBars());
  EXPECT_TRUE(Style() & TVS_NOSCROLL);

  OpenScrolled();
  HWND edit = BeginEdit();
  ASSERT_NE(edit, nullptr);
  EXPECT_FALSE(TakesBars());
  EXPECT_EQ(Edit(), edit);

  // An edit that begins while the bars are away keeps them away until it ends.
  OpenScrolled();
  EXPECT_TRUE(TakesBars([&] { edit = BeginEdit(); }));
  ASSERT_NE(edit, nullptr);
  UpdateWindow(control);
  EXPECT_EQ(Edit(), edit);
  SendMessageW(edit, WM_KEYDOWN, VK_ESCAPE, 1);
  InvalidateRect(control, nullptr, TRUE);
  UpdateWindow(control);
  EXPECT_EQ(Edit(), nullptr);
  EXPECT_FALSE(Style() & TVS_NOSCROLL);
}

}  // namespace
