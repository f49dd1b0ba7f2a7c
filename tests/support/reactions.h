// Reactions of a host inside the callbacks of a view and while a drag or a menu runs.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <type_traits>
#include <vector>

#include "support/fake_drag.h"
#include "support/fake_shell.h"
#include "support/tree_gestures.h"

// When the control is handling a message. The real control does not survive the loss of the item or
// the window that it is using.
enum class Busy { kNever, kInReports, kInEveryCallback };

// An operation or gesture that makes callbacks.
struct Flow {
  const char* name;
  Busy busy;
  std::function<void()> run;
};

enum class Outcome { kChanged, kSilent, kReplaced, kReleased };

// What the host does inside a callback.
struct Reaction {
  const char* name;
  Outcome outcome;  // of the view afterwards
  bool deletes;     // deletes the control or an item
  std::function<void(ItemHandle)> run;
};

// The item of a message to a tree, or null.
inline HTREEITEM NamedItem(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == TVM_GETITEMSTATE) return reinterpret_cast<HTREEITEM>(wParam);
  if (message == TVM_SETITEMW) return reinterpret_cast<TVITEMW*>(lParam)->hItem;
  const bool named = message == TVM_GETNEXTITEM || message == TVM_SELECTITEM;
  return named ? reinterpret_cast<HTREEITEM>(lParam) : nullptr;
}

// Runs every reaction in every callback of a flow. `View` is TreeTest or ListTest.
template <class View>
class ReactionTest : public View {
 protected:
  using View::client, View::control, View::host, View::view;

  // Opens a view in which each flow makes callbacks.
  virtual void OpenView() = 0;

  void RunAll(const std::vector<Flow>& flows) {
    for (const Flow& flow : flows) {
      for (const Reaction& each : reactions) {
        const bool mayNot = kRealControl && each.deletes;
        if (mayNot && flow.busy == Busy::kInEveryCallback) continue;
        reactsToReports = !mayNot || flow.busy == Busy::kNever;
        SCOPED_TRACE(std::string(each.name) + " in " + flow.name);
        reaction = &each;
        int place = 0;
        while (RunWithReaction(place, flow)) ++place;
        EXPECT_GT(place, 0) << "the flow makes no callback";
      }
    }
  }

  // The flows of both views.
  std::vector<Flow> CommonFlows(Busy busy) {
    return {
        {"SelectAll", busy, [this] { view->SelectAll(); }},
        {"SelectAll of many", busy,
         [this] {
           for (int i = 0; i < 30; ++i) this->Insert(TEXT("further"));
           view->SelectAll();
         }},
        {"ClearSelection", busy, [this] { view->ClearSelection(); }},
        {"InvertSelection", busy, [this] { view->InvertSelection(); }},
        {"ShowContextMenu", Busy::kNever,
         [this] { ExpectResult(view->ShowContextMenu(5, 5), true, false); }},
    };
  }

  // Checks the result of the flow's operation.
  template <class Value>
  void ExpectResult(Value result, Value success, std::type_identity_t<Value> failure) const {
    if (ended) {
      EXPECT_EQ(result, failure);
    } else if (!done || reaction->outcome == Outcome::kSilent) {
      EXPECT_EQ(result, success);
    }
  }

  // The items of the reactions; `current` in callbacks without an item.
  ItemHandle current = 0, last = 0;
  const Reaction* reaction = nullptr;
  static inline bool ended = false;  // the view that made the callback

 private:
  // Replaces the library's SendMessageW: no message after the view has ended, and none with a
  // deleted item. Only the stand-in can check an item; the real control reads what the handle
  // points to.
  static LRESULT WINAPI CheckingSend(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    EXPECT_FALSE(ended) << "message " << message << " after the end";
    TVITEMW item = {};
    item.mask = TVIF_PARAM;
    item.hItem = NamedItem(message, wParam, lParam);
    if (item.hItem && !kRealControl) {
      EXPECT_NE(SendMessageW(window, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)), 0)
          << "message " << message << " names a deleted item";
    }
    return SendMessageW(window, message, wParam, lParam);
  }

  // Runs the reaction in callback number `place`, from 0. False if the flow makes fewer callbacks.
  bool RunWithReaction(int place, const Flow& flow) {
    this->ReleaseView();
    view = GetIQVLTreeView();
    client = RecordingClient();
    client.view = view;
    OpenView();
    done = ended = false;
    callbacksBefore = place;
    OverrideCallbacks();
    {
      const ImportPatch patch("SendMessageW", &CheckingSend);
      flow.run();
      PumpMessages();
    }
    callbacksBefore = -1;
    ExpectStateAfterReaction();
    ended = false;
    if (view) ExpectUsable();
    EXPECT_TRUE(shell.HoldsNothing());
    return done;
  }

  void Called(ItemHandle item) {
    if (callbacksBefore-- != 0) return;
    done = true;
    reaction->run(item > 0 ? item : current);
    ended = reaction->outcome == Outcome::kReplaced || reaction->outcome == Outcome::kReleased;
    client.Take();
  }

  void OverrideCallbacks() {
    const auto aboutItem = [this](ItemHandle item, auto&&...) {
      Called(item);
      return true;
    };
    const auto call = [=](auto&&...) { return aboutItem(0); };
    const auto nameFiles = [=](ItemHandleList*, FileNameList* files) {
      files->push_back(TEXT("C:\\a\\x"));
      return aboutItem(0);
    };
    client.onBeginSelectionChange = client.onEndSelectionChange = call;
    client.onContextMenu = [=](int, int, ItemHandle item, std::uint32_t) { aboutItem(item); };
    client.onGetInfoTip = aboutItem;
    client.onCreateColumns = call;
    client.onColumnClick = call;
    client.onBeginDrag = client.onShellContextMenu = nameFiles;
    ReplaceSystemLoops();
    if (!reactsToReports) return;
    client.onItemSelectionChanged = client.onItemExpanded = aboutItem;
    // The edit begins, and its text is accepted.
    client.onLabelEdit = [=](NMHDR*, std::uint32_t code) {
      return aboutItem(0) && (code == TVN_ENDLABELEDITW || code == LVN_ENDLABELEDITW);
    };
  }

  // The host can react while a drag or a menu runs. Neither starts after the view has ended. The
  // dragged data outlives the view.
  void ReplaceSystemLoops() {
    drag.onDrag = [this](IDataObject* data, IDropSource* source) {
      EXPECT_FALSE(ended);
      Called(0);
      EXPECT_EQ(source->QueryContinueDrag(TRUE, 0), DRAGDROP_S_CANCEL);
      FORMATETC format = {CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
      STGMEDIUM medium = {};
      EXPECT_EQ(data->GetData(&format, &medium), S_OK);
      GlobalFree(medium.hGlobal);
      return DRAGDROP_S_DROP;
    };
    shell.onTrack = [this] {
      EXPECT_FALSE(ended);
      Called(0);
      return 0;
    };
  }

  // No callbacks after the end, otherwise closed brackets; a new view is as it was created.
  void ExpectStateAfterReaction() {
    if (done && reaction->outcome != Outcome::kChanged) {
      EXPECT_EQ(client.Take(), Lines());
    } else {
      EXPECT_EQ(client.depth, 0);
    }
    const bool there = view && view->GetControlWindow();
    EXPECT_EQ(GetWindow(host, GW_CHILD) != nullptr, there);
    if (!ended || !there) return;
    EXPECT_EQ(GetWindow(GetWindow(host, GW_CHILD), GW_HWNDNEXT), nullptr) << "the old view";
    ItemHandleList items;
    EXPECT_EQ(view->GetItems(&items, true), 3);
    EXPECT_EQ(view->GetSelectedCount() + view->GetCheckedCount(), 0);
  }

  // The view, or a new one, works and makes callbacks.
  void ExpectUsable() {
    view->SetClient(&client);
    if (!view->GetControlWindow()) this->CreateView();
    EXPECT_NE(this->Insert(TEXT("new")), -1);
    client.Take();
    view->SelectAll();
    EXPECT_NE(client.Take(), Lines());
    ItemHandleList items;
    EXPECT_EQ(view->GetItems(&items, true), view->GetSelectedCount());
    EXPECT_TRUE(view->ShowContextMenu(5, 5));
  }

  void CreateAnew(std::uint32_t style) {
    this->CreateView(style);
    for (int i = 0; i < 3; ++i) this->Insert(TEXT("x"));
  }

  const std::vector<Reaction> reactions = {
      {"SetClient", Outcome::kSilent, false, [this](ItemHandle) { view->SetClient(nullptr); }},
      {"DeleteItem", Outcome::kChanged, true, [this](ItemHandle item) { view->DeleteItem(item); }},
      {"delete the last", Outcome::kChanged, true, [this](ItemHandle) { view->DeleteItem(last); }},
      {"DeleteAllItems", Outcome::kChanged, true, [this](ItemHandle) { view->DeleteAllItems(); }},
      {"collapse", Outcome::kChanged, false, [this](ItemHandle) { view->CollapseAll(); }},
      {"select", Outcome::kChanged, false,
       [this](ItemHandle item) {
         view->InvertSelection();
         view->SetItemSelected(item, true);
         SendMessageW(control, WM_KEYDOWN, VK_HOME, 1);
       }},
      {"Destroy", Outcome::kReplaced, true, [this](ItemHandle) { view->Destroy(); }},
      {"release", Outcome::kReleased, true, [this](ItemHandle) { this->ReleaseView(); }},
      {"Create of a tree", Outcome::kReplaced, true, [this](ItemHandle) { CreateAnew(0); }},
      {"Create of a list", Outcome::kReplaced, true,
       [this](ItemHandle) { CreateAnew(QVLS_LISTVIEW); }},
  };

  FakeDrag drag;
  FakeShell shell;
  bool reactsToReports = true;
  bool done = false;
  int callbacksBefore = -1;
};
