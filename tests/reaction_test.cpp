// A client may do anything to the view in every callback, and while a drag or a menu runs. The
// sanitizers of the linux build find what an ended view still touches.
#include <windows.h>

#include <commctrl.h>

#include <cstdio>
#include <iterator>
#include <optional>

#include "random/interruptions.h"
#include "support/fake_drag.h"
#include "support/fake_shell.h"
#include "support/host_window.h"

namespace {

enum class Effect { kChanges, kDeletes, kSilences, kEnds };

// What a client does to the view inside a callback.
struct Reaction {
  const char* name;
  Effect effect;
  std::string (*run)(RandomHost& host);
};

template <auto Function>
std::string Do(RandomHost& host) {
  (host.view->*Function)();
  return {};
}

std::string RunOperation(RandomHost& host, const char* name) {
  return FindOperation(name).run(host);
}

constexpr Reaction kReactions[] = {
    {"SetClient", Effect::kSilences,
     [](RandomHost& host) { return host.view->SetClient(nullptr), std::string(); }},
    {"DeleteItem", Effect::kDeletes,
     [](RandomHost& host) { return RunOperation(host, "DeleteItem"); }},
    {"DeleteAllItems", Effect::kDeletes, &Do<&IQVLTreeView::DeleteAllItems>},
    {"CollapseAll", Effect::kChanges, &Do<&IQVLTreeView::CollapseAll>},
    {"InvertSelection", Effect::kChanges, &Do<&IQVLTreeView::InvertSelection>},
    {"key", Effect::kChanges, [](RandomHost& host) { return RunOperation(host, "key"); }},
    {"Destroy", Effect::kEnds, &Do<&IQVLTreeView::Destroy>},
    {"release", Effect::kEnds, [](RandomHost& host) { return host.Release(), std::string(); }},
    {"Create", Effect::kEnds, [](RandomHost& host) { return RunOperation(host, "Create"); }},
    {"Create of the other kind", Effect::kEnds,
     [](RandomHost& host) { return RunOperation(host, "Create of the other kind"); }},
};

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
// platform's control cannot be asked whether an item is deleted: it reads what the handle points to.
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
    reaction->run(*this);
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
    viewEnded = false;
    std::string result;
    {
      const ImportPatch send("SendMessageW", &CheckingSend);
      const ImportPatch call("CallWindowProcW", &BusyCall);
      const ImportPatch destroy("DestroyWindow", &BusyDestroy);
      scene->openBrackets = 0;
      Interruption::Arm(point);
      result = operation.run(*scene);
      HandleQueuedMessages();
    }
    const Outcome outcome = {result, scene->State()};
    if (viewEnded) {
      EXPECT_EQ(outcome, (Outcome{operation.failure, scene->stateAfterReaction}));
    } else if (undisturbed && (scene->silent || !scene->done)) {
      EXPECT_EQ(outcome, *undisturbed);
    }
    EXPECT_TRUE(viewEnded || scene->silent || scene->openBrackets == 0);
    const HWND child = GetWindow(host, GW_CHILD);
    EXPECT_EQ(child != nullptr, scene->Control() != nullptr);
    EXPECT_TRUE(!child || !GetWindow(child, GW_HWNDNEXT)) << "the old view is left";
    scene->reaction = nullptr;
    viewEnded = scene->silent = false;
    scene->ExpectUsable();
    EXPECT_TRUE(scene->view->ShowContextMenu(5, 5));
    EXPECT_TRUE(shell.HoldsNothing());
    return outcome;
  }

  HWND host = MakeHostWindow();
  FakeDrag drag;
  FakeShell shell;
  std::optional<ReactingScene> scene;
};

TEST_F(ReactionTest, EveryReactionIsSafeInEveryCallback) {
  int reactions = 0;
  ForEachOperation(REAL_CONTROL ? 3 : 8, [&](const Operation& operation, bool asList,
                                              unsigned seed) {
    const Outcome undisturbed = RunWith(nullptr, 0, operation, asList, seed, nullptr);
    const int points = std::min(Interruption::points, kMostPoints);
    for (const Reaction& reaction : kReactions) {
      const auto number = static_cast<int>(&reaction - kReactions);
      for (int point = 1; point <= points; ++point) {
        // The later callbacks of a walk get one reaction each.
        if (point > 5 && point % static_cast<int>(std::size(kReactions)) != number) continue;
        SCOPED_TRACE(reaction.name + (" in callback " + std::to_string(point)));
        RunWith(&reaction, point, operation, asList, seed, &undisturbed);
        reactions += scene->done;
      }
    }
  });
  std::printf("reactions: %d\n", reactions);
  EXPECT_GT(reactions, 1000);
}

}  // namespace
