// Multiple selection by mouse and keyboard. The native control knows one selected item; here items
// are marked by hand round what the control does with the same press or key.
//
// Moving the caret takes the selected bit off the old caret, puts it on the new one and has the
// control report the new one. A press that is forwarded does the same.
#include "platform/tree_control.h"
#include "tree/tree_view.h"
#include "view/screen_point.h"
#include "view/selection_bracket.h"

namespace {

bool IsShiftDown() { return GetKeyState(VK_SHIFT) < 0; }

}  // namespace

// Every message of the control passes, so the view is looked up for those alone that it wants.
LRESULT CALLBACK TreeControlSubclassProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_KEYDOWN || message == WM_LBUTTONDOWN || message == WM_SETREDRAW) {
    auto* view = reinterpret_cast<QVLTreeView*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (view && message == WM_KEYDOWN) return view->HandleKeyDown(wParam, lParam);
    if (view && message == WM_LBUTTONDOWN) return view->HandleLButtonDown(wParam, lParam);
    if (view) view->redraw.NoteRequest(wParam != 0);
  }
  return CallWindowProcW(savedControlProc, window, message, wParam, lParam);
}

LRESULT QVLTreeView::Forward(const Input& input) {
  return CallWindowProcW(savedControlProc, controlWindow, input.message, input.wParam,
                         input.lParam);
}

// The button and the check box of an item count as the item.
ItemHandle QVLTreeView::ItemUnder(LPARAM clientPoint) {
  TVHITTESTINFO hit{};
  hit.pt = PointFromParam(clientPoint);
  return tree::HitTest(controlWindow, hit);
}

LRESULT QVLTreeView::HandleKeyDown(WPARAM key, LPARAM lParam) {
  const Input input{WM_KEYDOWN, key, lParam};
  if (!multiSelect) return Forward(input);
  if ((key == VK_UP || key == VK_DOWN) && IsShiftDown()) {
    ExtendByKey(key);
    return 0;  // the control never sees the key
  }
  LifeWatch alive(life);
  // Below the space key lie Shift and Ctrl themselves, which begin gestures and end none.
  if (key >= VK_SPACE) DeselectByKey();
  return alive ? Forward(input) : 0;
}

// Moves the caret by one. Onto an unselected item the selection grows: the old item gets back the
// bit that the caret took along. Onto a selected one it shrinks: the old item stays without.
void QVLTreeView::ExtendByKey(WPARAM key) {
  SelectionBracket bracket(owner, client, life);
  if (!bracket) return;
  if (selectionAnchor == 0) {
    selectionAnchor = tree::Caret(controlWindow);
    DeselectAll(false);
    if (!bracket) return;
  }
  HeldItem current(life, tree::Caret(controlWindow));
  if (!current.Get()) return;
  const WPARAM direction = key == VK_UP ? TVGN_PREVIOUSVISIBLE : TVGN_NEXTVISIBLE;
  const ItemHandle next = tree::NextItem(controlWindow, direction, current.Get());
  if (!next) return;
  const bool grows = !tree::IsSelected(controlWindow, next);
  tree::MoveCaret(controlWindow, next);
  if (grows && current.Get()) MarkAndReport(current.Get(), true);
}

void QVLTreeView::DeselectByKey() {
  SelectionBracket bracket(owner, client, life);
  if (!bracket) return;
  selectionAnchor = 0;
  DeselectAll(false);
}

LRESULT QVLTreeView::HandleLButtonDown(WPARAM keys, LPARAM point) {
  const Input press{WM_LBUTTONDOWN, keys, point};
  if (!multiSelect) return Forward(press);
  const ItemHandle hit = ItemUnder(point);
  if (keys & MK_CONTROL) return hit ? ToggleByPress(press, hit) : Forward(press);
  if (keys & MK_SHIFT) return ExtendByPress(press, hit);
  return SelectByPress(press, hit);
}

// Ctrl: the item changes its state, the others keep theirs.
LRESULT QVLTreeView::ToggleByPress(const Input& press, ItemHandle hit) {
  HeldItem item(life, hit);
  SelectionBracket bracket(owner, client, life);
  if (!bracket) return 0;
  const bool wanted = item.Get() && !tree::IsSelected(controlWindow, item.Get());
  HeldItem oldCaret(life, tree::Caret(controlWindow));
  const bool oldState = oldCaret.Get() && tree::IsSelected(controlWindow, oldCaret.Get());
  const bool onCaret = oldCaret.Get() == item.Get();
  if (onCaret) tree::MoveCaret(controlWindow, 0);  // so that the press is a change of caret
  if (bracket) Forward(press);
  if (item.Get()) MarkAndReport(item.Get(), wanted);
  if (oldCaret.Get() && !onCaret) MarkAndReport(oldCaret.Get(), oldState);
  if (bracket) selectionAnchor = 0;
  return 0;
}

// Shift: from the anchor, or else from the caret, to the item; to the last item if none was hit.
LRESULT QVLTreeView::ExtendByPress(const Input& press, ItemHandle hit) {
  HeldItem item(life, hit);
  SelectionBracket bracket(owner, client, life);
  if (!bracket) return 0;
  if (selectionAnchor == 0) selectionAnchor = tree::Caret(controlWindow);
  if (tree::Caret(controlWindow) == item.Get()) tree::MoveCaret(controlWindow, 0);
  if (!bracket) return 0;
  const LRESULT result = Forward(press);
  if (!bracket || selectionAnchor == 0) return result;
  SelectRange(selectionAnchor, item);
  return 0;
}

// Neither key: the item alone, or nothing.
LRESULT QVLTreeView::SelectByPress(const Input& press, ItemHandle hit) {
  LifeWatch alive(life);
  {
    HeldItem item(life, hit);
    SelectionBracket bracket(owner, client, life);
    if (bracket) DeselectAll(false);
    // Away first: the item may be the caret already, with its bit just cleared.
    if (item.Get()) tree::MoveCaret(controlWindow, 0);
    if (item.Get()) tree::MoveCaret(controlWindow, item.Get());
  }
  if (!alive) return 0;
  selectionAnchor = 0;
  return Forward(press);
}
