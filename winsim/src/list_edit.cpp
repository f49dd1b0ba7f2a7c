// Editing a row's first text in place.
#include <utility>

#include "list_control.h"

namespace winsim {

LRESULT ListControl::BeginLabelEdit(int row) {
  EndLabelEdit(false);
  if (Gone() || !(Style() & LVS_EDITLABELS) || !IsRow(row)) {
    return 0;
  }
  SelectOnly(row);
  if (Gone() || !IsRow(row)) {
    return 0;
  }
  NMLVDISPINFOW record = {};
  std::u16string text = Row(row).texts[0];
  record.item.mask = LVIF_TEXT | LVIF_PARAM | LVIF_STATE;
  record.item.iItem = row;
  record.item.pszText = text.data();
  record.item.lParam = Row(row).param;
  edit_ = MakeLabelEdit(window_, text);
  edited_ = row;
  editedText_ = text;
  if (Notify(window_, LVN_BEGINLABELEDITW, &record.hdr) || Gone()) {
    if (!Gone()) {
      CloseLabelEdit();
    }
    return 0;
  }
  SetFocus(edit_);
  return reinterpret_cast<LRESULT>(edit_);
}

// A text that did not change, or an edit that was cancelled, is told of without a text.
void ListControl::EndLabelEdit(bool cancel) {
  const HWND field = std::exchange(edit_, nullptr);
  if (!field) {
    return;
  }
  std::u16string text = EditedText(field);
  const bool changed = !cancel && text != editedText_;
  const int row = edited_;
  NMLVDISPINFOW record = {};
  record.item.mask = LVIF_TEXT | LVIF_PARAM | LVIF_STATE;
  record.item.iItem = row;
  record.item.pszText = changed ? text.data() : nullptr;
  record.item.cchTextMax = static_cast<int>(text.size());
  record.item.lParam = IsRow(row) ? Row(row).param : 0;
  const bool accepted = Notify(window_, LVN_ENDLABELEDITW, &record.hdr) != 0;
  if (accepted && changed && !Gone() && IsRow(row)) {
    LVITEMW values = {};
    values.mask = LVIF_TEXT;
    values.iItem = row;
    values.pszText = text.data();
    SetItem(values);
  }
  if (!Gone()) {
    const bool hadFocus = GetFocus() == field;
    edit_ = field;
    CloseLabelEdit();
    if (hadFocus && !Gone()) {
      SetFocus(window_);
    }
  }
}

void ListControl::CloseLabelEdit() {
  const HWND field = std::exchange(edit_, nullptr);
  edited_ = -1;
  if (field) {
    DestroyWindow(field);
  }
}

}  // namespace winsim
