// A client that ends the list's view while an operation is under way in the control itself. The
// sanitizers of this build tell whether anything of the view was touched afterwards.

#include <windows.h>

#include <functional>
#include <string>
#include <tuple>
#include <utility>

#include "support/fake_drag.h"
#include "support/list_test.h"

namespace {

// Call of the selection bracket, from 0, in which the view ends.
constexpr int CALLS[] = {0, 1, 2};

class ListOperationEndingTest : public ListTest,
                                public ::testing::WithParamInterface<std::tuple<int, Ending>> {
 protected:
  // Three rows, of which the middle one is selected and ticked.
  void Prepare() {
    if (!view) {
      view = GetIQVLTreeView();
      client.view = view;
    }
    QVLTreeViewStyleExt editable;
    editable.SetStyle(LVS_EDITLABELS);
    Open(QVLS_CHECKBOXES, &editable);
    AddRows(3);
    view->SetItemSelected(1, true);
    view->SetItemChecked(1, true);
    SetFocus(control);
    client.Take();
    client.depth = 0;
    ended = false;
    const auto end = [this](auto&&...) { EndOnce(); };
    const int call = std::get<0>(GetParam());
    if (call == 0) client.onBeginSelectionChange = end;
    if (call == 1) client.onItemSelectionChanged = end;
    if (call == 2) client.onEndSelectionChange = end;
  }

  bool EndOnce() {
    if (!std::exchange(ended, true)) End(TheEnding());
    return true;
  }

  static Ending TheEnding() { return std::get<Ending>(GetParam()); }
  static bool ViewStays() { return TheEnding() == Ending::NO_CLIENT; }

  POINT FirstRow() const { return OnScreen(Part(0, LVIR_LABEL)); }

  void Press(UINT message, POINT screenPoint) {
    ScreenToClient(control, &screenPoint);
    SendMessageW(control, message, MK_LBUTTON, MAKELPARAM(screenPoint.x, screenPoint.y));
  }

  // After the view ended inside the operation, only a new list is left, and it is as it was made.
  void ExpectTheEnd() {
    EXPECT_TRUE(ended);
    EXPECT_EQ(client.Take(), Lines());
    if (TheEnding() != Ending::CREATE) return;
    EXPECT_EQ(RowCount(), 3);
    EXPECT_EQ(SelectedRows(), ItemHandleList());
    EXPECT_EQ(Text(0), TEXT("row"));
  }

  bool ended = false;
};

std::string EndingName(const ::testing::TestParamInfo<ListOperationEndingTest::ParamType>& info) {
  const char* const calls[] = {"Begin", "Changed", "End"};
  return std::string(calls[std::get<0>(info.param)]) +
         ENDING_NAMES[static_cast<int>(std::get<Ending>(info.param))];
}

INSTANTIATE_TEST_SUITE_P(Calls, ListOperationEndingTest,
                         ::testing::Combine(::testing::ValuesIn(CALLS),
                                            ::testing::ValuesIn(ENDINGS)),
                         EndingName);

TEST_P(ListOperationEndingTest, TheOperationStops) {
  const FakeDrag drag;
  QVLTreeViewItem record;
  record.SetItemName(TEXT("marked"));
  record.SetSelected(true);
  record.SetChecked(true);
  struct {
    const char* name;
    std::function<void()> run;
  } const operations[] = {
      {"SelectAll", [&] { view->SelectAll(); }},
      {"ClearSelection", [&] { view->ClearSelection(); }},
      {"InvertSelection", [&] { view->InvertSelection(); }},
      {"SetItemSelected", [&] { view->SetItemSelected(0, true); }},
      {"CheckAll", [&] { view->CheckAll(); }},
      {"UncheckAll", [&] { view->UncheckAll(); }},
      {"SetItemChecked", [&] { view->SetItemChecked(0, true); }},
      {"InsertItem", [&] { EXPECT_EQ(view->InsertItem(&record, -1), ViewStays() ? 3 : -1); }},
      {"UpdateItem", [&] { EXPECT_EQ(view->UpdateItem(&record, 0), ViewStays()); }},
      {"HitTest",
       [&] {
         const POINT point = FirstRow();
         EXPECT_EQ(view->HitTest(&point, true, nullptr), ViewStays() ? 0 : -1);
       }},
      {"context request",
       [&] {
         const POINT point = FirstRow();
         SendMessageW(control, WM_CONTEXTMENU, 0, MAKELPARAM(point.x, point.y));
       }},
      {"drag", [&] { NotifyRow(LVN_BEGINDRAG, 0); }},
      {"mouse", [&] { Press(WM_LBUTTONDOWN, FirstRow()); }},
      {"key", [&] { SendMessageW(control, WM_KEYDOWN, VK_DOWN, 0); }},
  };
  for (const auto& operation : operations) {
    SCOPED_TRACE(operation.name);
    Prepare();
    operation.run();
    ExpectTheEnd();
  }
  EXPECT_EQ(drag.runs, 0);
}

class ListEditEndingTest : public ListTest {};

// The control closes its edit while it is destroyed, so the client is asked in the middle of that.
TEST_F(ListEditEndingTest, AClientMayEndTheViewWhileItsEditCloses) {
  QVLTreeViewStyleExt editable;
  editable.SetStyle(LVS_EDITLABELS);
  for (const Ending inner : ENDINGS) {
    for (const Ending outer : {Ending::DESTROY, Ending::RELEASE, Ending::CREATE}) {
      // A view is released once.
      if (inner == Ending::RELEASE && outer == Ending::RELEASE) continue;
      if (!view) view = client.view = GetIQVLTreeView();
      client.onLabelEdit = nullptr;
      Open(0, &editable);
      AddRows(1);
      SetFocus(control);
      ASSERT_NE(SendMessageW(control, LVM_EDITLABELW, 0, 0), 0);
      bool ended = false;
      client.onLabelEdit = [&](NMHDR*, std::uint32_t) {
        if (!std::exchange(ended, true) && view) End(inner);
        return true;
      };
      if (outer == Ending::DESTROY) view->Destroy();
      if (outer == Ending::RELEASE) ReleaseView();
      if (outer == Ending::CREATE) {
        EXPECT_EQ(CreateView(QVLS_LISTVIEW) == nullptr, inner == Ending::RELEASE);
      }
      EXPECT_TRUE(ended);
      // Only a list that is new by then asks for its columns.
      const bool asks = outer == Ending::CREATE && view && inner != Ending::NO_CLIENT;
      EXPECT_EQ(client.Take().size(), asks ? 1u : 0u);
    }
  }
}

}  // namespace
