// What the control and the shell's menu report to the parent window, and what becomes of it.
#include "list/list_view.h"
#include "platform/list_control.h"
#include "shell/selection_flows.h"
#include "view/notification.h"
#include "view/parent_proc.h"
#include "view/requests.h"
#include "view/selection_bracket.h"

LRESULT CALLBACK ListParentWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return ViewParent::Handle<QVLListView>(window, message, wParam, lParam);
}

LRESULT QVLListView::HandleNotify(HWND window, WPARAM wParam, LPARAM lParam) {
  NMHDR& header = *reinterpret_cast<NMHDR*>(lParam);
  if (client) {
    const UINT code = header.code;
    if (code == LVN_BEGINLABELEDITW || code == LVN_ENDLABELEDITW) {
      return RequestLabelEdit(owner, client, header);
    }
    HandleReport(header);
  }
  return DefWindowProcW(window, WM_NOTIFY, wParam, lParam);
}

void QVLListView::HandleReport(NMHDR& header) {
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

// Whatever changed about the row: a change of focus, box or text is reported like one of the
// selection.
void QVLListView::HandleItemChanged(ItemHandle row) {
  SelectionBracket bracket(owner, client, life);
  if (bracket.IsHeard()) client->OnItemSelectionChanged(owner, row);
}

void QVLListView::HandleInfoTip(NMLVGETINFOTIPW& record) {
  RequestInfoTip(*this, owner, client, life, record.iItem, record.pszText, record.cchTextMax);
}

bool QVLListView::HandleBeginDrag(ItemHandle dragged) {
  if (!client) return false;
  LifeWatch alive(life);
  const int row = list::Row(dragged);
  if (!list::IsSelected(controlWindow, row)) list::Select(controlWindow, row, true);
  if (!alive || !client) return false;
  ItemHandleList items;
  return CollectSelected(items) && DragSelection(this, owner, client, life, items);
}

bool QVLListView::ShowContextMenu(int x, int y) {
  if (!client) return false;
  ItemHandleList items;
  return controlWindow && CollectSelected(items) &&
         ShowSelectionMenu(owner, client, life, parentWindow, x, y, items, activeContextMenu);
}
