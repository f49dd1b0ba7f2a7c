// A client may do anything to the view in every callback, and while a drag or a menu runs. The
// sanitizers of the linux build find what an ended view still touches.
#include <windows.h>

#include <commctrl.h>

#include <cstdio>
#include <iterator>
#include <optional>
#include <utility>

#include "random/interruptions.h"
#include "support/fake_drag.h"
#include "support/fake_shell.h"
#include "support/host_window.h"

namespace {

enum class Effect { kChanges, kDeletes, kSilences, kEnds };

// An operation that a client runs inside a callback.
struct Reaction {
  const char* operation;
  Effect effect;
};

constexpr Reaction kReactions[] = {{"no client", Effect::kSilences},
                                   {"DeleteItem", Effect::kDeletes},
                                   {"DeleteAllItems", Effect::kDeletes},
                                   {"CollapseAll", Effect::kChanges},
                                   {"InvertSelection", Effect::kChanges},
                                   {"key", Effect::kChanges},
                                   {"Destroy", Effect::kEnds},
                                   {"release", Effect::kEnds},
                                   {"Create", Effect::kEnds},
                                   {"Create of the other kind", Effect::kEnds}};

// The real control takes much longer.
constexpr int kMostWays = REAL_CONTROL ? 2 : 8;
constexpr int kFullPoints = REAL_CONTROL ? 2 : 5;

// The item that a message to a tree names, or null.
HTREEITEM NamedItem(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == TVM_GETITEMSTATE) return reinterpret_cast<HTREEITEM>(wParam);
  if (message == TVM_SETITEMW) return reinterpret_cast<TVITEMW*>(lParam)->hItem;
  const bool named = message == TVM_GETNEXTITEM || message == TVM_SELECTITEM;
  return named ? reinterpret_cast<HTREEITEM>(lParam) : nullptr;
}

// The platform's own control does not survive the loss of what it is busy with.
struct Busy {
  static inline int depth = 0;
  Busy() { ++depth; }
  ~Busy() { --depth; }
};

bool viewEnded = false;

// Once its view has ended, an operation sends no message, and it never names a deleted item. The
// platform's control cannot be asked whether an item is deleted: it reads what the handle points
// to.
LRESULT WINAPI CheckingSend(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  EXPECT_FALSE(viewEnded) << "message " << message << " is sent";
  TVITEMW item = {};
  item.mask = TVIF_PARAM;
  item.hItem = NamedItem(message, wParam, lParam);
  if (item.hItem && !REAL_CONTROL) {
    EXPECT_NE(SendMessageW(window, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)), 0)
        << "message " << message << " names a deleted item";
  }
  const Busy busy;
  return SendMessageW(window, message, wParam, lParam);
}

LRESULT WINAPI BusyCall(WNDPROC procedure, HWND window, UINT message, WPARAM wParam,
                        LPARAM lParam) {
  const Busy busy;
  return CallWindowProcW(procedure, window, message, wParam, lParam);
}

BOOL WINAPI BusyDestroy(HWND window) {
  const Busy busy;
  return DestroyWindow(window);
}

class ReactingScene final : public Scene {
 public:
  using Scene::Scene;

  // A point of the operation: the reaction comes here or not.
  void Point() {
    EXPECT_FALSE(viewEnded);
    if (!Interruption::IsHere() || !reaction || !view) return;
    const bool takesAway =
        reaction->effect == Effect::kDeletes || reaction->effect == Effect::kEnds;
    if (REAL_CONTROL && takesAway && (Busy::depth > 0 || listMessages > 0)) return;
    done = true;
    FindOperation(reaction->operation).run(*this);
    stateAfterReaction = State();
    viewEnded = reaction->effect == Effect::kEnds;
    silent = reaction->effect == Effect::kSilences;
  }

  const Reaction* reaction = nullptr;
  bool done = false;
  bool silent = false;
  std::string stateAfterReaction;

 private:
  bool Called(const std::string& callback) override {
    EXPECT_FALSE(silent) << callback;
    Point();
    return Scene::Called(callback);
  }
};

struct Outcome {
  std::string result;
  std::string state;
  bool operator==(const Outcome&) const = default;
};

class ReactionTest : public ::testing::Test {
 protected:
  ReactionTest() {
    drag.onDrag = [this](IDataObject* data, IDropSource* source) {
      scene->Point();
      EXPECT_EQ(source->QueryContinueDrag(TRUE, 0), DRAGDROP_S_CANCEL);
      // The data outlives the view.
      FORMATETC format = {CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
      STGMEDIUM medium = {};
      EXPECT_EQ(data->GetData(&format, &medium), S_OK);
      GlobalFree(medium.hGlobal);
      return DRAGDROP_S_DROP;
    };
    shell.onTrack = [this] {
      scene->Point();
      return 0;
    };
  }
  ~ReactionTest() override { DestroyWindow(host); }

  Outcome RunWith(const Reaction* reaction, int point, const Operation& operation, bool asList,
                  unsigned seed, const Outcome* undisturbed) {
    scene.emplace(host, asList, seed);
    scene->reaction = reaction;
    scene->openBrackets = 0;
    Interruption::Arm(point);
    const std::string result = operation.run(*scene);
    HandleQueuedMessages();
    points = Interruption::points;
    const bool ended = std::exchange(viewEnded, false);
    const Outcome outcome = {result, scene->State()};
    if (ended) {
      EXPECT_EQ(outcome, (Outcome{operation.failure, scene->stateAfterReaction}));
    } else if (undisturbed && (scene->silent || !scene->done)) {
      EXPECT_EQ(outcome, *undisturbed);
    }
    EXPECT_TRUE(ended || scene->silent || scene->openBrackets == 0);
    const HWND child = GetWindow(host, GW_CHILD);
    EXPECT_EQ(child != nullptr, scene->Control() != nullptr);
    EXPECT_TRUE(!child || !GetWindow(child, GW_HWNDNEXT)) << "the old view is left";
    scene->reaction = nullptr;
    scene->silent = false;
    scene->ExpectUsable();
    EXPECT_TRUE(scene->view->ShowContextMenu(5, 5));
    EXPECT_TRUE(shell.HoldsNothing());
    return outcome;
  }

  HWND host = MakeHostWindow();
  FakeDrag drag;
  FakeShell shell;
  ImportPatch send{"SendMessageW", &CheckingSend};
  ImportPatch call{"CallWindowProcW", &BusyCall};
  ImportPatch destroy{"DestroyWindow", &BusyDestroy};
  std::optional<ReactingScene> scene;
  int points = 0;  // of the last run
};

TEST_F(ReactionTest, EveryReactionIsSafeInEveryCallback) {
  int reactions = 0;
  ForEachOperation(
      REAL_CONTROL ? 2 : 8, [&](const Operation& operation, bool asList, unsigned seed) {
        const Outcome undisturbed = RunWith(nullptr, 0, operation, asList, seed, nullptr);
        const int last = std::min(points, kMostPoints);
        for (const Reaction& reaction : kReactions) {
          const auto number = static_cast<int>(&reaction - kReactions);
          for (int point = 1; point <= last; ++point) {
            // The later callbacks of a walk get one reaction each.
            if (point > kFullPoints && point % static_cast<int>(std::size(kReactions)) != number)
              continue;
            SCOPED_TRACE(reaction.operation + (" in callback " + std::to_string(point)));
            RunWith(&reaction, point, operation, asList, seed, &undisturbed);
            reactions += scene->done;
          }
        }
      });
  std::printf("reactions: %d\n", reactions);
  EXPECT_GT(reactions, 300);
}

}  // namespace
