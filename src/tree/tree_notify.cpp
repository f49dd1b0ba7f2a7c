// What the control and the shell's menu report to the parent window, and what becomes of it.
#include "platform/tree_control.h"
#include "shell/selection_flows.h"
#include "tree/tree_view.h"
#include "view/notification.h"
#include "view/parent_proc.h"
#include "view/requests.h"
#include "view/selection_bracket.h"

namespace {

ItemHandle NewItem(NMHDR& header) {
  return reinterpret_cast<ItemHandle>(As<NMTREEVIEWW>(header).itemNew.hItem);
}

}  // namespace

LRESULT CALLBACK TreeParentWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return ViewParent::Handle<QVLTreeView>(window, message, wParam, lParam);
}

LRESULT QVLTreeView::HandleNotify(HWND window, WPARAM wParam, LPARAM lParam) {
  NMHDR& header = *reinterpret_cast<NMHDR*>(lParam);
  const UINT code = header.code;
  if (code == TVN_DELETEITEMW) HandleItemDeleted(As<NMTREEVIEWW>(header));
  if (client) {
    if (code == TVN_BEGINLABELEDITW || code == TVN_ENDLABELEDITW) {
      return RequestLabelEdit(owner, client, header);
    }
    if (ComesFrom(header, controlId)) HandleControlReport(header);
  }
  return DefWindowProcW(window, WM_NOTIFY, wParam, lParam);
}

void QVLTreeView::HandleControlReport(NMHDR& header) {
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

// Also without a client: flows that still name the item must let go of it. An anchor that is gone
// is to be found nowhere, but its handle may come again for another item. No item has -1.
void QVLTreeView::HandleItemDeleted(const NMTREEVIEWW& record) {
  if (record.hdr.hwndFrom != controlWindow) return;
  const auto item = reinterpret_cast<ItemHandle>(record.itemOld.hItem);
  life.ItemDeleted(item);
  if (selectionAnchor == item) selectionAnchor = -1;
}

void QVLTreeView::HandleInfoTip(NMTVGETINFOTIPW& record) {
  RequestInfoTip(*this, owner, client, life, reinterpret_cast<ItemHandle>(record.hItem),
                 record.pszText, record.cchTextMax);
}

bool QVLTreeView::HandleBeginDrag(ItemHandle dragged) {
  if (!client) return false;
  LifeWatch alive(life);
  IncludeInSelection(dragged);
  if (!alive || !client) return false;
  ItemHandleList items;
  return CollectSelected(items) && DragSelection(this, owner, client, life, items);
}

// In multiple selection an item that is not selected joins the others; otherwise it becomes the
// caret, selected or not.
void QVLTreeView::IncludeInSelection(ItemHandle dragged) {
  if (multiSelect && tree::IsSelected(controlWindow, dragged)) return;
  HeldItem item(life, dragged);
  SelectionBracket bracket(owner, client, life);
  if (!item.Get()) return;
  if (multiSelect) {
    MarkAndReport(item.Get(), true);
  } else {
    tree::MoveCaret(controlWindow, item.Get());
  }
}

bool QVLTreeView::ShowContextMenu(int x, int y) {
  if (!client) return false;
  ItemHandleList items;
  return controlWindow && CollectSelected(items) &&
         ShowSelectionMenu(owner, client, life, parentWindow, x, y, items, activeContextMenu);
}
