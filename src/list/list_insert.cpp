// Turns records into rows and cells.
#include "common/file_icon.h"
#include "list/list_view.h"
#include "platform/list_control.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace {

constexpr UINT kRowMask = LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM;

// For a cell only the text is sent. State index n shows state image n + 1. A record without a state
// index sets no state at all, cut included. The control copies the text and does not write to it.
LVITEMW NativeItem(const QVLTreeViewItem& item, int row, int image, bool isCell) {
  LVITEMW native{};
  const int stateIndex = item.GetStateIndex();
  native.mask = isCell ? LVIF_TEXT : kRowMask;
  if (!isCell && stateIndex != -1) native.mask |= LVIF_STATE;
  native.iItem = row;
  native.iSubItem = item.GetSubItem();
  native.pszText = const_cast<WCHAR*>(item.GetItemName());
  native.iImage = image;
  native.lParam = item.GetClientPtr();
  native.state = (static_cast<UINT>(stateIndex) + 1) << kStateImageShift;
  if (item.IsCut()) native.state |= LVIS_CUT;
  native.stateMask = LVIS_STATEIMAGEMASK | LVIS_CUT;
  return native;
}

}  // namespace

ItemHandle QVLListView::InsertItem(QVLTreeViewItem* item, ItemHandle parent) {
  if (!controlWindow) return -1;
  LifeWatch alive(life);
  const bool isCell = item->GetSubItem() > 0 && parent != -1;
  const int row = isCell ? SetCell(*item, ListControl::Named(parent)) : InsertRow(*item, parent);
  if (!alive || row == ListControl::kNoRow) return -1;
  ApplyCheckAndSelection(*item, row);
  return alive ? row : -1;
}

int QVLListView::SetCell(const QVLTreeViewItem& item, int row) {
  LVITEMW cell = NativeItem(item, row, ImageOfCell(item), true);
  return ListControl::SetItem(controlWindow, cell) ? row : ListControl::kNoRow;
}

// The counter moves even if the control refuses the row.
int QVLListView::InsertRow(const QVLTreeViewItem& item, ItemHandle parent) {
  LVITEMW row = NativeItem(item, nextRow, ImageOfNewRow(item), false);
  row.mask |= LVIF_INDENT;
  row.iSubItem = 0;
  row.iIndent = IndentUnder(parent, item);
  ++nextRow;
  return ListControl::InsertItem(controlWindow, row);
}

int QVLListView::IndentUnder(ItemHandle parent, const QVLTreeViewItem& item) const {
  std::int64_t indent = item.GetIndentOffset();
  if (parent != -1) {
    LVITEMW parentRow{};
    parentRow.mask = LVIF_INDENT;
    parentRow.iItem = ListControl::Named(parent);
    indent += 1;
    if (ListControl::GetItem(controlWindow, parentRow)) indent += parentRow.iIndent;
  }
  constexpr std::int64_t kDeepest = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp<std::int64_t>(indent, 0, kDeepest));
}

bool QVLListView::UpdateItem(QVLTreeViewItem* item, ItemHandle handle) {
  const int row = ListControl::Named(handle);
  if (!controlWindow || row == ListControl::kNoRow) return false;
  LifeWatch alive(life);
  const bool isCell = item->GetSubItem() > 0;
  const int image = isCell ? ImageOfCell(*item) : ImageOfRow(*item);
  LVITEMW native = NativeItem(*item, row, image, isCell);
  if (!ListControl::SetItem(controlWindow, native) || !alive) return false;
  ApplyCheckAndSelection(*item, row);
  return static_cast<bool>(alive);
}

// Only switches on. Both changes call the client.
void QVLListView::ApplyCheckAndSelection(const QVLTreeViewItem& item, int row) {
  LifeWatch alive(life);
  const bool selected = item.IsSelected();
  if ((styleFlags & QVLS_CHECKBOXES) && item.IsChecked()) {
    ListControl::SetStateImage(controlWindow, row, kCheckedBox);
  }
  if (alive && selected) ListControl::Select(controlWindow, row, true);
}

// Image 0 if the shell has no icon.
int QVLListView::ImageOfNewRow(const QVLTreeViewItem& item) const {
  return usingSystemImages ? IconOfNewItem(item).index : item.GetImageIndex();
}

int QVLListView::ImageOfRow(const QVLTreeViewItem& item) const {
  return usingSystemImages ? IconOfItem(item).index : item.GetImageIndex();
}

// The record is read as for a row, although the image is not sent.
int QVLListView::ImageOfCell(const QVLTreeViewItem& item) const {
  return usingSystemImages ? 0 : item.GetImageIndex();
}
