// Operations on a list's rows and on its control, except creation and selection.
#include "common/file_icon.h"
#include "list/list_view.h"
#include "platform/list_control.h"

int QVLListView::GetViewType() { return QVLVT_LIST; }

bool QVLListView::DeleteItem(ItemHandle handle) {
  const int row = ListControl::Named(handle);
  if (!controlWindow || row == ListControl::kNoRow) return false;
  LifeWatch alive(life);
  return ListControl::DeleteItem(controlWindow, row) && alive;
}

void QVLListView::DeleteAllItems() {
  LifeWatch alive(life);
  if (controlWindow) ListControl::DeleteAllItems(controlWindow);
  if (alive) nextRow = 0;
}

std::int64_t QVLListView::GetItems(ItemHandleList* items, bool /*visibleOnly*/) {
  if (!controlWindow) return 0;
  AppendItems(*items, ListControl::Rows(controlWindow));
  return static_cast<std::int64_t>(items->size());
}

ItemHandle QVLListView::GetParentItem(ItemHandle handle) {
  const ItemHandle row = ListControl::Named(handle);
  if (!controlWindow || row == ListControl::kNoRow) return -1;
  return row > 0 ? row - 1 : -1;
}

ItemHandle QVLListView::GetFirstChildItem(ItemHandle handle) {
  const ItemHandle row = ListControl::Named(handle);
  if (!controlWindow || row == ListControl::kNoRow) return -1;
  return row + 1 < ListControl::ItemCount(controlWindow) ? row + 1 : -1;
}

ItemHandle QVLListView::GetNextSiblingItem(ItemHandle handle) { return GetFirstChildItem(handle); }

void QVLListView::ExpandItem(ItemHandle /*handle*/, bool /*expand*/) {}

bool QVLListView::IsItemExpanded(ItemHandle /*handle*/) { return false; }

void QVLListView::ExpandAll() {}

void QVLListView::CollapseAll() {}

void QVLListView::EnsureVisible(ItemHandle handle) {
  if (!controlWindow || ListControl::ItemCount(controlWindow) == 0) return;
  ListControl::EnsureVisible(controlWindow, handle == -1 ? 0 : ListControl::Named(handle));
}

std::int64_t QVLListView::GetItemClientPtr(ItemHandle handle) {
  if (!controlWindow || handle == -1) return 0;
  LVITEMW row{};
  row.mask = LVIF_PARAM;
  row.iItem = ListControl::Named(handle);
  return ListControl::GetItem(controlWindow, row) ? row.lParam : 0;
}

// All rows have the height of the top row.
bool QVLListView::GetScrollPosition(int* x, int* y) {
  if (!controlWindow) return false;
  const int top = ListControl::TopRow(controlWindow);
  const RECT bounds = ListControl::RowBounds(controlWindow, top);
  *x = -bounds.left;
  *y = (bounds.bottom - bounds.top) * top;
  return true;
}

void QVLListView::SetScrollPosition(int x, int y) {
  if (controlWindow) ListControl::Scroll(controlWindow, x, y);
}

bool QVLListView::SetBkColor(COLORREF color) {
  if (!controlWindow) return false;
  ListControl::SetBkColor(controlWindow, color);
  return true;
}

// The control shares its image lists, so it does not destroy the system's list.
bool QVLListView::UseSystemImageList() {
  if (!controlWindow) return false;
  const HIMAGELIST systemList = SystemIconList();
  if (!systemList) return false;
  ListControl::SetImageList(controlWindow, LVSIL_SMALL, systemList);
  usingSystemImages = true;
  return true;
}
