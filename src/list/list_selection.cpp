// The selection: the rows that carry the control's selected bit. The client hears of every change
// through the control's own report, not from the operation that caused it.
#include "list/list_view.h"
#include "list/row_walk.h"
#include "platform/list_control.h"
#include "view/hit_flags.h"
#include "view/item_list.h"

namespace {

// The platform has one bit for above and for the state icon, so both flags come together.
constexpr HitFlagPair kHitFlags[] = {
    {LVHT_ONITEMSTATEICON, QVLHT_ABOVE},   {LVHT_BELOW, QVLHT_BELOW},
    {LVHT_NOWHERE, QVLHT_NOWHERE},         {LVHT_ONITEMICON, QVLHT_ONITEMICON},
    {LVHT_ONITEMLABEL, QVLHT_ONITEMLABEL}, {LVHT_ONITEMSTATEICON, QVLHT_ONITEMSTATEICON},
    {LVHT_TOLEFT, QVLHT_TOLEFT},           {LVHT_TORIGHT, QVLHT_TORIGHT},
};

}  // namespace

int QVLListView::GetSelectedCount() {
  return controlWindow ? list::SelectedCount(controlWindow) : 0;
}

ItemHandle QVLListView::GetSelectedItem(int index) {
  if (!controlWindow) return 0;
  return ItemAt(list::Rows(controlWindow), index, list::SelectedIn(controlWindow));
}

// The same rows in the same order as GetSelectedItem gives them one by one, in a single walk.
bool QVLListView::CollectSelected(ItemHandleList& items) {
  return AppendItems(items, list::Rows(controlWindow), list::SelectedIn(controlWindow));
}

void QVLListView::SetItemSelected(ItemHandle handle, bool selected) {
  const int row = list::Row(handle);
  if (controlWindow && row != list::kNoRow) list::Select(controlWindow, row, selected);
}

bool QVLListView::IsItemSelected(ItemHandle handle) {
  const int row = list::Row(handle);
  return controlWindow && row != list::kNoRow && list::IsSelected(controlWindow, row);
}

void QVLListView::SelectAll() {
  if (!controlWindow) return;
  RedrawPause pause(controlWindow, redraw, life);
  for (const int row : RowWalk(controlWindow, life)) {
    if (list::IsSelected(controlWindow, row)) continue;
    pause.BeforeChange();
    list::Select(controlWindow, row, true);
  }
}

void QVLListView::ClearSelection() {
  if (!controlWindow) return;
  RedrawPause pause(controlWindow, redraw, life);
  for (const int row : RowWalk(controlWindow, life)) {
    if (!list::IsSelected(controlWindow, row)) continue;
    pause.BeforeChange();
    list::Select(controlWindow, row, false);
  }
}

void QVLListView::InvertSelection() {
  if (!controlWindow) return;
  RedrawPause pause(controlWindow, redraw, life);
  for (const int row : RowWalk(controlWindow, life)) {
    pause.BeforeChange();
    list::Select(controlWindow, row, !list::IsSelected(controlWindow, row));
  }
}

void QVLListView::SelectAlone(int row) {
  LifeWatch alive(life);
  ClearSelection();
  if (alive) list::Select(controlWindow, row, true);
  if (alive) list::Update(controlWindow, row);
}

ItemHandle QVLListView::HitTest(const POINT* screenPoint, bool select, std::uint32_t* hitFlags) {
  if (hitFlags) *hitFlags = 0;
  if (!controlWindow) return -1;
  LifeWatch alive(life);
  LVHITTESTINFO hit{};
  hit.pt = *screenPoint;
  ScreenToClient(controlWindow, &hit.pt);
  const int row = list::HitTest(controlWindow, hit);
  if (row == list::kNoRow) return -1;
  if (hitFlags) *hitFlags = TranslateHitFlags(hit.flags, kHitFlags);
  if (select && !list::IsSelected(controlWindow, row)) SelectAlone(row);
  return alive ? row : -1;
}
