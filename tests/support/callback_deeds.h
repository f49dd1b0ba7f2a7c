// What a host may do inside the callbacks of a view, and while a drag or a menu runs: change the
// view, let go of it, end it.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <type_traits>
#include <vector>

#include "support/fake_drag.h"
#include "support/fake_shell.h"
#include "support/tree_gestures.h"

// When the control is in the middle of handling a message: the platform's own control does not
// survive to lose what it is busy with.
enum class Busy { NEVER, IN_REPORTS, IN_EVERY_CALL };

// Something that makes the view call its client.
struct Flow {
  const char* name;
  Busy busy;
  std::function<void()> run;
};

enum class Left { CHANGED, UNHEARD, OTHER, GONE };

// What the host does inside one of these calls, about an item of the view.
struct Deed {
  const char* name;
  Left left;       // of the view
  bool takesAway;  // the control or an item
  std::function<void(ItemHandle)> run;
};

// The item that a message to a tree names, or null.
inline HTREEITEM NamedItem(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == TVM_GETITEMSTATE) return reinterpret_cast<HTREEITEM>(wParam);
  if (message == TVM_SETITEMW) return reinterpret_cast<TVITEMW*>(lParam)->hItem;
  const bool named = message == TVM_GETNEXTITEM || message == TVM_SELECTITEM;
  return named ? reinterpret_cast<HTREEITEM>(lParam) : nullptr;
}

// Does every deed inside every call of a flow. `View` is TreeTest or ListTest.
template <class View>
class CallbackTest : public View {
 protected:
  using View::client, View::control, View::host, View::view;

  // Opens a view in which each flow makes its calls.
  virtual void StartAfresh() = 0;

  void DoAllInside(const std::vector<Flow>& flows) {
    for (const Flow& flow : flows) {
      for (const Deed& each : DEEDS) {
        const bool mayNot = REAL_CONTROL && each.takesAway;
        if (mayNot && flow.busy == Busy::IN_EVERY_CALL) continue;
        hearsReports = !mayNot || flow.busy == Busy::NEVER;
        SCOPED_TRACE(std::string(each.name) + " inside " + flow.name);
        deed = &each;
        int place = 0;
        while (DoInsideCall(place, flow)) ++place;
        EXPECT_GT(place, 0) << "the flow calls nobody";
      }
    }
  }

  // The flows that are the same for both views.
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
        {"ShowContextMenu", Busy::NEVER,
         [this] { ExpectResult(view->ShowContextMenu(5, 5), true, false); }},
    };
  }

  // What the operation gives that makes the calls.
  template <class Value>
  void ExpectResult(Value result, Value success, std::type_identity_t<Value> failure) const {
    if (ended) {
      EXPECT_EQ(result, failure);
    } else if (!done || deed->left == Left::UNHEARD) {
      EXPECT_EQ(result, success);
    }
  }

  // The items that the deeds are about; `current` where a call names none.
  ItemHandle current = 0, last = 0;
  const Deed* deed = nullptr;
  static inline bool ended = false;  // the view that called

 private:
  // Stands before the library's SendMessageW: a flow says nothing to any control once its view has
  // ended, and never names an item that has been deleted. Only the stand-in can be asked whether it
  // has; the platform's control reads what the handle points to.
  static LRESULT WINAPI CheckingSend(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    EXPECT_FALSE(ended) << "message " << message << " is sent all the same";
    TVITEMW item = {};
    item.mask = TVIF_PARAM;
    item.hItem = NamedItem(message, wParam, lParam);
    if (item.hItem && !REAL_CONTROL) {
      EXPECT_NE(SendMessageW(window, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)), 0)
          << "message " << message << " names a deleted item";
    }
    return SendMessageW(window, message, wParam, lParam);
  }

  // Does the deed inside call number `place`, from 0, of the flow. False if the flow makes fewer.
  bool DoInsideCall(int place, const Flow& flow) {
    this->ReleaseView();
    view = GetIQVLTreeView();
    client = RecordingClient();
    client.view = view;
    StartAfresh();
    done = ended = false;
    callsToCome = place;
    HearAll();
    {
      const ImportPatch patch("SendMessageW", &CheckingSend);
      flow.run();
      PumpMessages();
    }
    callsToCome = -1;
    ExpectTheRest();
    ended = false;
    if (view) ExpectUsable();
    EXPECT_TRUE(shell.HoldsNothing());
    return done;
  }

  void Called(ItemHandle item) {
    if (callsToCome-- != 0) return;
    done = true;
    deed->run(item > 0 ? item : current);
    ended = deed->left == Left::OTHER || deed->left == Left::GONE;
    client.Take();
  }

  void HearAll() {
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
    HearSystem();
    if (!hearsReports) return;
    client.onItemSelectionChanged = client.onItemExpanded = aboutItem;
    // An edit begins, and its text is taken.
    client.onLabelEdit = [=](NMHDR*, std::uint32_t code) {
      return aboutItem(0) && (code == TVN_ENDLABELEDITW || code == LVN_ENDLABELEDITW);
    };
  }

  // The host goes on while a drag or a menu runs, and neither starts once the view has ended. What
  // is dragged outlives the view.
  void HearSystem() {
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

  // No call comes after an ending, brackets are closed otherwise, and a new view is as it was made.
  void ExpectTheRest() {
    if (done && deed->left != Left::CHANGED) {
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

  // The client of a view that is still there, or comes again, hears of it.
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

  const std::vector<Deed> DEEDS = {
      {"SetClient", Left::UNHEARD, false, [this](ItemHandle) { view->SetClient(nullptr); }},
      {"DeleteItem", Left::CHANGED, true, [this](ItemHandle item) { view->DeleteItem(item); }},
      {"delete the last", Left::CHANGED, true, [this](ItemHandle) { view->DeleteItem(last); }},
      {"DeleteAllItems", Left::CHANGED, true, [this](ItemHandle) { view->DeleteAllItems(); }},
      {"collapse", Left::CHANGED, false, [this](ItemHandle) { view->CollapseAll(); }},
      {"select", Left::CHANGED, false,
       [this](ItemHandle item) {
         view->InvertSelection();
         view->SetItemSelected(item, true);
         SendMessageW(control, WM_KEYDOWN, VK_HOME, 1);
       }},
      {"Destroy", Left::OTHER, true, [this](ItemHandle) { view->Destroy(); }},
      {"release", Left::GONE, true, [this](ItemHandle) { this->ReleaseView(); }},
      {"Create of a tree", Left::OTHER, true, [this](ItemHandle) { CreateAnew(0); }},
      {"Create of a list", Left::OTHER, true, [this](ItemHandle) { CreateAnew(QVLS_LISTVIEW); }},
  };

  FakeDrag drag;
  FakeShell shell;
  bool hearsReports = true;
  bool done = false;
  int callsToCome = -1;
};
