// Multiple selection by mouse and keyboard. The native control has one selected item. The library
// marks further items itself, before and after the control handles the same press or key.
//
// Moving the caret clears the selected bit of the old caret, sets that of the new one, and makes
// the control send a notification about the new one. A press that is forwarded does the same.
#include "common/selection_bracket.h"
#include "platform/screen_point.h"
#include "platform/tree_control.h"
#include "tree/tree_view.h"

namespace {

bool IsShiftDown() { return GetKeyState(VK_SHIFT) < 0; }

bool IsHandled(UINT message) {
  return message == WM_KEYDOWN || message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN ||
         message == WM_SETREDRAW || message == WM_PAINT;
}

}  // namespace

// Looks the view up only for messages that it handles.
LRESULT CALLBACK TreeControlSubclassProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (IsHandled(message)) {
    auto* view = reinterpret_cast<QVLTreeView*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (view) return view->HandleControlMessage({message, wParam, lParam});
  }
  return CallWindowProcW(savedControlProc, window, message, wParam, lParam);
}

LRESULT QVLTreeView::HandleControlMessage(const Input& input) {
  switch (input.message) {
    case WM_KEYDOWN:
      return HandleKeyDown(input);
    case WM_LBUTTONDOWN:
      return HandleLButtonDown(input);
    case WM_RBUTTONDOWN:
      return HandleRButtonDown(input);
    case WM_SETREDRAW:
      redraw.NoteRequest(input.wParam != 0);
      break;
    default:
      redraw.ReturnLateBars(controlWindow);
      break;
  }
  return Forward(input);
}

LRESULT QVLTreeView::Forward(const Input& input) {
  return CallWindowProcW(savedControlProc, controlWindow, input.message, input.wParam,
                         input.lParam);
}

// The button and the check box of an item count as the item.
ItemHandle QVLTreeView::ItemUnder(LPARAM clientPoint) {
  TVHITTESTINFO hit{};
  hit.pt = PointFromParam(clientPoint);
  return TreeControl::HitTest(controlWindow, hit);
}

LRESULT QVLTreeView::HandleKeyDown(const Input& input) {
  const WPARAM key = input.wParam;
  if (!multiSelect) return Forward(input);
  if ((key == VK_UP || key == VK_DOWN) && IsShiftDown()) {
    ExtendByKey(key);
    return 0;  // the control does not get the key
  }
  LifeWatch alive(life);
  // Codes below VK_SPACE include Shift and Ctrl; they must not clear the selection.
  if (key >= VK_SPACE) DeselectByKey();
  return alive ? Forward(input) : 0;
}

// Moves the caret by one item. If that item is not selected, the selection grows: the old item gets
// back the bit that moving the caret has cleared. If it is selected, the selection shrinks.
void QVLTreeView::ExtendByKey(WPARAM key) {
  SelectionBracket bracket(*this);
  if (!bracket) return;
  if (selectionAnchor == 0) {
    selectionAnchor = TreeControl::Caret(controlWindow);
    DeselectAll();
    if (!bracket) return;
  }
  HeldItem current(life, TreeControl::Caret(controlWindow));
  if (!current.Get()) return;
  const WPARAM direction = key == VK_UP ? TVGN_PREVIOUSVISIBLE : TVGN_NEXTVISIBLE;
  const ItemHandle next = TreeControl::NextItem(controlWindow, direction, current.Get());
  if (!next) return;
  const bool grows = !TreeControl::IsSelected(controlWindow, next);
  TreeControl::MoveCaret(controlWindow, next);
  if (grows && current.Get()) MarkAndReport(current.Get(), true);
}

void QVLTreeView::DeselectByKey() {
  SelectionBracket bracket(*this);
  if (!bracket) return;
  selectionAnchor = 0;
  DeselectAll();
}

LRESULT QVLTreeView::HandleLButtonDown(const Input& press) {
  if (!multiSelect) return Forward(press);
  const ItemHandle hit = ItemUnder(press.lParam);
  if (press.wParam & MK_CONTROL) return hit ? ToggleByPress(press, hit) : Forward(press);
  if (press.wParam & MK_SHIFT) return ExtendByPress(press, hit);
  return SelectByPress(press, hit);
}

// The context menu is requested during the forward.
LRESULT QVLTreeView::HandleRButtonDown(const Input& press) {
  LifeWatch alive(life);
  const LRESULT result = Forward(press);
  if (alive) ShowWholeSelection();
  return result;
}

// Ctrl: the item changes its state, the others keep theirs.
LRESULT QVLTreeView::ToggleByPress(const Input& press, ItemHandle hit) {
  HeldItem item(life, hit);
  SelectionBracket bracket(*this);
  if (!bracket) return 0;
  const bool wanted = item.Get() && !TreeControl::IsSelected(controlWindow, item.Get());
  HeldItem oldCaret(life, TreeControl::Caret(controlWindow));
  const bool oldState = oldCaret.Get() && TreeControl::IsSelected(controlWindow, oldCaret.Get());
  const bool onCaret = oldCaret.Get() == item.Get();
  if (onCaret) TreeControl::MoveCaret(controlWindow, 0);  // so that the press moves the caret
  if (bracket) Forward(press);
  if (item.Get()) MarkAndReport(item.Get(), wanted);
  if (oldCaret.Get() && !onCaret) MarkAndReport(oldCaret.Get(), oldState);
  if (bracket) selectionAnchor = 0;
  return 0;
}

// Shift: selects from the anchor, or else from the caret, to the item; without an item to the last
// one.
LRESULT QVLTreeView::ExtendByPress(const Input& press, ItemHandle hit) {
  HeldItem item(life, hit);
  SelectionBracket bracket(*this);
  if (!bracket) return 0;
  if (selectionAnchor == 0) selectionAnchor = TreeControl::Caret(controlWindow);
  if (TreeControl::Caret(controlWindow) == item.Get()) TreeControl::MoveCaret(controlWindow, 0);
  if (!bracket) return 0;
  const LRESULT result = Forward(press);
  if (!bracket || selectionAnchor == 0) return result;
  SelectRange(selectionAnchor, item);
  return 0;
}

// Neither key: selects the item alone, or nothing.
LRESULT QVLTreeView::SelectByPress(const Input& press, ItemHandle hit) {
  LifeWatch alive(life);
  {
    HeldItem item(life, hit);
    SelectionBracket bracket(*this);
    if (bracket) DeselectAll();
    // Moves the caret away first, because the item may be the caret, with its bit just cleared.
    if (item.Get()) TreeControl::MoveCaret(controlWindow, 0);
    if (item.Get()) TreeControl::MoveCaret(controlWindow, item.Get());
  }
  if (!alive) return 0;
  selectionAnchor = 0;
  return Forward(press);
}
