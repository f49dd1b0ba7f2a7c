// A host may do anything inside every callback of every operation and gesture. In the linux build
// the sanitizers detect any use of a destroyed view.

#include <windows.h>

#include <vector>

#include "support/reactions.h"
#include "support/list_test.h"
#include "support/tree_gestures.h"

namespace {

class TreeReactionTest : public ReactionTest<TreeTest> {
 protected:
  // P, Q, R, S and below the expanded Q c and d. Q, d and R are selected, d is the caret.
  void OpenView() override {
    Open(QVLS_HASBUTTONS | QVLS_LINESATROOT | QVLS_EDITLABELS);
    Insert(TEXT("c"), Item('Q'));
    Insert(TEXT("d"), Item('Q'));
    Insert(TEXT("e"), Item('R'));
    view->ExpandItem(Item('Q'), true);
    Given("d - QdR");
    current = Item('d');
    last = Item('S');
  }

  void InsertSelected() {
    QVLTreeViewItem record;
    record.SetSelected(true);
    const ItemHandle inserted = view->InsertItem(&record, Item('Q'));
    ExpectResult(inserted == -1, false, true);
  }

  void UpdateSelected() {
    QVLTreeViewItem record;
    record.SetSelected(true);
    ExpectResult(view->UpdateItem(&record, last), true, false);
  }

  void EditLabel() {
    const LRESULT edit = Ask(TVM_EDITLABELW, 0, current);
    if (edit) SendMessageW(reinterpret_cast<HWND>(edit), WM_KEYDOWN, VK_RETURN, 1);
  }

  const std::vector<Flow> flows = {
      {"press", Busy::kInReports, [this] { Press('S'); }},
      {"press on the caret", Busy::kInReports, [this] { Press('d'); }},
      {"press off", Busy::kInReports, [this] { Press('-'); }},
      {"press on a button", Busy::kInReports,
       [this] { PressAt(PartPoint(Item('Q'), TVHT_ONITEMBUTTON)); }},
      {"Ctrl press", Busy::kInReports, [this] { Press('S', MK_CONTROL); }},
      {"Ctrl press on the caret", Busy::kInReports, [this] { Press('d', MK_CONTROL); }},
      {"Shift press", Busy::kInReports, [this] { Press('S', MK_SHIFT); }},
      {"Shift press on the caret", Busy::kInReports, [this] { Press('d', MK_SHIFT); }},
      {"Shift press off", Busy::kInReports, [this] { Press('-', MK_SHIFT); }},
      {"single press", Busy::kInEveryCallback, [this] { view->SetMultiSelect(false), Press('S'); }},
      {"Shift+Down", Busy::kInReports, [this] { Key(VK_DOWN, MK_SHIFT); }},
      {"Down", Busy::kInReports, [this] { Key(VK_DOWN); }},
      {"expansion by key", Busy::kInReports, [this] { MoveCaret(Item('R')), Key(VK_RIGHT); }},
      {"SetItemSelected", Busy::kNever, [this] { view->SetItemSelected(last, true); }},
      {"ExpandAll", Busy::kInEveryCallback, [this] { view->ExpandAll(); }},
      {"InsertItem", Busy::kInEveryCallback, [this] { InsertSelected(); }},
      {"UpdateItem", Busy::kInEveryCallback, [this] { UpdateSelected(); }},
      {"DeleteItem", Busy::kInEveryCallback,
       [this] { ExpectResult(view->DeleteItem(current), true, false); }},
      {"DeleteItem of a branch", Busy::kInEveryCallback,
       [this] { ExpectResult(view->DeleteItem(Item('Q')), true, false); }},
      {"context request", Busy::kInReports, [this] { RequestMenu(LabelPoint(last)); }},
      {"label edit", Busy::kInEveryCallback, [this] { EditLabel(); }},
      {"drag", Busy::kNever, [this] { NotifyOf(last, TVN_BEGINDRAGW); }},
      {"single drag", Busy::kInReports,
       [this] { view->SetMultiSelect(false), NotifyOf(last, TVN_BEGINDRAGW); }},
      {"info tip", Busy::kNever, [this] { NotifyOf(last, TVN_GETINFOTIPW); }},
  };
};

TEST_F(TreeReactionTest, EveryReactionIsSafeInEveryCallback) {
  RunAll(CommonFlows(Busy::kNever));
  RunAll(flows);
}

class ListReactionTest : public ReactionTest<ListTest> {
 protected:
  // Three rows, of which the middle one is selected and checked.
  void OpenView() override {
    QVLTreeViewStyleExt editable;
    editable.SetStyle(LVS_EDITLABELS);
    Open(QVLS_CHECKBOXES, &editable);
    AddRows(3);
    view->SetItemSelected(1, true);
    view->SetItemChecked(1, true);
    client.Take();
    SetFocus(control);
    record.SetItemName(TEXT("record"));
    record.SetSelected(true);
    record.SetChecked(true);
    current = 1;
    last = 2;
  }

  void SelectByHitTest() {
    const POINT point = LabelOnScreen(0);
    ExpectResult(view->HitTest(&point, true, nullptr), ItemHandle{0}, -1);
  }

  void RequestMenuOfRow() {
    const POINT point = LabelOnScreen(0);
    SendMessageW(control, WM_CONTEXTMENU, 0, MAKELPARAM(point.x, point.y));
  }

  void AskInfoTip() {
    WCHAR own = 0;
    NMLVGETINFOTIPW tip = {};
    tip.pszText = &own;
    Notify(tip.hdr, LVN_GETINFOTIPW);
    ExpectResult(tip.pszText, LPWSTR{nullptr}, &own);
  }

  // The control ends its edit while it is destroyed, so OnLabelEdit comes in the middle of that.
  void EndDuringAnEdit(bool release) {
    Ask(LVM_EDITLABELW, 1);
    if (ended || (release && reaction->outcome == Outcome::kReleased)) return;
    release ? ReleaseView() : view->Destroy();
  }

  QVLTreeViewItem record;
  const std::vector<Flow> flows = {
      {"change", Busy::kNever, [this] { NotifyOf(1, LVN_ITEMCHANGED); }},
      {"column", Busy::kNever, [this] { NotifyOf(0, LVN_COLUMNCLICK); }},
      {"edit", Busy::kNever, [this] { EXPECT_EQ(NotifyOf(0, LVN_ENDLABELEDITW), 1); }},
      {"context request", Busy::kNever, [this] { SendMessageW(parent, WM_CONTEXTMENU, 0, 0); }},
      {"context request for a row", Busy::kInEveryCallback, [this] { RequestMenuOfRow(); }},
      {"info tip", Busy::kNever, [this] { AskInfoTip(); }},
      {"columns", Busy::kNever,
       [this] { ExpectResult(CreateView(QVLS_LISTVIEW) == nullptr, false, true); }},
      {"CheckAll", Busy::kInEveryCallback, [this] { view->CheckAll(); }},
      {"InsertItem", Busy::kInEveryCallback,
       [this] { ExpectResult(view->InsertItem(&record, -1), ItemHandle{3}, -1); }},
      {"UpdateItem", Busy::kInEveryCallback,
       [this] { ExpectResult(view->UpdateItem(&record, 0), true, false); }},
      {"DeleteItem", Busy::kInEveryCallback,
       [this] { ExpectResult(view->DeleteItem(1), true, false); }},
      {"HitTest", Busy::kInEveryCallback, [this] { SelectByHitTest(); }},
      {"drag", Busy::kNever, [this] { NotifyOf(1, LVN_BEGINDRAG); }},
      {"drag of another row", Busy::kInEveryCallback, [this] { NotifyOf(0, LVN_BEGINDRAG); }},
      {"key", Busy::kInEveryCallback, [this] { Ask(WM_KEYDOWN, VK_DOWN); }},
      {"Destroy during an edit", Busy::kInEveryCallback, [this] { EndDuringAnEdit(false); }},
      {"release during an edit", Busy::kInEveryCallback, [this] { EndDuringAnEdit(true); }},
  };
};

TEST_F(ListReactionTest, EveryReactionIsSafeInEveryCallback) {
  RunAll(CommonFlows(Busy::kInEveryCallback));
  RunAll(flows);
}

}  // namespace
