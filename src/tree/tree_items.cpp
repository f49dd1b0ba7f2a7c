// Operations on a tree's items and on its control, except creation and selection.
#include "platform/tree_control.h"
#include "tree/tree_view.h"
#include "tree/visible_walk.h"

int QVLTreeView::GetViewType() { return QVLVT_TREE; }

bool QVLTreeView::DeleteItem(ItemHandle handle) {
  if (!controlWindow || handle == -1) return false;
  LifeWatch alive(life);
  return TreeControl::DeleteItem(controlWindow, handle) && alive;
}

void QVLTreeView::DeleteAllItems() {
  if (controlWindow) TreeControl::DeleteAllItems(controlWindow);
}

std::int64_t QVLTreeView::GetItems(ItemHandleList* items, bool visibleOnly) {
  if (!controlWindow) return 0;
  if (visibleOnly) {
    AppendItems(*items, TreeControl::VisibleItems(controlWindow));
  } else {
    AppendItems(*items,
                TreeControl::BranchItems(controlWindow, TreeControl::FirstItem(controlWindow)));
  }
  return static_cast<std::int64_t>(items->size());
}

ItemHandle QVLTreeView::NeighbourOf(ItemHandle handle, WPARAM relation) {
  if (!controlWindow || handle == -1) return -1;
  return TreeControl::NextItem(controlWindow, relation, handle);
}

ItemHandle QVLTreeView::GetParentItem(ItemHandle handle) {
  return NeighbourOf(handle, TVGN_PARENT);
}

ItemHandle QVLTreeView::GetFirstChildItem(ItemHandle handle) {
  return NeighbourOf(handle, TVGN_CHILD);
}

ItemHandle QVLTreeView::GetNextSiblingItem(ItemHandle handle) {
  return NeighbourOf(handle, TVGN_NEXT);
}

void QVLTreeView::ExpandItem(ItemHandle handle, bool expand) {
  if (!controlWindow) return;
  TreeControl::Expand(controlWindow, handle, expand ? TVE_EXPAND : TVE_COLLAPSE);
}

bool QVLTreeView::IsItemExpanded(ItemHandle handle) {
  if (!controlWindow || handle == -1) return false;
  return TreeControl::ItemState(controlWindow, handle, TVIS_EXPANDED) != 0;
}

// The children become visible before the walk goes on, so it reaches every item.
void QVLTreeView::ExpandAll() { ExpandVisibleItems(TVE_EXPAND); }

// The children are hidden before the walk goes on, so it reaches only the top level.
void QVLTreeView::CollapseAll() { ExpandVisibleItems(TVE_COLLAPSE); }

void QVLTreeView::ExpandVisibleItems(WPARAM action) {
  if (!controlWindow) return;
  RedrawPause pause(controlWindow, redraw, life);
  for (const ItemHandle item : VisibleWalk(controlWindow, life)) {
    pause.BeforeChange();
    TreeControl::Expand(controlWindow, item, action);
  }
}

void QVLTreeView::EnsureVisible(ItemHandle handle) {
  if (!controlWindow) return;
  const ItemHandle item = handle == -1 ? TreeControl::FirstItem(controlWindow) : handle;
  TreeControl::EnsureVisible(controlWindow, item);
}

std::int64_t QVLTreeView::GetItemClientPtr(ItemHandle handle) {
  if (!controlWindow || handle == 0 || handle == -1) return 0;
  TVITEMW item{};
  item.mask = TVIF_PARAM;
  item.hItem = TreeControl::Handle(handle);
  return TreeControl::GetItem(controlWindow, item) ? item.lParam : 0;
}

bool QVLTreeView::GetScrollPosition(int* x, int* y) {
  if (!controlWindow) return false;
  const auto position = [this](int bar) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_POS;
    return GetScrollInfo(controlWindow, bar, &info) ? info.nPos : 0;
  };
  *x = position(SB_HORZ);
  *y = position(SB_VERT);
  return true;
}

void QVLTreeView::SetScrollPosition(int x, int y) {
  if (!controlWindow) return;
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_POS;
  info.nPos = x;
  SetScrollInfo(controlWindow, SB_HORZ, &info, TRUE);
  info.nPos = y;
  SetScrollInfo(controlWindow, SB_VERT, &info, TRUE);
}

bool QVLTreeView::SetBkColor(COLORREF color) {
  if (!controlWindow) return false;
  TreeControl::SetBkColor(controlWindow, color);
  bkColor = color;
  if (usingSystemImages) SetSharedIconListBkColor(color);
  return true;
}
