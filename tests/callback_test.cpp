// What each view makes its client hear, and that the host may do anything inside. The sanitizers of
// the native build tell whether anything of an ended view is touched afterwards.

#include <windows.h>

#include <vector>

#include "support/callback_deeds.h"
#include "support/list_test.h"
#include "support/tree_gestures.h"

namespace {

class TreeCallbackTest : public CallbackTest<TreeTest> {
 protected:
  // P, Q, R and S and, shown below Q, c and d; Q, d and R selected, d the caret.
  void StartAfresh() override {
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

  const std::vector<Flow> FLOWS = {
      {"press", Busy::IN_REPORTS, [this] { Press('S'); }},
      {"press on the caret", Busy::IN_REPORTS, [this] { Press('d'); }},
      {"press off", Busy::IN_REPORTS, [this] { Press('-'); }},
      {"press on a button", Busy::IN_REPORTS,
       [this] { PressAt(PartPoint(Item('Q'), TVHT_ONITEMBUTTON)); }},
      {"Ctrl press", Busy::IN_REPORTS, [this] { Press('S', MK_CONTROL); }},
      {"Ctrl press on the caret", Busy::IN_REPORTS, [this] { Press('d', MK_CONTROL); }},
      {"Shift press", Busy::IN_REPORTS, [this] { Press('S', MK_SHIFT); }},
      {"Shift press on the caret", Busy::IN_REPORTS, [this] { Press('d', MK_SHIFT); }},
      {"Shift press off", Busy::IN_REPORTS, [this] { Press('-', MK_SHIFT); }},
      {"single press", Busy::IN_EVERY_CALL, [this] { view->SetMultiSelect(false), Press('S'); }},
      {"Shift+Down", Busy::IN_REPORTS, [this] { Key(VK_DOWN, MK_SHIFT); }},
      {"Down", Busy::IN_REPORTS, [this] { Key(VK_DOWN); }},
      {"expansion by key", Busy::IN_REPORTS, [this] { MoveCaret(Item('R')), Key(VK_RIGHT); }},
      {"SetItemSelected", Busy::NEVER, [this] { view->SetItemSelected(last, true); }},
      {"ExpandAll", Busy::IN_EVERY_CALL, [this] { view->ExpandAll(); }},
      {"InsertItem", Busy::IN_EVERY_CALL, [this] { InsertSelected(); }},
      {"UpdateItem", Busy::IN_EVERY_CALL, [this] { UpdateSelected(); }},
      {"DeleteItem", Busy::IN_EVERY_CALL,
       [this] { ExpectResult(view->DeleteItem(current), true, false); }},
      {"DeleteItem of a branch", Busy::IN_EVERY_CALL,
       [this] { ExpectResult(view->DeleteItem(Item('Q')), true, false); }},
      {"context request", Busy::IN_REPORTS, [this] { RequestMenu(LabelPoint(last)); }},
      {"label edit", Busy::IN_EVERY_CALL, [this] { EditLabel(); }},
      {"drag", Busy::NEVER, [this] { NotifyOf(last, TVN_BEGINDRAGW); }},
      {"single drag", Busy::IN_REPORTS,
       [this] { view->SetMultiSelect(false), NotifyOf(last, TVN_BEGINDRAGW); }},
      {"info tip", Busy::NEVER, [this] { NotifyOf(last, TVN_GETINFOTIPW); }},
  };
};

TEST_F(TreeCallbackTest, EveryDeedIsSafeInsideEveryCall) {
  DoAllInside(CommonFlows(Busy::NEVER));
  DoAllInside(FLOWS);
}

class ListCallbackTest : public CallbackTest<ListTest> {
 protected:
  // Three rows, of which the middle one is selected and ticked.
  void StartAfresh() override {
    QVLTreeViewStyleExt editable;
    editable.SetStyle(LVS_EDITLABELS);
    Open(QVLS_CHECKBOXES, &editable);
    AddRows(3);
    view->SetItemSelected(1, true);
    view->SetItemChecked(1, true);
    client.Take();
    SetFocus(control);
    marked.SetItemName(TEXT("marked"));
    marked.SetSelected(true);
    marked.SetChecked(true);
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

  // The control closes its edit while it goes, so the client is asked in the middle of that.
  void EndDuringAnEdit(bool release) {
    Ask(LVM_EDITLABELW, 1);
    if (ended || (release && deed->left == Left::GONE)) return;
    release ? ReleaseView() : view->Destroy();
  }

  QVLTreeViewItem marked;
  const std::vector<Flow> FLOWS = {
      {"change", Busy::NEVER, [this] { NotifyOf(1, LVN_ITEMCHANGED); }},
      {"column", Busy::NEVER, [this] { NotifyOf(0, LVN_COLUMNCLICK); }},
      {"edit", Busy::NEVER, [this] { EXPECT_EQ(NotifyOf(0, LVN_ENDLABELEDITW), 1); }},
      {"context request", Busy::NEVER, [this] { SendMessageW(parent, WM_CONTEXTMENU, 0, 0); }},
      {"context request for a row", Busy::IN_EVERY_CALL, [this] { RequestMenuOfRow(); }},
      {"info tip", Busy::NEVER, [this] { AskInfoTip(); }},
      {"columns", Busy::NEVER,
       [this] { ExpectResult(CreateView(QVLS_LISTVIEW) == nullptr, false, true); }},
      {"CheckAll", Busy::IN_EVERY_CALL, [this] { view->CheckAll(); }},
      {"InsertItem", Busy::IN_EVERY_CALL,
       [this] { ExpectResult(view->InsertItem(&marked, -1), ItemHandle{3}, -1); }},
      {"UpdateItem", Busy::IN_EVERY_CALL,
       [this] { ExpectResult(view->UpdateItem(&marked, 0), true, false); }},
      {"DeleteItem", Busy::IN_EVERY_CALL,
       [this] { ExpectResult(view->DeleteItem(1), true, false); }},
      {"HitTest", Busy::IN_EVERY_CALL, [this] { SelectByHitTest(); }},
      {"drag", Busy::NEVER, [this] { NotifyOf(1, LVN_BEGINDRAG); }},
      {"drag of another row", Busy::IN_EVERY_CALL, [this] { NotifyOf(0, LVN_BEGINDRAG); }},
      {"key", Busy::IN_EVERY_CALL, [this] { Ask(WM_KEYDOWN, VK_DOWN); }},
      {"Destroy during an edit", Busy::IN_EVERY_CALL, [this] { EndDuringAnEdit(false); }},
      {"release during an edit", Busy::IN_EVERY_CALL, [this] { EndDuringAnEdit(true); }},
  };
};

TEST_F(ListCallbackTest, EveryDeedIsSafeInsideEveryCall) {
  DoAllInside(CommonFlows(Busy::IN_EVERY_CALL));
  DoAllInside(FLOWS);
}

}  // namespace
