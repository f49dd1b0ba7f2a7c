// A client that ends the list's view inside one of its calls: the flow that called stops there. The
// sanitizers of the native build tell whether anything of the view was touched afterwards.

#include <windows.h>

#include <climits>
#include <functional>
#include <string>
#include <vector>

#include "support/list_test.h"
#include "support/tree_gestures.h"

namespace {

// What the host does to the view inside the call.
enum class Ending { NO_CLIENT, DESTROY, RELEASE, CREATE };
constexpr Ending ENDINGS[] = {Ending::NO_CLIENT, Ending::DESTROY, Ending::RELEASE, Ending::CREATE};

// Something that makes the view call its client.
struct Flow {
  const char* name;
  bool byControl;  // the control is in the middle of a message, and the real one doesn't survive it
  std::function<void()> run;
};

class ListEndingTest : public ListTest {
 protected:
  void SetUp() override {
    ListTest::SetUp();
    marked.SetItemName(TEXT("marked"));
    marked.SetSelected(true);
    marked.SetChecked(true);
  }

  // Runs the flow and ends the view inside the call of that number, from 0, if it makes so many.
  // The result is the number of calls until then.
  int RunAndEnd(const Flow& flow, int place, Ending how) {
    ending = how;
    calls = 0;
    ended = false;
    StartAfresh();
    HearAll([=, this] {
      if (calls++ == place) End();
    });
    flow.run();
    if (ended) ExpectTheEnd();
    return calls;
  }

  // Three rows, of which the middle one is selected and ticked. Whatever came before, the client
  // hears of that.
  void StartAfresh() {
    if (!view) view = GetIQVLTreeView();
    client = RecordingClient();
    client.view = view;
    QVLTreeViewStyleExt editable;
    editable.SetStyle(LVS_EDITLABELS);
    Open(QVLS_CHECKBOXES, &editable);
    AddRows(3);
    view->SetItemSelected(1, true);
    view->SetItemChecked(1, true);
    EXPECT_EQ(client.Take(), Brackets({1, 1}));
    SetFocus(control);
  }

  void HearAll(const std::function<void()>& called) {
    const auto call = [=](auto&&...) {
      called();
      return true;
    };
    client.onBeginSelectionChange = call;
    client.onItemSelectionChanged = call;
    client.onEndSelectionChange = call;
    client.onCreateColumns = call;
    client.onGetInfoTip = call;
    // An edit begins, and its text is taken.
    client.onLabelEdit = [=](NMHDR*, std::uint32_t code) {
      called();
      return code == LVN_ENDLABELEDITW;
    };
    client.onColumnClick = call;
    client.onContextMenu = call;
    client.onBeginDrag = call;
    client.onShellContextMenu = call;
  }

  // What the client heard until then is dropped. A new list gets three rows.
  void End() {
    ended = true;
    if (ending == Ending::NO_CLIENT) view->SetClient(nullptr);
    if (ending == Ending::DESTROY) view->Destroy();
    if (ending == Ending::RELEASE) ReleaseView();
    if (ending == Ending::CREATE) {
      Open();
      AddRows(3);
    }
    client.Take();
  }

  // No further call came, and a new list is as it was made.
  void ExpectTheEnd() {
    EXPECT_EQ(client.Take(), Lines());
    if (ending != Ending::CREATE || !view) return;
    EXPECT_EQ(view->GetControlWindow(), control);
    EXPECT_EQ(RowCount(), 3);
    EXPECT_EQ(SelectedRows(), ItemHandleList());
    EXPECT_EQ(Text(0), TEXT("row"));
  }

  bool ViewStays() const { return ending == Ending::NO_CLIENT; }

  std::vector<Flow> FlowsByReport();
  std::vector<Flow> FlowsByControl();

  Ending ending = Ending::NO_CLIENT;
  int calls = 0;
  bool ended = false;
  QVLTreeViewItem marked;
};

std::vector<Flow> ListEndingTest::FlowsByReport() {
  return {
      {"change", false, [this] { NotifyRow(LVN_ITEMCHANGED, 1); }},
      {"column", false, [this] { NotifyRow(LVN_COLUMNCLICK, 0); }},
      {"edit", false, [this] { EXPECT_EQ(NotifyRow(LVN_ENDLABELEDITW, 0), 1); }},
      {"menu", false, [this] { EXPECT_FALSE(view->ShowContextMenu(5, 5)); }},
      {"context request", false, [this] { SendMessageW(parent, WM_CONTEXTMENU, 0, 0); }},
      {"tip", false,
       [this] {
         WCHAR own = 0;
         NMLVGETINFOTIPW tip = {};
         tip.pszText = &own;
         Notify(LVN_GETINFOTIPW, tip.hdr);
         EXPECT_EQ(tip.pszText == nullptr, ViewStays());
       }},
      {"columns", false, [this] { EXPECT_EQ(CreateView(QVLS_LISTVIEW) != nullptr, ViewStays()); }},
  };
}

std::vector<Flow> ListEndingTest::FlowsByControl() {
  return {
      {"SelectAll", true, [this] { view->SelectAll(); }},
      {"ClearSelection", true, [this] { view->ClearSelection(); }},
      {"InvertSelection", true, [this] { view->InvertSelection(); }},
      {"CheckAll", true, [this] { view->CheckAll(); }},
      {"InsertItem", true,
       [this] { EXPECT_EQ(view->InsertItem(&marked, -1), ViewStays() ? 3 : -1); }},
      {"UpdateItem", true, [this] { EXPECT_EQ(view->UpdateItem(&marked, 0), ViewStays()); }},
      {"HitTest", true,
       [this] {
         const POINT point = LabelOnScreen(0);
         EXPECT_EQ(view->HitTest(&point, true, nullptr), ViewStays() ? 0 : -1);
       }},
      {"context request for a row", true,
       [this] {
         const POINT point = LabelOnScreen(0);
         SendMessageW(control, WM_CONTEXTMENU, 0, MAKELPARAM(point.x, point.y));
       }},
      {"drag of another row", true, [this] { NotifyRow(LVN_BEGINDRAG, 0); }},
      {"key", true, [this] { Ask(WM_KEYDOWN, VK_DOWN); }},
      // The control closes its edit while it goes, so the client is asked in the middle of that.
      {"Destroy during an edit", true,
       [this] {
         Ask(LVM_EDITLABELW, 0);
         if (!ended) view->Destroy();
       }},
      {"Release during an edit", true,
       [this] {
         Ask(LVM_EDITLABELW, 0);
         if (!ended && ending != Ending::RELEASE) ReleaseView();
       }},
  };
}

TEST_F(ListEndingTest, NoFurtherCallComes) {
  for (const auto& flows : {FlowsByReport(), FlowsByControl()}) {
    for (const Flow& flow : flows) {
      SCOPED_TRACE(flow.name);
      if (flow.byControl && REAL_CONTROL) continue;
      const int places = RunAndEnd(flow, INT_MAX, Ending::NO_CLIENT);
      EXPECT_GT(places, 0) << "the flow calls nobody";
      for (const Ending how : ENDINGS) {
        for (int place = 0; place < places; ++place) RunAndEnd(flow, place, how);
      }
    }
  }
}

}  // namespace
