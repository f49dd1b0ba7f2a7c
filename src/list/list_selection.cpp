// The selection of a list: the rows with the control's selected bit. The callbacks come from the
// control's notifications, not from the operations.
#include "common/hit_flags.h"
#include "list/list_view.h"
#include "platform/list_control.h"

namespace {

// The platform has one bit for above and for the state icon, so both flags are set together.
constexpr HitFlagPair kHitFlags[] = {
    {LVHT_ONITEMSTATEICON, QVLHT_ABOVE},   {LVHT_BELOW, QVLHT_BELOW},
    {LVHT_NOWHERE, QVLHT_NOWHERE},         {LVHT_ONITEMICON, QVLHT_ONITEMICON},
    {LVHT_ONITEMLABEL, QVLHT_ONITEMLABEL}, {LVHT_ONITEMSTATEICON, QVLHT_ONITEMSTATEICON},
    {LVHT_TOLEFT, QVLHT_TOLEFT},           {LVHT_TORIGHT, QVLHT_TORIGHT},
};

}  // namespace

int QVLListView::GetSelectedCount() {
  return controlWindow ? ListControl::SelectedCount(controlWindow) : 0;
}

void QVLListView::SetItemSelected(ItemHandle handle, bool selected) {
  const int row = ListControl::Named(handle);
  if (controlWindow && row != ListControl::kNoRow)
    ListControl::Select(controlWindow, row, selected);
}

void QVLListView::SelectAll() { ChangeRows(Inverted::kUnselected); }

void QVLListView::ClearSelection() { ChangeRows(Inverted::kSelected); }

void QVLListView::InvertSelection() { ChangeRows(Inverted::kAll); }

void QVLListView::ChangeRows(Inverted inverted) {
  if (!controlWindow) return;
  ChangeSelection(inverted, [this](int row, bool selected) {
    ListControl::Select(controlWindow, row, selected);
  });
}

void QVLListView::SelectAlone(int row) {
  LifeWatch alive(life);
  ClearSelection();
  if (alive) ListControl::Select(controlWindow, row, true);
  if (alive) ListControl::Update(controlWindow, row);
}

ItemHandle QVLListView::HitTest(const POINT* screenPoint, bool select, std::uint32_t* hitFlags) {
  if (hitFlags) *hitFlags = 0;
  if (!controlWindow) return -1;
  LifeWatch alive(life);
  LVHITTESTINFO hit{};
  hit.pt = *screenPoint;
  ScreenToClient(controlWindow, &hit.pt);
  const int row = ListControl::HitTest(controlWindow, hit);
  if (row == ListControl::kNoRow) return -1;
  if (select && !ListControl::IsSelected(controlWindow, row)) SelectAlone(row);
  if (!alive) return -1;
  if (hitFlags) *hitFlags = TranslateHitFlags(hit.flags, kHitFlags);
  return row;
}
