// Turns records into tree items.
#include "platform/tree_control.h"
#include "tree/tree_view.h"

namespace {

constexpr UINT kItemMask = TVIF_TEXT | TVIF_IMAGE | TVIF_PARAM | TVIF_HANDLE | TVIF_SELECTEDIMAGE;

// A record without a state index sets no state at all, bold and cut included. The control copies
// the text and does not write to it.
TVITEMW NativeItem(const QVLTreeViewItem& item, int image) {
  TVITEMW native{};
  native.mask = kItemMask;
  if (item.GetStateIndex() != -1) native.mask |= TVIF_STATE;
  native.pszText = const_cast<WCHAR*>(item.GetItemName());
  native.iImage = image;
  native.iSelectedImage = image;
  native.lParam = item.GetClientPtr();
  native.state = static_cast<UINT>(item.GetStateIndex()) << kStateImageShift;
  if (item.IsBold()) native.state |= TVIS_BOLD;
  if (item.IsCut()) native.state |= TVIS_CUT;
  native.stateMask = TVIS_STATEIMAGEMASK | TVIS_BOLD | TVIS_CUT;
  return native;
}

}  // namespace

ItemHandle QVLTreeView::InsertItem(QVLTreeViewItem* item, ItemHandle parent) {
  if (!controlWindow || item->GetSubItem() != 0) return -1;
  TVINSERTSTRUCTW insert{};
  insert.hParent = parent == -1 ? nullptr : TreeControl::Handle(parent);
  insert.hInsertAfter = TVI_LAST;
  insert.item = NativeItem(*item, ImageOfNewItem(*item));
  HeldItem inserted(life, TreeControl::InsertItem(controlWindow, insert));
  if (!inserted.Get()) return -1;
  ApplyCheckAndSelection(*item, inserted);
  return inserted.Get() ? inserted.Get() : -1;
}

bool QVLTreeView::UpdateItem(QVLTreeViewItem* item, ItemHandle handle) {
  if (!controlWindow || handle == -1 || item->GetSubItem() != 0) return false;
  LifeWatch alive(life);
  TVITEMW native = NativeItem(*item, ImageOfItem(*item));
  native.hItem = TreeControl::Handle(handle);
  if (!TreeControl::SetItem(controlWindow, native)) return false;
  HeldItem updated(life, handle);
  ApplyCheckAndSelection(*item, updated);
  return static_cast<bool>(alive);
}

// Only switches on. Selecting comes last, because it calls the client.
void QVLTreeView::ApplyCheckAndSelection(const QVLTreeViewItem& item, HeldItem& handle) {
  if ((styleFlags & QVLS_CHECKBOXES) && item.IsChecked()) {
    TreeControl::SetStateImage(controlWindow, handle.Get(), kCheckedBox);
  }
  if (item.IsSelected()) TreeControl::MoveCaret(controlWindow, handle.Get());
}
