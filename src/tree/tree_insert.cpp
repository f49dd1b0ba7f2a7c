// Records become tree items, and the items are listed.
#include "platform/tree_control.h"
#include "tree/tree_view.h"
#include "view/item_list.h"

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
  native.state = static_cast<UINT>(item.GetStateIndex()) << tree::kStateImageShift;
  if (item.IsBold()) native.state |= TVIS_BOLD;
  if (item.IsCut()) native.state |= TVIS_CUT;
  native.stateMask = TVIS_STATEIMAGEMASK | TVIS_BOLD | TVIS_CUT;
  return native;
}

}  // namespace

ItemHandle QVLTreeView::InsertItem(QVLTreeViewItem* item, ItemHandle parent) {
  if (!controlWindow || item->GetSubItem() != 0) return -1;
  TVINSERTSTRUCTW insert{};
  insert.hParent = parent == -1 ? nullptr : tree::Handle(parent);
  insert.hInsertAfter = TVI_LAST;
  insert.item = NativeItem(*item, ImageOfNewItem(*item));
  HeldItem inserted(life, tree::InsertItem(controlWindow, insert));
  if (!inserted.Get()) return -1;
  ApplyCheckAndSelection(*item, inserted);
  return inserted.Get() ? inserted.Get() : -1;
}

bool QVLTreeView::UpdateItem(QVLTreeViewItem* item, ItemHandle handle) {
  if (!controlWindow || handle == -1 || item->GetSubItem() != 0) return false;
  LifeWatch alive(life);
  TVITEMW native = NativeItem(*item, ImageOfItem(*item));
  native.hItem = tree::Handle(handle);
  if (!tree::SetItem(controlWindow, native)) return false;
  HeldItem updated(life, handle);
  ApplyCheckAndSelection(*item, updated);
  return static_cast<bool>(alive);
}

// Both only switch on. Selecting calls out, so it comes last.
void QVLTreeView::ApplyCheckAndSelection(const QVLTreeViewItem& item, HeldItem& handle) {
  if ((styleFlags & QVLS_CHECKBOXES) && item.IsChecked()) {
    tree::SetStateImage(controlWindow, handle.Get(), tree::kTickedBox);
  }
  if (item.IsSelected()) tree::MoveCaret(controlWindow, handle.Get());
}

std::int64_t QVLTreeView::GetItems(ItemHandleList* items, bool visibleOnly) {
  if (!controlWindow) return 0;
  if (visibleOnly) {
    AppendItems(*items, tree::VisibleItems(controlWindow));
  } else {
    AppendItems(*items, tree::BranchItems(controlWindow, tree::FirstItem(controlWindow)));
  }
  return static_cast<std::int64_t>(items->size());
}
