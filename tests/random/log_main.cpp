// random_log first last steps file: runs a random but repeatable scenario for each seed, with two
// trees and two lists in one window. The log has each operation, its result, the callbacks, and the
// items after each step, so that the logs of two platforms can be compared line for line.
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

constexpr const char* kGestures[] = {"press", "press", "key", "key", "context request", "HitTest"};

// What a client does in a callback.
constexpr const char* kReactions[] = {"SetItemSelected", "ClearSelection", "SetItemChecked",
                                      "ExpandItem",      "InsertItem",     "InvertSelection",
                                      "SetMultiSelect",  "CheckAll"};

class LoggingHost final : public RandomHost {
 public:
  LoggingHost(HWND window, std::string viewName, bool asList, Choices choices, std::ostream& log)
      : RandomHost(window, asList, std::move(choices)), name(std::move(viewName)), out(log) {
    Create();
  }

  void Step() {
    const auto count = static_cast<int>(Operations().size());
    if (!view || (!Control() && OneIn(4))) {
      out << name << ": first Create\n";
      Create();
    } else if (Control() && OneIn(3)) {
      Run(FindOperation(kGestures[Below(std::size(kGestures))]));
    } else {
      Run(Operations()[static_cast<std::size_t>(Below(count))]);
    }
    HandleQueuedMessages();
  }

  void WriteStateIfChanged() {
    const std::string state = State();
    if (state == std::exchange(lastState, state)) return;
    out << "  " << name << " =" << state << '\n';
  }

 private:
  void Run(const Operation& operation) {
    out << name << ": " << operation.name << '\n';
    const std::string result = operation.run(*this);
    out << "  result " << result << '\n';
  }

  // A list that extends a range or begins a drag is left alone.
  bool Called(const std::string& callback) override {
    out << "    " << name << " calls " << callback << '\n';
    const bool answer = OneIn(2);
    if (listMessages == 0 && depth < 2 && OneIn(12)) {
      ++depth;
      Run(FindOperation(kReactions[Below(std::size(kReactions))]));
      --depth;
    }
    return answer;
  }

  const std::string name;
  std::ostream& out;
  int depth = 0;  // of reactions
  std::string lastState;
};

void RunScenario(HWND window, int seed, int steps, std::ostream& out) {
  out << "seed " << seed << '\n';
  std::mt19937 engine(static_cast<std::uint32_t>(seed));
  const Choices choices = [&](int limit) {
    return static_cast<int>(engine() % static_cast<std::uint32_t>(limit));
  };
  std::vector<std::unique_ptr<LoggingHost>> hosts;
  for (const char* name : {"A", "B", "C", "D"}) {
    hosts.push_back(std::make_unique<LoggingHost>(window, name, hosts.size() >= 2, choices, out));
  }
  for (int step = 0; step < steps; ++step) {
    out << step << ' ';
    hosts[static_cast<std::size_t>(choices(4))]->Step();
    for (const auto& each : hosts) each->WriteStateIfChanged();
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
  const HWND window = MakeHostWindow();
  for (int seed = std::atoi(argv[1]); seed <= std::atoi(argv[2]); ++seed) {
    RunScenario(window, seed, std::atoi(argv[3]), out);
  }
  DestroyWindow(window);
  OleUninitialize();
  return out.flush() ? 0 : 1;
}
