// What the list holds: rows, cells and columns.
#include <algorithm>

#include "list_control.h"

namespace winsim {
namespace {

std::u16string TextOf(const LVITEMW& values) {
  return values.pszText && values.pszText != LPSTR_TEXTCALLBACKW ? values.pszText : u"";
}

void KeepText(ListRow* row, std::size_t column, std::u16string text) {
  if (row->texts.size() <= column) {
    row->texts.resize(column + 1);
  }
  row->texts[column] = std::move(text);
}

}  // namespace

// A row that comes in selected or focused is changed so with a notification; other states are
// simply there. With check boxes every new row has an empty one, whatever was asked for.
int ListControl::Insert(const LVITEMW* values) {
  if (!values || values->iItem < 0 || values->iSubItem != 0) {
    return -1;
  }
  const int row = std::min(values->iItem, Count());
  auto added = std::make_unique<ListRow>();
  KeepText(added.get(), 0, (values->mask & LVIF_TEXT) ? TextOf(*values) : u"");
  added->image = (values->mask & LVIF_IMAGE) ? values->iImage : 0;
  added->indent = (values->mask & LVIF_INDENT) ? values->iIndent : 0;
  added->param = (values->mask & LVIF_PARAM) ? values->lParam : 0;
  UINT state = (values->mask & LVIF_STATE) ? values->state & values->stateMask : 0;
  if (extendedStyle_ & LVS_EX_CHECKBOXES) {
    state = (state & ~static_cast<UINT>(LVIS_STATEIMAGEMASK)) | 0x1000;
  }
  constexpr UINT kTold = LVIS_SELECTED | LVIS_FOCUSED;
  added->state = (state & kTold) ? 0 : state;
  rows_.insert(rows_.begin() + row, nullptr);
  rows_[static_cast<std::size_t>(row)] = added.release();
  focus_ += focus_ >= row ? 1 : 0;
  mark_ += mark_ >= row ? 1 : 0;
  barsStale_ = true;
  if (state & kTold) {
    ChangeState(row, state, state | kTold | LVIS_STATEIMAGEMASK | LVIS_CUT);
  }
  if (!Gone()) {
    NotifyRow(LVN_INSERTITEM, row, 0, 0, 0);
  }
  return row;
}

// Which of the values named in the mask differ from what the row holds.
UINT ListControl::Differences(const ListRow& row, const LVITEMW& values) const {
  UINT different = 0;
  if ((values.mask & LVIF_TEXT) && row.texts[0] != TextOf(values)) {
    different |= LVIF_TEXT;
  }
  if ((values.mask & LVIF_IMAGE) && row.image != values.iImage) {
    different |= LVIF_IMAGE;
  }
  if ((values.mask & LVIF_PARAM) && row.param != values.lParam) {
    different |= LVIF_PARAM;
  }
  if ((values.mask & LVIF_INDENT) && row.indent != values.iIndent) {
    different |= LVIF_INDENT;
  }
  if ((values.mask & LVIF_STATE) && ((row.state ^ values.state) & values.stateMask)) {
    different |= LVIF_STATE;
  }
  return different;
}

bool ListControl::SetItem(const LVITEMW& values) {
  if (!IsRow(values.iItem)) {
    return false;
  }
  if (values.iSubItem != 0) {
    return SetCell(values);
  }
  if ((values.mask & ~static_cast<UINT>(LVIF_STATE)) == 0) {
    return ChangeState(values.iItem, values.state, values.stateMask);
  }
  const int row = values.iItem;
  const UINT changed = Differences(Row(row), values);
  const bool hasState = (values.mask & LVIF_STATE) != 0;
  const UINT before = hasState ? Row(row).state : 0;
  const UINT after =
      hasState ? (before & ~values.stateMask) | (values.state & values.stateMask) : 0;
  if (NotifyRow(LVN_ITEMCHANGING, row, after, before, changed ? changed : values.mask) || Gone() ||
      !IsRow(row)) {
    return false;
  }
  if (!changed) {
    return true;
  }
  if (changed & LVIF_TEXT) {
    KeepText(&Row(row), 0, TextOf(values));
  }
  if (changed & LVIF_IMAGE) {
    Row(row).image = values.iImage;
  }
  if (changed & LVIF_PARAM) {
    Row(row).param = values.lParam;
  }
  if (changed & LVIF_INDENT) {
    Row(row).indent = values.iIndent;
  }
  if (changed & LVIF_STATE) {
    KeepState(row, after);
  }
  if (!Gone()) {
    NotifyRow(LVN_ITEMCHANGED, row, after, before, changed);
  }
  return true;
}

// A cell has a text and an image and tells nobody of a change.
bool ListControl::SetCell(const LVITEMW& values) {
  constexpr UINT kPossible = LVIF_TEXT | LVIF_IMAGE;
  const auto column = static_cast<std::size_t>(std::max(values.iSubItem, 0));
  if ((values.mask & ~kPossible) || column >= std::max<std::size_t>(columns_.size(), 1)) {
    return false;
  }
  if (values.iSubItem > 0 && (values.mask & LVIF_TEXT)) {
    KeepText(&Row(values.iItem), column, TextOf(values));
  }
  return true;
}

bool ListControl::GetItem(LVITEMW* values) {
  if (!IsRow(values->iItem)) {
    return false;
  }
  const ListRow& row = Row(values->iItem);
  if ((values->mask & LVIF_TEXT) && values->pszText && values->cchTextMax > 0) {
    const auto column = static_cast<std::size_t>(std::max(values->iSubItem, 0));
    const std::u16string text = column < row.texts.size() ? row.texts[column] : u"";
    const auto room = static_cast<std::size_t>(values->cchTextMax - 1);
    values->pszText[text.copy(values->pszText, room)] = 0;
  }
  if (values->mask & LVIF_IMAGE) {
    values->iImage = row.image;
  }
  if (values->mask & LVIF_PARAM) {
    values->lParam = row.param;
  }
  if (values->mask & LVIF_STATE) {
    values->state = row.state & values->stateMask;
  }
  if (values->mask & LVIF_INDENT) {
    values->iIndent = row.indent;
  }
  return true;
}

void ListControl::Remove(int row) {
  delete rows_[static_cast<std::size_t>(row)];
  rows_.erase(rows_.begin() + row);
}

// The row gives up its states first. The focus then is on the row that takes its place, and a
// selection that it was given meanwhile slips to the row before; nobody hears of either.
bool ListControl::Delete(int row) {
  if (!IsRow(row)) {
    return false;
  }
  const bool hadFocus = focus_ == row;
  ChangeState(row, 0, LVIS_SELECTED | LVIS_FOCUSED);
  if (Gone() || !IsRow(row)) {
    return false;
  }
  NotifyRow(LVN_DELETEITEM, row, 0, 0, 0);
  if (Gone() || !IsRow(row)) {
    return true;
  }
  if (Row(row).state & LVIS_SELECTED) {
    --selectedCount_;
    if (row > 0) {
      KeepState(row - 1, Row(row - 1).state | LVIS_SELECTED);
    }
  }
  Remove(row);
  barsStale_ = true;
  mark_ = std::min(mark_ > row ? mark_ - 1 : mark_, Count() - 1);
  if (hadFocus && Count() > 0) {
    focus_ = std::min(row, Count() - 1);
    Row(focus_).state |= LVIS_FOCUSED;
  } else if (focus_ > row) {
    --focus_;
  }
  return true;
}

// Rows are told of from the last to the first, and give up no state before.
bool ListControl::DeleteAll() {
  const bool single = NotifyRow(LVN_DELETEALLITEMS, -1, 0, 0, 0) == 0;
  focus_ = -1;
  mark_ = -1;
  top_ = 0;
  scrollX_ = 0;
  barsStale_ = true;
  while (!rows_.empty() && !Gone()) {
    const int last = Count() - 1;
    if (single) {
      NotifyRow(LVN_DELETEITEM, last, 0, 0, 0);
    }
    if (!rows_.empty()) {
      Remove(Count() - 1);
    }
  }
  selectedCount_ = 0;
  return true;
}

int ListControl::InsertColumn(int index, const LVCOLUMNW* column) {
  if (!column || index < 0) {
    return -1;
  }
  const int place = std::min(index, static_cast<int>(columns_.size()));
  columns_.insert(columns_.begin() + place,
                  (column->mask & LVCF_WIDTH) ? std::clamp(column->cx, 0, 0x7FFF) : 10);
  barsStale_ = true;
  return place;
}

}  // namespace winsim
