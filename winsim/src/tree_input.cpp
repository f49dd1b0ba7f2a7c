// Mouse, keys and focus.
#include <algorithm>

#include "tracking.h"
#include "tree_control.h"

namespace winsim {
namespace {

TVHITTESTINFO HitInfo(LPARAM lParam) {
  TVHITTESTINFO info = {};
  info.pt = {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
  return info;
}

}  // namespace

// Where a press selects, ticks or begins a drag.
bool TreeControl::CanBePressed(UINT hitFlags) const {
  if (hitFlags & TVHT_ONITEM) {
    return true;
  }
  const bool fullRow = (Style() & TVS_FULLROWSELECT) && !(Style() & TVS_HASLINES);
  return fullRow && (hitFlags & (TVHT_ONITEMRIGHT | TVHT_ONITEMINDENT));
}

LRESULT TreeControl::LeftButtonDown(LPARAM lParam) {
  if (edit_) {
    SetFocus(window_);
  }
  TVHITTESTINFO hit = HitInfo(lParam);
  HitTest(&hit);
  const bool pressed = CanBePressed(hit.flags);
  const bool drags = !(Style() & TVS_DISABLEDRAGDROP);
  if (pressed && drags && WaitForDrag(window_, hit.pt, WM_LBUTTONUP)) {
    BeginDrag(TVN_BEGINDRAGW, hit.hItem, hit.pt);
    return 0;
  }
  NMHDR click = {};
  if (Gone() || Notify(window_, NM_CLICK, &click) || Gone()) {
    return 0;
  }
  if (hit.flags & TVHT_ONITEMBUTTON) {
    ToggleExpansion(hit.hItem);
  } else if (hit.flags & TVHT_ONITEMSTATEICON) {
    ToggleBox(hit.hItem);
  } else if (pressed) {
    Select(hit.hItem, TVC_BYMOUSE);
  }
  if (!Gone()) {
    SetFocus(window_);
  }
  return 0;
}

LRESULT TreeControl::RightButtonDown(LPARAM lParam) {
  SetFocus(window_);
  TVHITTESTINFO hit = HitInfo(lParam);
  HitTest(&hit);
  if (WaitForDrag(window_, hit.pt, WM_RBUTTONUP)) {
    if (hit.hItem) {
      BeginDrag(TVN_BEGINRDRAGW, hit.hItem, hit.pt);
    }
    return 0;
  }
  NMHDR click = {};
  if (!Gone() && !Notify(window_, NM_RCLICK, &click) && !Gone()) {
    SendMessageW(window_, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window_),
                 static_cast<LPARAM>(GetMessagePos()));
  }
  return 0;
}

void TreeControl::BeginDrag(UINT code, HTREEITEM handle, POINT point) {
  const TreeItem* item = Find(handle);
  if (!item) {
    return;
  }
  NMTREEVIEWW record = {};
  record.itemNew.mask = TVIF_STATE | TVIF_PARAM | TVIF_HANDLE;
  record.itemNew.hItem = handle;
  record.itemNew.state = item->state;
  record.itemNew.lParam = item->param;
  record.ptDrag = point;
  Notify(window_, code, &record.hdr);
}

// Only the empty and the ticked box change places; any other state image stays.
void TreeControl::ToggleBox(HTREEITEM handle) {
  TreeItem* item = Find(handle);
  const UINT box = item ? (item->state & TVIS_STATEIMAGEMASK) >> 12 : 0;
  if (box == 1 || box == 2) {
    item->state ^= TVIS_STATEIMAGEMASK & 0x3000;
  }
}

LRESULT TreeControl::KeyDown(WPARAM key) {
  alignas(NMHDR) NMTVKEYDOWN record = {};
  record.wVKey = static_cast<WORD>(key);
  void* const header = &record;  // the record is packed, and aligned here
  if (Notify(window_, TVN_KEYDOWN, static_cast<NMHDR*>(header)) || Gone() || !Find(caret_)) {
    return 0;
  }
  switch (key) {
    case VK_ADD:
    case VK_SUBTRACT:
    case VK_MULTIPLY:
    case VK_LEFT:
    case VK_RIGHT:
      ExpandByKey(key);
      return 0;
    case VK_SPACE:
      if (Style() & TVS_CHECKBOXES) {
        ToggleBox(caret_);
      }
      return 0;
    case VK_RETURN: {
      NMHDR pressed = {};
      Notify(window_, NM_RETURN, &pressed);
      return 0;
    }
    default:
      MoveCaretByKey(key);
      return 0;
  }
}

void TreeControl::MoveCaretByKey(WPARAM key) {
  SettleLayout();
  WriteRows();
  const TreeItem* caret = Find(caret_);
  if (!caret || rows_.empty()) {
    return;
  }
  const int last = static_cast<int>(rows_.size()) - 1;
  int row = caret->row;
  switch (key) {
    case VK_UP:
      row -= 1;
      break;
    case VK_DOWN:
      row += 1;
      break;
    case VK_PRIOR:
      row -= PageRows();
      break;
    case VK_NEXT:
      row += PageRows();
      break;
    case VK_HOME:
      row = 0;
      break;
    case VK_END:
      row = last;
      break;
    case VK_BACK:
      if (caret->parent != &root_) {
        Select(caret->parent->handle, TVC_BYKEYBOARD);
      }
      return;
    default:
      return;
  }
  Select(rows_[static_cast<std::size_t>(std::clamp(row, 0, last))]->handle, TVC_BYKEYBOARD);
}

void TreeControl::ExpandByKey(WPARAM key) {
  const TreeItem* caret = Find(caret_);
  const bool open = (caret->state & TVIS_EXPANDED) && caret->firstChild;
  switch (key) {
    case VK_ADD:
      Expand(caret_, true);
      return;
    case VK_SUBTRACT:
      Collapse(caret_, true);
      return;
    case VK_MULTIPLY:
      ExpandWholeBranch(caret_);
      return;
    case VK_LEFT:
      // An item that lost all its children stays expanded, and the key stays with it.
      if (caret->state & TVIS_EXPANDED) {
        Collapse(caret_, true);
      } else if (caret->parent != &root_) {
        Select(caret->parent->handle, TVC_BYKEYBOARD);
      }
      return;
    default:
      if (open) {
        Select(caret->firstChild->handle, TVC_BYKEYBOARD);
      } else {
        Expand(caret_, true);
      }
      return;
  }
}

void TreeControl::ExpandWholeBranch(HTREEITEM handle) {
  Expand(handle, true);
  std::vector<HTREEITEM> children;
  const TreeItem* item = Find(handle);
  for (const TreeItem* child = item ? item->firstChild : nullptr; child; child = child->next) {
    children.push_back(child->handle);
  }
  for (HTREEITEM child : children) {
    ExpandWholeBranch(child);
  }
}

// A tree that gets the focus without a caret puts it on its first item.
void TreeControl::Focused() {
  if (!caret_ && root_.firstChild) {
    Select(root_.firstChild->handle, TVC_UNKNOWN);
  }
  NMHDR header = {};
  if (!Gone()) {
    Notify(window_, NM_SETFOCUS, &header);
  }
}

}  // namespace winsim
