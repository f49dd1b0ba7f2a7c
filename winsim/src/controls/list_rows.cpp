// Insertion, reading, changing and deletion of rows.
#include <algorithm>
#include <utility>

#include "controls/list_control.h"

namespace winsim {
namespace {

std::u16string TextOf(const LVITEMW& values) {
  return values.pszText && values.pszText != LPSTR_TEXTCALLBACKW ? values.pszText : u"";
}

void StoreText(ListRow* row, std::size_t column, std::u16string text) {
  if (row->texts.size() <= column) row->texts.resize(column + 1);
  row->texts[column] = std::move(text);
}

// Which of the values that the mask names differ from the row's.
UINT Differences(const ListRow& row, const LVITEMW& values) {
  const UINT mask = values.mask;
  UINT different = 0;
  if ((mask & LVIF_TEXT) && row.texts[0] != TextOf(values)) different |= LVIF_TEXT;
  if ((mask & LVIF_IMAGE) && row.image != values.iImage) different |= LVIF_IMAGE;
  if ((mask & LVIF_PARAM) && row.param != values.lParam) different |= LVIF_PARAM;
  if ((mask & LVIF_INDENT) && row.indent != values.iIndent) different |= LVIF_INDENT;
  const UINT states = row.state ^ values.state;
  if ((mask & LVIF_STATE) && (states & values.stateMask)) different |= LVIF_STATE;
  return different;
}

}  // namespace

// A row that is inserted selected or focused gets these states by a change that notifies. With
// check boxes every new row has an empty box, whatever state image was given.
int ListControl::Insert(const LVITEMW& values) {
  if (values.iItem < 0 || values.iSubItem != 0) return -1;
  const int row = std::min(values.iItem, Count());
  auto added = std::make_unique<ListRow>();
  StoreText(added.get(), 0, (values.mask & LVIF_TEXT) ? TextOf(values) : u"");
  added->image = (values.mask & LVIF_IMAGE) ? values.iImage : 0;
  added->indent = (values.mask & LVIF_INDENT) ? values.iIndent : 0;
  added->param = (values.mask & LVIF_PARAM) ? values.lParam : 0;
  UINT state = (values.mask & LVIF_STATE) ? values.state & values.stateMask : 0;
  if (extendedStyle & LVS_EX_CHECKBOXES) {
    state = (state & ~static_cast<UINT>(LVIS_STATEIMAGEMASK)) | INDEXTOSTATEIMAGEMASK(1);
  }
  constexpr UINT kNotified = LVIS_SELECTED | LVIS_FOCUSED;
  const bool notifies = (state & kNotified) != 0;
  added->state = notifies ? 0 : state;
  rows.insert(rows.begin() + row, std::move(added));
  focus += focus >= row ? 1 : 0;
  anchor += anchor >= row ? 1 : 0;
  barsStale = true;
  if (notifies) ChangeState(row, state, state | kNotified | LVIS_STATEIMAGEMASK | LVIS_CUT);
  return row;
}

bool ListControl::SetItem(const LVITEMW& values) {
  const int row = values.iItem;
  if (!IsRow(row)) return false;
  if (values.iSubItem != 0) return SetCell(values);
  if (!(values.mask & ~static_cast<UINT>(LVIF_STATE))) {
    return ChangeState(row, values.state, values.stateMask);
  }
  ListRow& target = Row(row);
  const UINT changed = Differences(target, values);
  if (changed & LVIF_TEXT) StoreText(&target, 0, TextOf(values));
  if (changed & LVIF_IMAGE) target.image = values.iImage;
  if (changed & LVIF_PARAM) target.param = values.lParam;
  if (changed & LVIF_INDENT) target.indent = values.iIndent;
  if (changed & LVIF_STATE) {
    StoreState(row, (target.state & ~values.stateMask) | (values.state & values.stateMask));
  }
  if (changed) NotifyRow(LVN_ITEMCHANGED, row);
  return true;
}

// A cell has a text and an image. A change does not notify.
bool ListControl::SetCell(const LVITEMW& values) {
  constexpr UINT kPossible = LVIF_TEXT | LVIF_IMAGE;
  const auto column = static_cast<std::size_t>(std::max(values.iSubItem, 0));
  if ((values.mask & ~kPossible) || column >= std::max<std::size_t>(columns.size(), 1)) {
    return false;
  }
  if (values.iSubItem > 0 && (values.mask & LVIF_TEXT)) {
    StoreText(&Row(values.iItem), column, TextOf(values));
  }
  return true;
}

bool ListControl::GetItem(LVITEMW* values) {
  if (!IsRow(values->iItem)) return false;
  const ListRow& row = Row(values->iItem);
  if ((values->mask & LVIF_TEXT) && values->pszText && values->cchTextMax > 0) {
    const auto column = static_cast<std::size_t>(std::max(values->iSubItem, 0));
    const std::u16string text = column < row.texts.size() ? row.texts[column] : u"";
    const auto room = static_cast<std::size_t>(values->cchTextMax - 1);
    values->pszText[text.copy(values->pszText, room)] = 0;
  }
  if (values->mask & LVIF_IMAGE) values->iImage = row.image;
  if (values->mask & LVIF_PARAM) values->lParam = row.param;
  if (values->mask & LVIF_STATE) values->state = row.state & values->stateMask;
  if (values->mask & LVIF_INDENT) values->iIndent = row.indent;
  return true;
}

LRESULT ListControl::GetText(int row, const LVITEMW& request) {
  LVITEMW values = request;
  values.mask = LVIF_TEXT;
  values.iItem = row;
  if (!GetItem(&values)) return 0;
  return static_cast<LRESULT>(std::u16string_view(values.pszText).size());
}

// The row loses its states first. Then the focus moves to the row that follows, and a selection
// that the row got meanwhile moves to the row before. Neither move notifies.
bool ListControl::Delete(int row) {
  if (!IsRow(row)) return false;
  const bool hadFocus = focus == row;
  ChangeState(row, 0, LVIS_SELECTED | LVIS_FOCUSED);
  if (!IsRow(row)) return false;
  if (Row(row).state & LVIS_SELECTED) {
    --selectedCount;
    if (row > 0) StoreState(row - 1, Row(row - 1).state | LVIS_SELECTED);
  }
  rows.erase(rows.begin() + row);
  barsStale = true;
  anchor = std::min(anchor > row ? anchor - 1 : anchor, Count() - 1);
  if (hadFocus && Count() > 0) {
    focus = std::min(row, Count() - 1);
    Row(focus).state |= LVIS_FOCUSED;
  } else if (focus > row) {
    --focus;
  }
  return true;
}

// The rows keep their states to the end, so no change notifies.
bool ListControl::DeleteAll() {
  rows.clear();
  focus = anchor = -1;
  top = scrollX = selectedCount = 0;
  barsStale = true;
  return true;
}

}  // namespace winsim
