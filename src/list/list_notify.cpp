// Handles the notifications that the list control sends to the parent window.
#include "common/selection_bracket.h"
#include "list/list_view.h"
#include "platform/list_control.h"
#include "platform/notification.h"

LRESULT QVLListView::HandleNotification(HWND window, WPARAM wParam, LPARAM lParam) {
  NMHDR& header = *reinterpret_cast<NMHDR*>(lParam);
  if (client) {
    const UINT code = header.code;
    if (code == LVN_BEGINLABELEDITW || code == LVN_ENDLABELEDITW) return RequestLabelEdit(header);
    HandleOwnNotification(header);
  }
  return DefWindowProcW(window, WM_NOTIFY, wParam, lParam);
}

void QVLListView::HandleOwnNotification(NMHDR& header) {
  switch (header.code) {
    case LVN_GETINFOTIPW:
      if (ComesFrom(header, controlId)) HandleInfoTip(As<NMLVGETINFOTIPW>(header));
      break;
    case LVN_BEGINDRAG:
      if (ComesFrom(header, controlId)) HandleBeginDrag(As<NMLISTVIEW>(header).iItem);
      break;
    case LVN_COLUMNCLICK:
      client->OnColumnClick(owner, As<NMLISTVIEW>(header).iSubItem);
      break;
    case LVN_ITEMCHANGED:
      HandleItemChanged(As<NMLISTVIEW>(header).iItem);
      break;
    default:
      break;
  }
}

// A change of focus, check box or text is reported like a change of the selection.
void QVLListView::HandleItemChanged(ItemHandle row) {
  SelectionBracket bracket(*this);
  if (bracket) Report(row);
}

void QVLListView::HandleInfoTip(NMLVGETINFOTIPW& record) {
  RequestInfoTip(record.iItem, record.pszText, record.cchTextMax);
}

bool QVLListView::HandleBeginDrag(ItemHandle dragged) {
  if (!client) return false;
  LifeWatch alive(life);
  const int row = ListControl::Named(dragged);
  if (!ListControl::IsSelected(controlWindow, row)) ListControl::Select(controlWindow, row, true);
  if (!alive || !client) return false;
  ItemHandleList items;
  return CollectSelected(items) && DragSelection(items);
}
