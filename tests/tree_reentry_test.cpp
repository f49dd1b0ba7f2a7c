// What a host may do inside the tree's callbacks: change the view, let go of it, end it.
#include <functional>
#include <vector>

#include "support/tree_gestures.h"

namespace {

// The item that a message to the control names, or null.
HTREEITEM NamedItem(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == TVM_GETITEMSTATE) return reinterpret_cast<HTREEITEM>(wParam);
  if (message == TVM_SETITEMW) return reinterpret_cast<TVITEMW*>(lParam)->hItem;
  const bool named = message == TVM_GETNEXTITEM || message == TVM_SELECTITEM;
  return named ? reinterpret_cast<HTREEITEM>(lParam) : nullptr;
}

// Stands before the library's SendMessageW: an item that has been deleted must never be named. Only
// the stand-in can be asked whether it has; the platform's control reads what the handle points to.
LRESULT WINAPI CheckingSend(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  TVITEMW item = {};
  item.mask = TVIF_PARAM;
  item.hItem = NamedItem(message, wParam, lParam);
  if (item.hItem && !REAL_CONTROL) {
    EXPECT_NE(SendMessageW(window, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)), 0)
        << "message " << message << " names a deleted item";
  }
  return SendMessageW(window, message, wParam, lParam);
}

class TreeReentryTest : public TreeTest {
 protected:
  // Something that makes the view call its client.
  struct Flow {
    const char* name;
    bool byControl;  // all the calls come while the control handles a message
    std::function<void()> run;
  };

  // What the host does inside one of these calls, about an item of the view.
  struct Deed {
    const char* name;
    bool endsFlow;   // no further call is made after it
    bool takesAway;  // the control or an item, which the control itself may be busy with
    std::function<void(ItemHandle)> run;
  };

  // Does the deed inside call number `place`, from 0, of the flow. False if the flow makes fewer.
  bool DoInsideCall(int place, const Flow& flow, const Deed& deed) {
    StartAfresh();
    int count = 0;
    bool done = false;
    Hear(deed, [&](ItemHandle item) {
      if (done || count++ != place) return true;
      done = true;
      deed.run(item > 0 ? item : Item('d'));
      client.Take();
      return true;
    });
    {
      const ImportPatch patch("SendMessageW", &CheckingSend);
      flow.run();
      PumpMessages();
    }
    Hear(deed, [](ItemHandle) { return true; });
    if (done && deed.endsFlow) {
      EXPECT_EQ(Heard(), "");
    } else {
      EXPECT_EQ(client.depth, 0);
    }
    if (view && view->GetControlWindow()) ExpectWhole();
    return done;
  }

  const std::vector<Flow> FLOWS = {
      {"press", false, [this] { Press('S'); }},
      {"press on the caret", false, [this] { Press('d'); }},
      {"press off", false, [this] { Press('-'); }},
      {"press on a button", false, [this] { PressAt(PartPoint(Item('Q'), TVHT_ONITEMBUTTON)); }},
      {"Ctrl press", false, [this] { Press('S', MK_CONTROL); }},
      {"Ctrl press on the caret", false, [this] { Press('d', MK_CONTROL); }},
      {"Shift press", false, [this] { Press('S', MK_SHIFT); }},
      {"Shift press on the caret", false, [this] { Press('d', MK_SHIFT); }},
      {"Shift press off", false, [this] { Press('-', MK_SHIFT); }},
      {"single press", true,
       [this] {
         view->SetMultiSelect(false);
         Press('S');
       }},
      {"Shift+Down", false, [this] { Key(VK_DOWN, MK_SHIFT); }},
      {"Down", false, [this] { Key(VK_DOWN); }},
      {"expansion by key", false,
       [this] {
         MoveCaret(Item('R'));
         Key(VK_RIGHT);
       }},
      {"SetItemSelected", false, [this] { view->SetItemSelected(Item('S'), true); }},
      {"SelectAll", false, [this] { view->SelectAll(); }},
      {"ClearSelection", false, [this] { view->ClearSelection(); }},
      {"InvertSelection", false, [this] { view->InvertSelection(); }},
      {"ExpandAll", true, [this] { view->ExpandAll(); }},
      {"InsertItem", true, [this] { InsertSelected(); }},
      {"DeleteItem", true, [this] { view->DeleteItem(Item('d')); }},
      {"DeleteItem of a branch", true, [this] { view->DeleteItem(Item('Q')); }},
      {"context request", false, [this] { RequestMenu(LabelPoint(Item('S'))); }},
      {"ShowContextMenu", false, [this] { view->ShowContextMenu(5, 5); }},
      {"label edit", true, [this] { EditLabel(); }},
      {"drag", false, [this] { NotifyOf(Item('S'), TVN_BEGINDRAGW); }},
      {"single drag", false,
       [this] {
         view->SetMultiSelect(false);
         NotifyOf(Item('S'), TVN_BEGINDRAGW);
       }},
      {"info tip", false, [this] { AskInfoTip(); }},
  };

  const std::vector<Deed> DEEDS = {
      {"SetClient", true, false, [this](ItemHandle) { view->SetClient(nullptr); }},
      {"DeleteItem", false, true, [this](ItemHandle item) { view->DeleteItem(item); }},
      {"DeleteItem of S", false, true, [this](ItemHandle) { view->DeleteItem(Item('S')); }},
      {"DeleteAllItems", false, true, [this](ItemHandle) { view->DeleteAllItems(); }},
      {"collapse", false, false, [this](ItemHandle) { view->ExpandItem(Item('Q'), false); }},
      {"select", false, false,
       [this](ItemHandle item) {
         view->InvertSelection();
         view->SetItemSelected(item, true);
         MoveCaret(Item('P'));
       }},
      {"Destroy", true, true, [this](ItemHandle) { view->Destroy(); }},
      {"release", true, true, [this](ItemHandle) { ReleaseView(); }},
      {"Create of a tree", true, true, [this](ItemHandle) { CreateView(); }},
      {"Create of a list", true, true, [this](ItemHandle) { CreateView(QVLS_LISTVIEW); }},
  };

 private:
  // P, Q, R and S and, shown below Q, c and d; Q, d and R selected, d the caret.
  void StartAfresh() {
    ReleaseView();
    view = GetIQVLTreeView();
    client = RecordingClient();
    client.view = view;
    Open(QVLS_HASBUTTONS | QVLS_LINESATROOT | QVLS_EDITLABELS);
    Insert(TEXT("c"), Item('Q'));
    Insert(TEXT("d"), Item('Q'));
    Insert(TEXT("e"), Item('R'));
    view->ExpandItem(Item('Q'), true);
    Given("d - QdR");
  }

  void Hear(const Deed& deed, const std::function<bool(ItemHandle)>& call) {
    client.onBeginSelectionChange = [call] { call(0); };
    client.onEndSelectionChange = client.onBeginSelectionChange;
    client.onContextMenu = [call](int, int, ItemHandle item, std::uint32_t) { call(item); };
    client.onGetInfoTip = [call](ItemHandle item, WCHAR**, int*) { return call(item); };
    client.onBeginDrag = [call](ItemHandleList*, FileNameList*) { return call(0); };
    client.onShellContextMenu = client.onBeginDrag;
    // The rest comes while the control handles a message, and the platform's own control does not
    // survive to lose what it is busy with.
    if (REAL_CONTROL && deed.takesAway) return;
    client.onItemSelectionChanged = call;
    client.onItemExpanded = call;
    client.onLabelEdit = [call](NMHDR* record, std::uint32_t code) {
      const TVITEMW& edited = reinterpret_cast<NMTVDISPINFOW*>(record)->item;
      return call(reinterpret_cast<ItemHandle>(edited.hItem)) && code == TVN_ENDLABELEDITW;
    };
  }

  void InsertSelected() {
    QVLTreeViewItem record;
    record.SetSelected(true);
    view->InsertItem(&record, Item('Q'));
  }

  void EditLabel() {
    const LRESULT edit = Ask(TVM_EDITLABELW, 0, Item('Q'));
    if (edit) SendMessageW(reinterpret_cast<HWND>(edit), WM_KEYDOWN, VK_RETURN, 1);
  }

  void AskInfoTip() {
    NMTVGETINFOTIPW tip = {};
    tip.hItem = Native(Item('S'));
    Notify(tip.hdr, TVN_GETINFOTIPW);
  }

  void ExpectWhole() {
    EXPECT_NE(Insert(TEXT("new")), -1);
    view->SelectAll();
    ItemHandleList visible;
    EXPECT_EQ(view->GetItems(&visible, true), view->GetSelectedCount());
  }
};

TEST_F(TreeReentryTest, EveryDeedIsSafeInsideEveryCall) {
  for (const Flow& flow : FLOWS) {
    for (const Deed& deed : DEEDS) {
      if (REAL_CONTROL && flow.byControl && deed.takesAway) continue;
      SCOPED_TRACE(std::string(deed.name) + " inside " + flow.name);
      int place = 0;
      while (DoInsideCall(place, flow, deed)) ++place;
      EXPECT_GT(place, 0) << "the flow calls nobody";
    }
  }
}

}  // namespace
