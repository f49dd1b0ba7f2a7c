// Operations on all rows at once: expansion, of which a flat list has none, and check boxes.
#include "list/list_view.h"
#include "list/row_walk.h"
#include "platform/list_control.h"
#include "view/item_list.h"

void QVLListView::ExpandAll() {}

void QVLListView::CollapseAll() {}

int QVLListView::GetCheckedCount() {
  if (!controlWindow) return 0;
  return CountItems(list::Rows(controlWindow), list::TickedIn(controlWindow));
}

ItemHandle QVLListView::GetCheckedItem(int index) {
  if (!controlWindow) return 0;
  return ItemAt(list::Rows(controlWindow), index, list::TickedIn(controlWindow));
}

void QVLListView::SetItemChecked(ItemHandle handle, bool checked) {
  const int row = list::Row(handle);
  if (!controlWindow || row == list::kNoRow) return;
  list::SetStateImage(controlWindow, row, checked ? list::kTickedBox : list::kEmptyBox);
}

bool QVLListView::IsItemChecked(ItemHandle handle) {
  const int row = list::Row(handle);
  if (!controlWindow || row == list::kNoRow) return false;
  return list::StateImage(controlWindow, row) != list::kEmptyBox;
}

void QVLListView::CheckAll() { ReplaceStateImages(list::kEmptyBox, list::kTickedBox); }

void QVLListView::UncheckAll() { ReplaceStateImages(list::kTickedBox, list::kEmptyBox); }

void QVLListView::ReplaceStateImages(UINT from, UINT to) {
  if (!controlWindow) return;
  RedrawPause pause(controlWindow, redraw, life);
  for (const int row : RowWalk(controlWindow, life)) {
    if (list::StateImage(controlWindow, row) != from) continue;
    pause.BeforeChange();
    list::SetStateImage(controlWindow, row, to);
  }
}
