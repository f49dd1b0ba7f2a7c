// Handles the notifications that the tree control sends to the parent window.
#include "common/selection_bracket.h"
#include "platform/notification.h"
#include "platform/tree_control.h"
#include "tree/tree_view.h"

namespace {

ItemHandle NewItem(NMHDR& header) {
  return reinterpret_cast<ItemHandle>(As<NMTREEVIEWW>(header).itemNew.hItem);
}

}  // namespace

LRESULT QVLTreeView::HandleNotification(HWND window, WPARAM wParam, LPARAM lParam) {
  NMHDR& header = *reinterpret_cast<NMHDR*>(lParam);
  const UINT code = header.code;
  if (header.hwndFrom == controlWindow) {
    if (code == TVN_DELETEITEMW) HandleItemDeleted(As<NMTREEVIEWW>(header));
    KeepSelectionPainted(code);
  }
  if (client) {
    if (code == TVN_BEGINLABELEDITW || code == TVN_ENDLABELEDITW) return RequestLabelEdit(header);
    if (ComesFrom(header, controlId)) HandleOwnNotification(header);
  }
  return DefWindowProcW(window, WM_NOTIFY, wParam, lParam);
}

void QVLTreeView::HandleOwnNotification(NMHDR& header) {
  switch (header.code) {
    case TVN_BEGINDRAGW:
      HandleBeginDrag(NewItem(header));
      break;
    case TVN_ITEMEXPANDEDW:
      client->OnItemExpanded(owner, NewItem(header));
      break;
    case TVN_SELCHANGEDW:
      Report(NewItem(header));
      break;
    case TVN_GETINFOTIPW:
      HandleInfoTip(As<NMTVGETINFOTIPW>(header));
      break;
    default:
      break;
  }
}

// Operations that still hold the item let go of it, also without a client. A deleted anchor becomes
// -1, because the control may reuse its handle.
void QVLTreeView::HandleItemDeleted(const NMTREEVIEWW& record) {
  const auto item = reinterpret_cast<ItemHandle>(record.itemOld.hItem);
  life.ItemDeleted(item);
  if (selectionAnchor == item) selectionAnchor = -1;
}

// Selected items show whether the control has the focus, but the control repaints only its caret.
void QVLTreeView::KeepSelectionPainted(UINT code) {
  if (multiSelect && (code == NM_SETFOCUS || code == NM_KILLFOCUS)) InvalidateSelection();
  if (code == NM_RCLICK) ShowWholeSelection();
}

void QVLTreeView::HandleInfoTip(NMTVGETINFOTIPW& record) {
  RequestInfoTip(reinterpret_cast<ItemHandle>(record.hItem), record.pszText, record.cchTextMax);
}

bool QVLTreeView::HandleBeginDrag(ItemHandle dragged) {
  if (!client) return false;
  LifeWatch alive(life);
  IncludeInSelection(dragged);
  if (!alive || !client) return false;
  ItemHandleList items;
  return CollectSelected(items) && DragSelection(items);
}

// In multiple selection an item that is not selected joins the others. Otherwise it becomes the
// caret, selected or not.
void QVLTreeView::IncludeInSelection(ItemHandle dragged) {
  if (multiSelect && TreeControl::IsSelected(controlWindow, dragged)) return;
  HeldItem item(life, dragged);
  SelectionBracket bracket(*this);
  if (!item.Get()) return;
  if (multiSelect) {
    MarkAndReport(item.Get(), true);
  } else {
    TreeControl::MoveCaret(controlWindow, item.Get());
  }
}
