// Editing of a row's first text.
#include <utility>

#include "controls/list_control.h"
#include "window/control_class.h"

namespace winsim {

LRESULT ListControl::BeginLabelEdit(int row) {
  EndLabelEdit(false);
  if (!(Style() & LVS_EDITLABELS)) return 0;
  if (IsRow(row)) SelectOnly(row);
  if (!IsRow(row)) return 0;
  editedText = Row(row).texts[0];
  std::u16string text = editedText;
  NMLVDISPINFOW record = {};
  record.item.mask = LVIF_TEXT | LVIF_PARAM | LVIF_STATE;
  record.item.iItem = row;
  record.item.pszText = text.data();
  record.item.lParam = Row(row).param;
  edit = MakeLabelEdit(window, text);
  editedRow = row;
  if (Notify(window, LVN_BEGINLABELEDITW, &record.hdr) || Gone()) {
    CloseLabelEdit();
    return 0;
  }
  SetFocus(edit);
  return reinterpret_cast<LRESULT>(edit);
}

// The notification has no text if the text did not change or the edit is cancelled.
void ListControl::EndLabelEdit(bool cancel) {
  const HWND field = std::exchange(edit, nullptr);
  if (!field) return;
  std::u16string text = EditedText(field);
  const bool changed = !cancel && text != editedText;
  const int row = editedRow;
  NMLVDISPINFOW record = {};
  record.item.mask = LVIF_TEXT | LVIF_PARAM | LVIF_STATE;
  record.item.iItem = row;
  record.item.pszText = changed ? text.data() : nullptr;
  record.item.cchTextMax = static_cast<int>(text.size());
  record.item.lParam = IsRow(row) ? Row(row).param : 0;
  const bool accepted = Notify(window, LVN_ENDLABELEDITW, &record.hdr) != 0;
  if (accepted && changed && IsRow(row)) {
    LVITEMW values = {};
    values.mask = LVIF_TEXT;
    values.iItem = row;
    values.pszText = text.data();
    SetItem(values);
  }
  const bool hadFocus = GetFocus() == field;
  edit = field;
  CloseLabelEdit();
  if (hadFocus) SetFocus(window);
}

void ListControl::CloseLabelEdit() {
  editedRow = -1;
  DestroyWindow(std::exchange(edit, nullptr));
}

}  // namespace winsim
