// trace first last steps file: plays random but repeatable stories, one for each seed, of two trees
// and two lists in one window. Every act, what it gives, what the clients hear and what the items
// are afterwards goes into the file as text, so that two platforms can be compared line for line.
#include "random/acts.h"

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

// The gestures come more often than the operations.
constexpr int ONE_GESTURE_IN = 3;
constexpr const char* GESTURES[] = {"press", "press", "key", "key", "context request", "HitTest"};

// What a host may do in the middle of a call.
constexpr const char* REACTIONS[] = {"SetItemSelected", "ClearSelection", "SetItemChecked",
                                     "ExpandItem",      "InsertItem",     "InvertSelection",
                                     "SetMultiSelect",  "CheckAll"};

class Narrator final : public Player {
 public:
  Narrator(HWND hostWindow, std::string viewName, bool asList, Choices choices,
           std::ostream& target)
      : Player(hostWindow, asList, std::move(choices)), name(std::move(viewName)), out(target) {}

  void Step() {
    if (!Control() && OneIn(4)) {
      out << name << " is created\n";
      Create();
    } else {
      Run(AnyAct());
    }
    PumpStory();
  }

  void WriteStateIfChanged() {
    const std::string state = State();
    if (state == std::exchange(lastState, state)) return;
    out << "  " << name << " =" << state << '\n';
  }

 private:
  // A gesture needs a control.
  const Act& AnyAct() const {
    if (Control() && OneIn(ONE_GESTURE_IN)) {
      return FindAct(GESTURES[Below(std::size(GESTURES))]);
    }
    const auto count = static_cast<int>(Acts().size());
    return Acts()[static_cast<std::size_t>(Below(count))];
  }

  void Run(const Act& act) {
    out << name << " does " << act.name << '\n';
    const std::string result = act.run(*this);
    out << "  gives " << result << '\n';
  }

  bool Heard(const std::string& call) override {
    out << "    " << name << " hears " << call << '\n';
    const bool answer = OneIn(2);
    if (!undisturbed && depth < 2 && OneIn(12)) React();
    return answer;
  }

  void React() {
    ++depth;
    Run(FindAct(REACTIONS[Below(std::size(REACTIONS))]));
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

void Tell(HWND host, int seed, int steps, std::ostream& out) {
  out << "seed " << seed << '\n';
  std::mt19937 dice(static_cast<std::uint32_t>(seed));
  const Choices choices = [&](int limit) {
    return static_cast<int>(dice() % static_cast<std::uint32_t>(limit));
  };
  std::vector<std::unique_ptr<Narrator>> views;
  for (const char* name : {"A", "B", "C", "D"}) {
    views.push_back(std::make_unique<Narrator>(host, name, views.size() >= 2, choices, out));
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
    std::fputs("usage: trace first-seed last-seed steps file\n", stderr);
    return 2;
  }
  INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_TREEVIEW_CLASSES | ICC_LISTVIEW_CLASSES};
  if (!InitCommonControlsEx(&controls) || FAILED(OleInitialize(nullptr))) return 2;
  std::ofstream out(argv[4], std::ios::binary);
  const HWND host = MakeStoryWindow();
  for (int seed = std::atoi(argv[1]); seed <= std::atoi(argv[2]); ++seed) {
    Tell(host, seed, std::atoi(argv[3]), out);
  }
  DestroyWindow(host);
  OleUninitialize();
  return out.flush() ? 0 : 1;
}
