// Mouse and keys.
#include <algorithm>
#include <utility>

#include "list_control.h"
#include "tracking.h"

namespace winsim {
namespace {

constexpr UINT kBoth = LVIS_SELECTED | LVIS_FOCUSED;

LVHITTESTINFO HitInfo(LPARAM lParam) {
  LVHITTESTINFO info = {};
  info.pt = {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
  return info;
}

bool IsDown(int key) { return GetKeyState(key) < 0; }

}  // namespace

void ListControl::NotifyClick(UINT code, LPARAM lParam) {
  LVHITTESTINFO hit = HitInfo(lParam);
  NMITEMACTIVATE record = {};
  record.iItem = HitTest(&hit);
  record.ptAction = hit.pt;
  Notify(window_, code, &record.hdr);
}

void ListControl::NotifyDrag(UINT code, int row, POINT point) {
  NMLISTVIEW record = {};
  record.iItem = row;
  record.ptAction = point;
  Notify(window_, code, &record.hdr);
}

// On a box the press ticks and nothing more. Elsewhere it selects; a row that is selected already
// waits for the button to come up on it, be it after a drag.
LRESULT ListControl::LeftButtonDown(WPARAM keys, LPARAM lParam) {
  NotifySimple(NM_RELEASEDCAPTURE);
  if (Gone()) {
    return 0;
  }
  LVHITTESTINFO hit = HitInfo(lParam);
  const int row = HitTest(&hit);
  pressedRow_ = -1;
  if (row != -1 && hit.flags == LVHT_ONITEMSTATEICON && (extendedStyle_ & LVS_EX_CHECKBOXES)) {
    NotifyClick(NM_CLICK, lParam);
    ToggleBox(row);
    return 0;
  }
  pressed_ = true;
  pressPoint_ = hit.pt;
  if (row != -1) {
    PressRow(row, keys);
  } else if (!(keys & (MK_CONTROL | MK_SHIFT))) {
    DeselectOthers(-1);
  }
  if (!Gone()) {
    SetFocus(window_);
  }
  return 0;
}

void ListControl::PressRow(int row, WPARAM keys) {
  const bool selected = (Row(row).state & LVIS_SELECTED) != 0;
  const bool single = (Style() & LVS_SINGLESEL) != 0;
  if (single && selected) {
    return;
  }
  if (!single && (keys & MK_SHIFT)) {
    if (!(keys & MK_CONTROL)) {
      DeselectOutside(row);
    }
    SelectRange(row);
  } else if (!single && (keys & MK_CONTROL)) {
    ChangeState(row, LVIS_FOCUSED | (selected ? 0 : LVIS_SELECTED), kBoth);
    mark_ = row;
  } else if (selected) {
    pressedRow_ = row;
    FocusOn(row);
  } else {
    SelectOnly(row);
  }
}

LRESULT ListControl::LeftButtonUp(LPARAM lParam) {
  const bool wasPressed = std::exchange(pressed_, false);
  const int row = std::exchange(pressedRow_, -1);
  if (!wasPressed && pressPoint_.x < 0) {
    return 0;
  }
  pressPoint_ = {-1, -1};
  NotifyClick(NM_CLICK, lParam);
  LVHITTESTINFO hit = HitInfo(lParam);
  if (!Gone() && IsRow(row) && HitTest(&hit) == row) {
    SelectOnly(row);
  }
  return 0;
}

void ListControl::MouseMoved(LPARAM lParam) {
  if (!pressed_) {
    return;
  }
  const int x = static_cast<short>(LOWORD(lParam));
  const int y = static_cast<short>(HIWORD(lParam));
  if (IsNear(pressPoint_, x, y)) {
    return;
  }
  pressed_ = false;
  LVHITTESTINFO hit = {};
  hit.pt = pressPoint_;
  const int row = HitTest(&hit);
  if (row == -1) {
    NotifySimple(LVN_MARQUEEBEGIN);
    return;
  }
  NotifyDrag(LVN_BEGINDRAG, row, pressPoint_);
}

// Selects what is under the mouse, so that the menu stands for it.
LRESULT ListControl::RightButtonDown(LPARAM lParam) {
  NotifySimple(NM_RELEASEDCAPTURE);
  if (Gone()) {
    return 0;
  }
  LVHITTESTINFO hit = HitInfo(lParam);
  const int row = HitTest(&hit);
  if (row == -1) {
    DeselectOthers(-1);
  } else {
    FocusOn(row);
    if (!Gone() && IsRow(row) && !(Row(row).state & LVIS_SELECTED)) {
      SelectOnly(row);
    }
  }
  if (Gone()) {
    return 0;
  }
  SetFocus(window_);
  if (WaitForDrag(window_, hit.pt, WM_RBUTTONUP)) {
    NotifyDrag(LVN_BEGINRDRAG, row, hit.pt);
    return 0;
  }
  if (!Gone()) {
    NotifyClick(NM_RCLICK, lParam);
  }
  if (!Gone()) {
    SendMessageW(window_, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window_),
                 static_cast<LPARAM>(GetMessagePos()));
  }
  return 0;
}

LRESULT ListControl::KeyDown(WPARAM key) {
  alignas(NMHDR) NMLVKEYDOWN record = {};
  record.wVKey = static_cast<WORD>(key);
  void* const header = &record;  // the record is packed, and aligned here
  Notify(window_, LVN_KEYDOWN, static_cast<NMHDR*>(header));
  if (Gone() || rows_.empty()) {
    return 0;
  }
  const int page = std::max(PageRows(), 1);
  switch (key) {
    case VK_SPACE:
      PressSpace();
      return 0;
    case VK_RETURN:
      NotifySimple(NM_RETURN);
      return 0;
    case VK_UP:
      MoveByKey(focus_ - 1);
      return 0;
    case VK_DOWN:
      MoveByKey(std::min(focus_ + 1, Count() - 1));
      return 0;
    case VK_HOME:
      MoveByKey(0);
      return 0;
    case VK_END:
      MoveByKey(Count() - 1);
      return 0;
    case VK_PRIOR:
      MoveByKey(focus_ > top_ ? top_ : std::max(focus_ - page + 1, 0));
      return 0;
    case VK_NEXT:
      MoveByKey(
          std::min(focus_ == top_ + page - 1 ? focus_ + page - 1 : top_ + page - 1, Count() - 1));
      return 0;
    default:
      return 0;
  }
}

void ListControl::MoveByKey(int row) {
  if (!IsRow(row) || row == focus_) {
    return;
  }
  if (!(Style() & LVS_SINGLESEL) && IsDown(VK_SHIFT)) {
    DeselectOutside(row);
    SelectRange(row);
  } else if (!(Style() & LVS_SINGLESEL) && IsDown(VK_CONTROL)) {
    FocusOn(row);
  } else {
    SelectOnly(row);
  }
  if (!Gone()) {
    EnsureVisible(row);
  }
}

void ListControl::PressSpace() {
  const int row = focus_;
  if (!IsRow(row)) {
    return;
  }
  if (extendedStyle_ & LVS_EX_CHECKBOXES) {
    ToggleBox(row);
  }
  if (Gone() || !IsRow(row)) {
    return;
  }
  if (!(Style() & LVS_SINGLESEL) && IsDown(VK_CONTROL)) {
    ChangeState(row, ~Row(row).state & LVIS_SELECTED, LVIS_SELECTED);
    mark_ = row;
  } else {
    SelectOnly(row);
  }
}

}  // namespace winsim
