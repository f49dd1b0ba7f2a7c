// Selection, focus and check boxes of rows.
#include <algorithm>

#include "controls/list_control.h"

namespace winsim {

// Stores all states except the focus, which only one row can have.
void ListControl::StoreState(int row, UINT state) {
  ListRow& target = Row(row);
  const bool was = (target.state & LVIS_SELECTED) != 0;
  const bool is = (state & LVIS_SELECTED) != 0;
  selectedCount += static_cast<int>(is) - static_cast<int>(was);
  target.state = (state & ~static_cast<UINT>(LVIS_FOCUSED)) | (target.state & LVIS_FOCUSED);
}

// Before the change other rows lose what only one row can have, each with a notification. Focusing
// the focused row again removes its focus first.
bool ListControl::ChangeState(int row, UINT state, UINT mask) {
  const UINT before = Row(row).state;
  const UINT after = (before & ~mask) | (state & mask);
  if (after == before) return true;
  if ((Style() & LVS_SINGLESEL) && (after & ~before & LVIS_SELECTED)) DeselectOthers(row);
  if (!IsRow(row)) return false;
  StoreState(row, (Row(row).state & ~mask) | (state & mask));
  if (state & mask & LVIS_FOCUSED) {
    if (!TakeFocus(row)) return false;
  } else if ((mask & LVIS_FOCUSED) && focus == row) {
    Row(row).state &= ~static_cast<UINT>(LVIS_FOCUSED);
    focus = -1;
  }
  NotifyRow(LVN_ITEMCHANGED, row);
  return true;
}

bool ListControl::TakeFocus(int row) {
  if (IsRow(focus)) ChangeState(focus, 0, LVIS_FOCUSED);
  if (!IsRow(row)) return false;
  Row(row).state |= LVIS_FOCUSED;
  focus = row;
  if (anchor == -1) anchor = row;
  return true;
}

// Row -1 means all rows, one after the other.
LRESULT ListControl::SetState(int row, const LVITEMW& values) {
  if (row != -1) return IsRow(row) && ChangeState(row, values.state, values.stateMask);
  if ((Style() & LVS_SINGLESEL) && (values.state & values.stateMask & LVIS_SELECTED)) return FALSE;
  for (int i = 0; i < Count(); ++i) ChangeState(i, values.state, values.stateMask);
  return TRUE;
}

// Deselects the rows that are selected now. A row that a notification selects stays selected.
void ListControl::DeselectRows(const std::function<bool(int)>& concerned) {
  std::vector<int> selected;
  for (int row = 0; selectedCount > 0 && row < Count(); ++row) {
    if ((Row(row).state & LVIS_SELECTED) && concerned(row)) selected.push_back(row);
  }
  for (int row : selected) {
    if (IsRow(row)) ChangeState(row, 0, LVIS_SELECTED);
  }
}

void ListControl::DeselectOthers(int row) {
  DeselectRows([row](int other) { return other != row; });
}

void ListControl::SelectOnly(int row) {
  DeselectOthers(row);
  if (!IsRow(row)) return;
  ChangeState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  anchor = row;
}

// The first and the last row of the range from the anchor. Without an anchor the row becomes it.
std::pair<int, int> ListControl::RangeTo(int row) {
  if (anchor == -1) anchor = row;
  return std::minmax({anchor, row});
}

void ListControl::DeselectOutside(int row) {
  const std::pair<int, int> range = RangeTo(row);
  DeselectRows([range](int other) { return other < range.first || other > range.second; });
}

void ListControl::SelectRange(int row) {
  const auto [first, last] = RangeTo(row);
  for (int i = first; i <= last && i < Count(); ++i) ChangeState(i, LVIS_SELECTED, LVIS_SELECTED);
  FocusOn(row);
}

void ListControl::FocusOn(int row) {
  if (IsRow(row) && focus != row) ChangeState(row, LVIS_FOCUSED, LVIS_FOCUSED);
}

// Exchanges the unchecked and the checked box; other state images stay.
void ListControl::ToggleBox(int row) {
  if (!IsRow(row)) return;
  const UINT box = (Row(row).state & LVIS_STATEIMAGEMASK) >> 12;
  if (box == 1 || box == 2) {
    ChangeState(row, INDEXTOSTATEIMAGEMASK(3 - box), LVIS_STATEIMAGEMASK);
  }
}

}  // namespace winsim
