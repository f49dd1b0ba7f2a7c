// Operations on items and on the control that neither create nor select.
#include "platform/tool_tip.h"
#include "platform/tree_control.h"
#include "tree/tree_view.h"

int QVLTreeView::GetViewType() { return 1; }

bool QVLTreeView::DeleteItem(ItemHandle handle) {
  if (!controlWindow || handle == -1) return false;
  LifeWatch alive(life);
  return tree::DeleteItem(controlWindow, handle) && alive;
}

void QVLTreeView::DeleteAllItems() {
  if (controlWindow) tree::DeleteAllItems(controlWindow);
}

ItemHandle QVLTreeView::NeighbourOf(ItemHandle handle, WPARAM relation) {
  if (!controlWindow || handle == -1) return -1;
  return tree::NextItem(controlWindow, relation, handle);
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
  if (controlWindow) tree::Expand(controlWindow, handle, expand ? TVE_EXPAND : TVE_COLLAPSE);
}

bool QVLTreeView::IsItemExpanded(ItemHandle handle) {
  if (!controlWindow || handle == -1) return false;
  return tree::ItemState(controlWindow, handle, TVIS_EXPANDED) != 0;
}

void QVLTreeView::EnsureVisible(ItemHandle handle) {
  if (!controlWindow) return;
  tree::EnsureVisible(controlWindow, handle == -1 ? tree::FirstItem(controlWindow) : handle);
}

std::int64_t QVLTreeView::GetItemClientPtr(ItemHandle handle) {
  if (!controlWindow || handle == 0 || handle == -1) return 0;
  TVITEMW item{};
  item.mask = TVIF_PARAM;
  item.hItem = tree::Handle(handle);
  return tree::GetItem(controlWindow, item) ? item.lParam : 0;
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

void QVLTreeView::SetToolTipWidth(int width) {
  if (controlWindow) tool_tip::SetMaxWidth(tree::ToolTip(controlWindow), width);
}

void QVLTreeView::SetToolTipDelay(int delay) {
  if (controlWindow) tool_tip::SetInitialDelay(tree::ToolTip(controlWindow), delay);
}

bool QVLTreeView::SetBkColor(COLORREF color) {
  if (!controlWindow) return false;
  tree::SetBkColor(controlWindow, color);
  bkColor = color;
  if (usingSystemImages) SetSharedIconListBkColor(color);
  return true;
}

bool QVLTreeView::SetTextColor(COLORREF color) {
  if (!controlWindow) return false;
  tree::SetTextColor(controlWindow, color);
  return true;
}

bool QVLTreeView::SetImageList(HIMAGELIST images) {
  if (!controlWindow) return false;
  tree::SetImageList(controlWindow, TVSIL_NORMAL, images);
  return true;
}

bool QVLTreeView::SetStateImageList(HIMAGELIST images) {
  if (!controlWindow) return false;
  tree::SetImageList(controlWindow, TVSIL_STATE, images);
  return true;
}

void QVLTreeView::Show() {
  if (controlWindow) ShowWindow(controlWindow, SW_SHOW);
}

void QVLTreeView::Hide() {
  if (controlWindow) ShowWindow(controlWindow, SW_HIDE);
}

void QVLTreeView::Redraw() {
  if (controlWindow) InvalidateRect(controlWindow, nullptr, TRUE);
}
