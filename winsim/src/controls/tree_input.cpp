// Mouse, keys and focus of the tree.
#include <algorithm>

#include "controls/drag_start.h"
#include "controls/tree_control.h"
#include "window/control_class.h"

namespace winsim {

// Whether a press there selects an item, toggles its box or begins a drag.
bool TreeControl::CanBePressed(UINT hitFlags) const {
  if (hitFlags & TVHT_ONITEM) return true;
  const bool fullRow = (Style() & TVS_FULLROWSELECT) && !(Style() & TVS_HASLINES);
  return fullRow && (hitFlags & (TVHT_ONITEMRIGHT | TVHT_ONITEMINDENT));
}

LRESULT TreeControl::LeftButtonDown(POINT point) {
  if (edit) SetFocus(window);
  TVHITTESTINFO hit = {};
  hit.pt = point;
  HitTest(&hit);
  const bool pressed = CanBePressed(hit.flags);
  const bool drags = !(Style() & TVS_DISABLEDRAGDROP);
  if (pressed && drags && WaitForDrag(window, point, WM_LBUTTONUP)) {
    NotifyItem(TVN_BEGINDRAGW, hit.hItem);
    return 0;
  }
  if (hit.flags & TVHT_ONITEMBUTTON) {
    ToggleExpansion(hit.hItem);
  } else if (hit.flags & TVHT_ONITEMSTATEICON) {
    ToggleBox(hit.hItem);
  } else if (pressed) {
    Select(hit.hItem);
  }
  SetFocus(window);
  return 0;
}

LRESULT TreeControl::RightButtonDown(POINT point) {
  SetFocus(window);
  if (WaitForDrag(window, point, WM_RBUTTONUP) || Notify(window, NM_RCLICK)) return 0;
  SendMessageW(window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window),
               static_cast<LPARAM>(GetMessagePos()));
  return 0;
}

LRESULT TreeControl::KeyDown(WPARAM key) {
  const TreeItem* current = Find(caret);
  if (!current) return 0;
  switch (key) {
    case VK_ADD:
      Expand(caret, true);
      return 0;
    case VK_SUBTRACT:
      Collapse(caret, true);
      return 0;
    case VK_MULTIPLY:
      ExpandWholeBranch(caret);
      return 0;
    case VK_LEFT:
      CollapseOrLeave(*current);
      return 0;
    case VK_RIGHT:
      ExpandOrEnter(*current);
      return 0;
    case VK_BACK:
      SelectParentOf(*current);
      return 0;
    case VK_SPACE:
      if (Style() & TVS_CHECKBOXES) ToggleBox(caret);
      return 0;
    default:
      MoveCaretByKey(key);
      return 0;
  }
}

void TreeControl::MoveCaretByKey(WPARAM key) {
  SettleLayout();
  CountRows();
  const int last = static_cast<int>(rows.size()) - 1;
  int row = Find(caret)->row;
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
    default:
      return;
  }
  Select(rows[static_cast<std::size_t>(std::clamp(row, 0, last))]->handle);
}

// An item that lost all its children stays expanded; then the key has no effect.
void TreeControl::CollapseOrLeave(const TreeItem& item) {
  if (item.state & TVIS_EXPANDED) {
    Collapse(item.handle, true);
  } else {
    SelectParentOf(item);
  }
}

void TreeControl::ExpandOrEnter(const TreeItem& item) {
  if ((item.state & TVIS_EXPANDED) && item.firstChild) {
    Select(item.firstChild->handle);
  } else {
    Expand(item.handle, true);
  }
}

void TreeControl::SelectParentOf(const TreeItem& item) {
  if (item.parent != &root) Select(item.parent->handle);
}

void TreeControl::ExpandWholeBranch(HTREEITEM handle) {
  Expand(handle, true);
  std::vector<HTREEITEM> children;
  const TreeItem* item = Find(handle);
  for (const TreeItem* child = item ? item->firstChild : nullptr; child; child = child->next) {
    children.push_back(child->handle);
  }
  for (HTREEITEM child : children) ExpandWholeBranch(child);
}

// A tree that gets the focus without a caret moves the caret to its first item.
void TreeControl::Focused() {
  if (!caret && root.firstChild) Select(root.firstChild->handle);
  Notify(window, NM_SETFOCUS);
}

}  // namespace winsim
