// Caret, expansion and check boxes.
#include "controls/tree_control.h"

namespace winsim {

bool TreeControl::SelectMessage(WPARAM relation, HTREEITEM handle) {
  if (relation == TVGN_CARET) return Select(handle);
  CountRows();
  const TreeItem* item = relation == TVGN_FIRSTVISIBLE ? Find(handle) : nullptr;
  if (!item || !IsShown(*item)) return false;
  ScrollTo(item->row);
  return true;
}

bool TreeControl::Select(HTREEITEM handle) {
  if (handle && !Find(handle)) return false;
  if (handle == caret) return true;
  if (TreeItem* former = Find(caret)) former->state &= ~static_cast<UINT>(TVIS_SELECTED);
  caret = handle;
  if (TreeItem* item = Find(handle)) {
    item->state |= TVIS_SELECTED;
    ShowBranchOf(handle);
    ScrollIntoView(handle);
  }
  NotifyItem(TVN_SELCHANGEDW, handle);
  return true;
}

// Expands the collapsed ancestors from the nearest up, as the user would. A notification may
// collapse an ancestor above, so the state of each is read when its turn comes.
void TreeControl::ShowBranchOf(HTREEITEM handle) {
  const TreeItem* item = Find(handle);
  while (item && item->parent != &root) {
    const HTREEITEM above = item->parent->handle;
    if (!(item->parent->state & TVIS_EXPANDED)) Expand(above, true);
    item = Find(above);
  }
}

bool TreeControl::ExpandMessage(WPARAM action, HTREEITEM handle) {
  switch (action & (TVE_COLLAPSE | TVE_EXPAND)) {
    case TVE_EXPAND:
      return Expand(handle, false);
    case TVE_COLLAPSE:
      return Collapse(handle, false);
    default:
      return false;
  }
}

// An expansion by message notifies only if it is the item's first, an expansion by the user always,
// even of an expanded item. The item counts as expanded once only after the notification, so a
// second expansion inside the notification notifies too.
bool TreeControl::Expand(HTREEITEM handle, bool byUser) {
  TreeItem* item = Find(handle);
  if (!item || !item->firstChild) return false;
  const bool first = !(item->state & TVIS_EXPANDEDONCE);
  if ((item->state & TVIS_EXPANDED) && !first && !byUser) return true;
  item->state |= TVIS_EXPANDED;
  LayoutChanged();
  ScrollBranchIntoView(handle);
  if (byUser || first) NotifyItem(TVN_ITEMEXPANDEDW, handle, TVE_EXPAND);
  item = Find(handle);
  if (item) item->state |= TVIS_EXPANDEDONCE;
  return true;
}

// A collapse by message does not notify.
bool TreeControl::Collapse(HTREEITEM handle, bool byUser) {
  TreeItem* item = Find(handle);
  if (!item || !item->firstChild || !(item->state & TVIS_EXPANDED)) return false;
  item->state &= ~static_cast<UINT>(TVIS_EXPANDED);
  LayoutChanged();
  if (byUser) NotifyItem(TVN_ITEMEXPANDEDW, handle, TVE_COLLAPSE);
  if (TreeItem* head = Find(handle)) LeaveBranch(head);
  return true;
}

// Moves the caret and the first visible item from inside the branch to its head without
// notification.
void TreeControl::LeaveBranch(TreeItem* head) {
  TreeItem* current = Find(caret);
  if (current && current != head && IsInBranch(current, head)) {
    current->state &= ~static_cast<UINT>(TVIS_SELECTED);
    head->state |= TVIS_SELECTED;
    caret = head->handle;
  }
  const TreeItem* first = Find(firstVisible);
  if (first && IsInBranch(first, head)) firstVisible = head->handle;
}

void TreeControl::ToggleExpansion(HTREEITEM handle) {
  const TreeItem* item = Find(handle);
  if (item && (item->state & TVIS_EXPANDED)) {
    Collapse(handle, true);
  } else {
    Expand(handle, true);
  }
}

// Exchanges the unchecked and the checked box; other state images stay. Does not notify.
void TreeControl::ToggleBox(HTREEITEM handle) {
  TreeItem* item = Find(handle);
  const UINT box = item ? (item->state & TVIS_STATEIMAGEMASK) >> 12 : 0;
  if (box == 1 || box == 2) item->state ^= INDEXTOSTATEIMAGEMASK(1 ^ 2);
}

}  // namespace winsim
