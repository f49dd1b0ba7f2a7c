// Records become rows and cells, and the rows are listed.
#include "list/list_view.h"
#include "platform/list_control.h"
#include "view/file_icon.h"
#include "view/item_list.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace {

constexpr UINT kRowMask = LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM;

// The control copies the text and does not write to it.
LVITEMW NativeCell(const QVLTreeViewItem& item, int row) {
  LVITEMW native{};
  native.mask = LVIF_TEXT;
  native.iItem = row;
  native.iSubItem = item.GetSubItem();
  native.pszText = const_cast<WCHAR*>(item.GetItemName());
  return native;
}

// State index n shows state image n + 1. A record without a state index sets no state at all, cut
// included.
LVITEMW NativeRow(const QVLTreeViewItem& item, int row, int image) {
  LVITEMW native = NativeCell(item, row);
  native.mask = kRowMask;
  if (item.GetStateIndex() != -1) native.mask |= LVIF_STATE;
  native.iImage = image;
  native.lParam = item.GetClientPtr();
  native.state = (static_cast<UINT>(item.GetStateIndex()) + 1) << list::kStateImageShift;
  if (item.IsCut()) native.state |= LVIS_CUT;
  native.stateMask = LVIS_STATEIMAGEMASK | LVIS_CUT;
  return native;
}

}  // namespace

ItemHandle QVLListView::InsertItem(QVLTreeViewItem* item, ItemHandle parent) {
  if (!controlWindow) return -1;
  LifeWatch alive(life);
  const bool isCell = item->GetSubItem() > 0 && parent != -1;
  const int row = isCell ? SetCell(*item, list::Row(parent)) : InsertRow(*item, parent);
  if (!alive || row == list::kNoRow) return -1;
  ApplyCheckAndSelection(*item, row);
  return alive ? row : -1;
}

int QVLListView::SetCell(const QVLTreeViewItem& item, int row) {
  LVITEMW cell = NativeCell(item, row);
  return list::SetItem(controlWindow, cell) ? row : list::kNoRow;
}

// The counter moves whatever the control answers: a row goes behind those asked for before it.
int QVLListView::InsertRow(const QVLTreeViewItem& item, ItemHandle parent) {
  LVITEMW row = NativeRow(item, nextRow, ImageOfNewRow(item));
  row.mask |= LVIF_INDENT;
  row.iSubItem = 0;
  row.iIndent = IndentUnder(parent, item);
  ++nextRow;
  return list::InsertItem(controlWindow, row);
}

int QVLListView::IndentUnder(ItemHandle parent, const QVLTreeViewItem& item) const {
  std::int64_t indent = item.GetIndentOffset();
  if (parent != -1) {
    LVITEMW parentRow{};
    parentRow.mask = LVIF_INDENT;
    parentRow.iItem = list::Row(parent);
    indent += 1;
    if (list::GetItem(controlWindow, parentRow)) indent += parentRow.iIndent;
  }
  constexpr std::int64_t kDeepest = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp<std::int64_t>(indent, 0, kDeepest));
}

bool QVLListView::UpdateItem(QVLTreeViewItem* item, ItemHandle handle) {
  const int row = list::Row(handle);
  if (!controlWindow || row == list::kNoRow) return false;
  LifeWatch alive(life);
  LVITEMW native =
      item->GetSubItem() > 0 ? NativeCell(*item, row) : NativeRow(*item, row, ImageOfRow(*item));
  if (!list::SetItem(controlWindow, native) || !alive) return false;
  ApplyCheckAndSelection(*item, row);
  return static_cast<bool>(alive);
}

// Both only switch on, and the client hears of both.
void QVLListView::ApplyCheckAndSelection(const QVLTreeViewItem& item, int row) {
  LifeWatch alive(life);
  const bool selected = item.IsSelected();
  if ((styleFlags & QVLS_CHECKBOXES) && item.IsChecked()) {
    list::SetStateImage(controlWindow, row, list::kTickedBox);
  }
  if (alive && selected) list::Select(controlWindow, row, true);
}

// Image 0 where the shell has no answer.
int QVLListView::ImageOfNewRow(const QVLTreeViewItem& item) const {
  return usingSystemImages ? IconOfNewItem(item).index : item.GetImageIndex();
}

int QVLListView::ImageOfRow(const QVLTreeViewItem& item) const {
  return usingSystemImages ? IconOfItem(item).index : item.GetImageIndex();
}

std::int64_t QVLListView::GetItems(ItemHandleList* items, bool /*visibleOnly*/) {
  if (!controlWindow) return 0;
  AppendItems(*items, list::Rows(controlWindow));
  return static_cast<std::int64_t>(items->size());
}
