// Operations on rows and on the control that neither create nor select.
#include "list/list_view.h"
#include "platform/list_control.h"
#include "platform/tool_tip.h"
#include "view/file_icon.h"

int QVLListView::GetViewType() { return 2; }

bool QVLListView::DeleteItem(ItemHandle handle) {
  const int row = list::Row(handle);
  if (!controlWindow || row == list::kNoRow) return false;
  LifeWatch alive(life);
  return list::DeleteItem(controlWindow, row) && alive;
}

// The counter is reset first: the client may insert rows when it hears of the deletion.
void QVLListView::DeleteAllItems() {
  nextRow = 0;
  if (controlWindow) list::DeleteAllItems(controlWindow);
}

ItemHandle QVLListView::GetParentItem(ItemHandle handle) {
  const ItemHandle row = list::Row(handle);
  if (!controlWindow || row == list::kNoRow) return -1;
  return row > 0 ? row - 1 : -1;
}

ItemHandle QVLListView::GetFirstChildItem(ItemHandle handle) {
  const ItemHandle row = list::Row(handle);
  if (!controlWindow || row == list::kNoRow) return -1;
  return row + 1 < list::ItemCount(controlWindow) ? row + 1 : -1;
}

ItemHandle QVLListView::GetNextSiblingItem(ItemHandle handle) { return GetFirstChildItem(handle); }

void QVLListView::ExpandItem(ItemHandle /*handle*/, bool /*expand*/) {}

bool QVLListView::IsItemExpanded(ItemHandle /*handle*/) { return false; }

void QVLListView::EnsureVisible(ItemHandle handle) {
  if (!controlWindow || list::ItemCount(controlWindow) == 0) return;
  list::EnsureVisible(controlWindow, handle == -1 ? 0 : list::Row(handle));
}

std::int64_t QVLListView::GetItemClientPtr(ItemHandle handle) {
  if (!controlWindow || handle == -1) return 0;
  LVITEMW row{};
  row.mask = LVIF_PARAM;
  row.iItem = list::Row(handle);
  return list::GetItem(controlWindow, row) ? row.lParam : 0;
}

// Every row has the height of the top row.
bool QVLListView::GetScrollPosition(int* x, int* y) {
  if (!controlWindow) return false;
  const int top = list::TopRow(controlWindow);
  const RECT bounds = list::RowBounds(controlWindow, top);
  *x = -bounds.left;
  *y = (bounds.bottom - bounds.top) * top;
  return true;
}

void QVLListView::SetScrollPosition(int x, int y) {
  if (controlWindow) list::Scroll(controlWindow, x, y);
}

void QVLListView::SetToolTipWidth(int width) {
  if (controlWindow) tool_tip::SetMaxWidth(list::ToolTip(controlWindow), width);
}

void QVLListView::SetToolTipDelay(int delay) {
  if (controlWindow) tool_tip::SetInitialDelay(list::ToolTip(controlWindow), delay);
}

bool QVLListView::SetBkColor(COLORREF color) {
  if (!controlWindow) return false;
  list::SetBkColor(controlWindow, color);
  return true;
}

bool QVLListView::SetTextColor(COLORREF color) {
  if (!controlWindow) return false;
  list::SetTextColor(controlWindow, color);
  return true;
}

bool QVLListView::SetImageList(HIMAGELIST images) {
  if (!controlWindow) return false;
  list::SetImageList(controlWindow, LVSIL_SMALL, images);
  return true;
}

bool QVLListView::SetStateImageList(HIMAGELIST images) {
  if (!controlWindow) return false;
  list::SetImageList(controlWindow, LVSIL_STATE, images);
  return true;
}

// The control shares its image lists, so the system's own is safe with it.
bool QVLListView::UseSystemImageList() {
  if (!controlWindow) return false;
  const HIMAGELIST systemList = SystemIconList();
  if (!systemList) return false;
  list::SetImageList(controlWindow, LVSIL_SMALL, systemList);
  usingSystemImages = true;
  return true;
}

void QVLListView::Show() {
  if (controlWindow) ShowWindow(controlWindow, SW_SHOW);
}

void QVLListView::Hide() {
  if (controlWindow) ShowWindow(controlWindow, SW_HIDE);
}

void QVLListView::Redraw() {
  if (controlWindow) InvalidateRect(controlWindow, nullptr, TRUE);
}
