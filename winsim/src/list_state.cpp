// Selection, focus and check boxes of rows, and what the parent hears of them.
#include <algorithm>

#include "list_control.h"

namespace winsim {

// Takes over all but the focus, which only one row can have.
void ListControl::KeepState(int row, UINT state) {
  ListRow& kept = Row(row);
  const bool was = (kept.state & LVIS_SELECTED) != 0;
  const bool is = (state & LVIS_SELECTED) != 0;
  selectedCount_ += static_cast<int>(is) - static_cast<int>(was);
  kept.state = (state & ~static_cast<UINT>(LVIS_FOCUSED)) | (kept.state & LVIS_FOCUSED);
}

// One row's change: announced, made, reported. Between the two notifications others give up what
// only one row may have; a row that had the focus gives it up too, before it has it again.
bool ListControl::ChangeState(int row, UINT state, UINT mask) {
  const UINT before = Row(row).state;
  const UINT after = (before & ~mask) | (state & mask);
  if (NotifyRow(LVN_ITEMCHANGING, row, after, before, LVIF_STATE) || Gone() || !IsRow(row)) {
    return false;
  }
  if (after == before) {
    return true;
  }
  if ((Style() & LVS_SINGLESEL) && (after & ~before & LVIS_SELECTED)) {
    DeselectOthers(row);
  }
  if (Gone() || !IsRow(row)) {
    return false;
  }
  KeepState(row, (Row(row).state & ~mask) | (state & mask));
  if (state & mask & LVIS_FOCUSED) {
    if (IsRow(focus_)) {
      ChangeState(focus_, 0, LVIS_FOCUSED);
    }
    if (Gone() || !IsRow(row)) {
      return false;
    }
    Row(row).state |= LVIS_FOCUSED;
    focus_ = row;
    mark_ = mark_ == -1 ? row : mark_;
  } else if ((mask & LVIS_FOCUSED) && focus_ == row) {
    Row(row).state &= ~static_cast<UINT>(LVIS_FOCUSED);
    focus_ = -1;
  }
  NotifyRow(LVN_ITEMCHANGED, row, after, before, LVIF_STATE);
  return true;
}

// Row -1 means all rows, one after the other.
LRESULT ListControl::SetState(int row, const LVITEMW& values) {
  if (row != -1) {
    return IsRow(row) && ChangeState(row, values.state, values.stateMask);
  }
  if ((Style() & LVS_SINGLESEL) && (values.state & values.stateMask & LVIS_SELECTED)) {
    return FALSE;
  }
  for (int i = 0; !Gone() && i < Count(); ++i) {
    ChangeState(i, values.state, values.stateMask);
  }
  return TRUE;
}

// The rows that are selected now lose it; one that a notification selects meanwhile keeps it.
void ListControl::DeselectRows(const std::function<bool(int)>& concerned) {
  std::vector<int> rows;
  for (int row = 0; selectedCount_ > 0 && row < Count(); ++row) {
    if ((Row(row).state & LVIS_SELECTED) && concerned(row)) {
      rows.push_back(row);
    }
  }
  for (int row : rows) {
    if (!Gone() && IsRow(row)) {
      ChangeState(row, 0, LVIS_SELECTED);
    }
  }
}

void ListControl::DeselectOthers(int row) {
  DeselectRows([row](int other) { return other != row; });
}

void ListControl::SelectOnly(int row) {
  DeselectOthers(row);
  if (!Gone() && IsRow(row)) {
    ChangeState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    mark_ = row;
  }
}

// Both ends of the stretch from the mark to the row, which begins there where there is no mark.
std::pair<int, int> ListControl::StretchTo(int row) {
  if (mark_ == -1) {
    mark_ = row;
  }
  return std::minmax({mark_, row});
}

void ListControl::DeselectOutside(int row) {
  const std::pair<int, int> stretch = StretchTo(row);
  DeselectRows([stretch](int other) { return other < stretch.first || other > stretch.second; });
}

void ListControl::SelectRange(int row) {
  const auto [first, last] = StretchTo(row);
  for (int i = first; !Gone() && i <= last && i < Count(); ++i) {
    ChangeState(i, LVIS_SELECTED, LVIS_SELECTED);
  }
  FocusOn(row);
}

void ListControl::FocusOn(int row) {
  if (!Gone() && IsRow(row) && focus_ != row) {
    ChangeState(row, LVIS_FOCUSED, LVIS_FOCUSED);
  }
}

// Only the empty and the ticked box change places; any other state image stays.
void ListControl::ToggleBox(int row) {
  if (Gone() || !IsRow(row)) {
    return;
  }
  const UINT box = (Row(row).state & LVIS_STATEIMAGEMASK) >> 12;
  if (box == 1 || box == 2) {
    ChangeState(row, (3 - box) << 12, LVIS_STATEIMAGEMASK);
  }
}

}  // namespace winsim
