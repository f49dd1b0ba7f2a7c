// Mouse and keys of the list.
#include <algorithm>
#include <utility>

#include "controls/drag_start.h"
#include "controls/list_control.h"
#include "window/control_class.h"

namespace winsim {
namespace {

LVHITTESTINFO HitInfo(POINT point) {
  LVHITTESTINFO info = {};
  info.pt = point;
  return info;
}

bool IsDown(int key) { return GetKeyState(key) < 0; }

}  // namespace

// A press on a box only toggles it. A press on a selected row takes effect when the button is
// released on that row, also after a drag.
LRESULT ListControl::LeftButtonDown(WPARAM keys, POINT point) {
  LVHITTESTINFO hit = HitInfo(point);
  const int row = HitTest(&hit);
  pressedRow = -1;
  if (row != -1 && hit.flags == LVHT_ONITEMSTATEICON && (extendedStyle & LVS_EX_CHECKBOXES)) {
    ToggleBox(row);
    return 0;
  }
  pressed = true;
  pressPoint = point;
  if (row != -1) {
    PressRow(row, keys);
  } else if (!(keys & (MK_CONTROL | MK_SHIFT))) {
    DeselectOthers(-1);
  }
  SetFocus(window);
  return 0;
}

void ListControl::PressRow(int row, WPARAM keys) {
  const bool selected = (Row(row).state & LVIS_SELECTED) != 0;
  const bool single = (Style() & LVS_SINGLESEL) != 0;
  if (single && selected) return;
  if (!single && (keys & MK_SHIFT)) {
    if (!(keys & MK_CONTROL)) DeselectOutside(row);
    SelectRange(row);
  } else if (!single && (keys & MK_CONTROL)) {
    ChangeState(row, LVIS_FOCUSED | (selected ? 0 : LVIS_SELECTED), LVIS_SELECTED | LVIS_FOCUSED);
    anchor = row;
  } else if (selected) {
    pressedRow = row;
    FocusOn(row);
  } else {
    SelectOnly(row);
  }
}

LRESULT ListControl::LeftButtonUp(POINT point) {
  pressed = false;
  const int row = std::exchange(pressedRow, -1);
  LVHITTESTINFO hit = HitInfo(point);
  if (row != -1 && HitTest(&hit) == row) SelectOnly(row);
  return 0;
}

LRESULT ListControl::MouseMoved(POINT point) {
  if (!pressed || IsNear(pressPoint, point)) return 0;
  pressed = false;
  LVHITTESTINFO hit = HitInfo(pressPoint);
  const int row = HitTest(&hit);
  if (row != -1) NotifyRow(LVN_BEGINDRAG, row);
  return 0;
}

// Selects the row under the mouse, which the context menu is for.
LRESULT ListControl::RightButtonDown(POINT point) {
  LVHITTESTINFO hit = HitInfo(point);
  const int row = HitTest(&hit);
  if (row == -1) {
    DeselectOthers(-1);
  } else {
    FocusOn(row);
    if (IsRow(row) && !(Row(row).state & LVIS_SELECTED)) SelectOnly(row);
  }
  SetFocus(window);
  if (WaitForDrag(window, point, WM_RBUTTONUP)) return 0;
  Notify(window, NM_RCLICK);
  SendMessageW(window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window),
               static_cast<LPARAM>(GetMessagePos()));
  return 0;
}

LRESULT ListControl::KeyDown(WPARAM key) {
  if (key == VK_SPACE) {
    PressSpace();
  } else {
    MoveByKey(RowForKey(key));
  }
  return 0;
}

// The row that the key moves the focus to; no row for other keys.
int ListControl::RowForKey(WPARAM key) const {
  const int last = Count() - 1;
  const int page = std::max(PageRows(), 1);
  switch (key) {
    case VK_UP:
      return focus - 1;
    case VK_DOWN:
      return std::min(focus + 1, last);
    case VK_HOME:
      return 0;
    case VK_END:
      return last;
    case VK_PRIOR:
      return focus > top ? top : std::max(focus - page + 1, 0);
    case VK_NEXT:
      return std::min(focus == top + page - 1 ? focus + page - 1 : top + page - 1, last);
    default:
      return -1;
  }
}

void ListControl::MoveByKey(int row) {
  if (!IsRow(row) || row == focus) return;
  const bool single = (Style() & LVS_SINGLESEL) != 0;
  if (!single && IsDown(VK_SHIFT)) {
    DeselectOutside(row);
    SelectRange(row);
  } else if (!single && IsDown(VK_CONTROL)) {
    FocusOn(row);
  } else {
    SelectOnly(row);
  }
  EnsureVisible(row);
}

void ListControl::PressSpace() {
  const int row = focus;
  if (extendedStyle & LVS_EX_CHECKBOXES) ToggleBox(row);
  if (!IsRow(row)) return;
  if (!(Style() & LVS_SINGLESEL) && IsDown(VK_CONTROL)) {
    ChangeState(row, ~Row(row).state & LVIS_SELECTED, LVIS_SELECTED);
    anchor = row;
  } else {
    SelectOnly(row);
  }
}

}  // namespace winsim
