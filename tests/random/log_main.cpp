// random_log first last steps file: runs one random scenario for each seed, with two trees and two
// lists in one window. Writes operations, results, callbacks and items to the file as text, so that
// the logs of two platforms can be compared line for line.
#include "random/operations.h"

#include <windows.h>

#include <commctrl.h>
#include <ole2.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <random>
#include <utility>

namespace {

constexpr int kOneGestureIn = 3;
constexpr const char* kGestures[] = {"press", "press", "key", "key", "context request", "HitTest"};

// Operations inside callbacks.
constexpr const char* kReactions[] = {"SetItemSelected", "ClearSelection", "SetItemChecked",
                                      "ExpandItem",      "InsertItem",     "InvertSelection",
                                      "SetMultiSelect",  "CheckAll"};

class LoggingHost final : public RandomHost {
 public:
  LoggingHost(HWND hostWindow, std::string viewName, bool asList, Choices choices,
              std::ostream& target)
      : RandomHost(hostWindow, asList, std::move(choices)),
        name(std::move(viewName)),
        out(target) {}

  void Step() {
    if (!Control() && OneIn(4)) {
      out << name << " is created\n";
      Create();
    } else {
      Run(AnyOperation());
    }
    HandleMessages();
  }

  void WriteStateIfChanged() {
    const std::string state = State();
    if (state == std::exchange(lastState, state)) return;
    out << "  " << name << " =" << state << '\n';
  }

 private:
  // Gestures need a control.
  const Operation& AnyOperation() const {
    if (Control() && OneIn(kOneGestureIn)) {
      return FindOperation(kGestures[Below(std::size(kGestures))]);
    }
    const auto count = static_cast<int>(Operations().size());
    return Operations()[static_cast<std::size_t>(Below(count))];
  }

  void Run(const Operation& operation) {
    out << name << " runs " << operation.name << '\n';
    const std::string result = operation.run(*this);
    out << "  returns " << result << '\n';
  }

  bool OnCallback(const std::string& call) override {
    out << "    " << name << " gets " << call << '\n';
    const bool answer = OneIn(2);
    if (!undisturbed && depth < 2 && OneIn(12)) React();
    return answer;
  }

  void React() {
    ++depth;
    Run(FindOperation(kReactions[Below(std::size(kReactions))]));
    --depth;
  }

  std::string State() const {
    if (!Control()) return " no control";
    std::string state;
    for (const ItemHandle item : Items()) {
      state += " " + Name(item);
      if (view->IsItemSelected(item)) state += "*";
      if (view->IsItemExpanded(item)) state += "-";
      if (!view->IsItemChecked(item)) state += "o";
    }
    if (IsList()) return state;
    return state + " caret " + Name(SendMessageW(Control(), TVM_GETNEXTITEM, TVGN_CARET, 0));
  }

  const std::string name;
  std::ostream& out;
  int depth = 0;  // of reactions
  std::string lastState;
};

void LogScenario(HWND host, int seed, int steps, std::ostream& out) {
  out << "seed " << seed << '\n';
  std::mt19937 engine(static_cast<std::uint32_t>(seed));
  const Choices choices = [&](int limit) {
    return static_cast<int>(engine() % static_cast<std::uint32_t>(limit));
  };
  std::vector<std::unique_ptr<LoggingHost>> views;
  for (const char* name : {"A", "B", "C", "D"}) {
    views.push_back(std::make_unique<LoggingHost>(host, name, views.size() >= 2, choices, out));
    views.back()->Create();
  }
  for (int step = 0; step < steps; ++step) {
    out << step << ": ";
    views[static_cast<std::size_t>(choices(4))]->Step();
    for (const auto& view : views) view->WriteStateIfChanged();
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 5) {
    std::fputs("usage: random_log first-seed last-seed steps file\n", stderr);
    return 2;
  }
  INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_TREEVIEW_CLASSES | ICC_LISTVIEW_CLASSES};
  if (!InitCommonControlsEx(&controls) || FAILED(OleInitialize(nullptr))) return 2;
  std::ofstream out(argv[4], std::ios::binary);
  const HWND host = MakeHostWindow();
  for (int seed = std::atoi(argv[1]); seed <= std::atoi(argv[2]); ++seed) {
    LogScenario(host, seed, std::atoi(argv[3]), out);
  }
  DestroyWindow(host);
  OleUninitialize();
  return out.flush() ? 0 : 1;
}
