// Editing of labels.
#include <utility>

#include "controls/tree_control.h"
#include "window/control_class.h"

namespace winsim {

LRESULT TreeControl::BeginLabelEdit(HTREEITEM handle) {
  const TreeItem* item = Find(handle);
  if (!(Style() & TVS_EDITLABELS) || !item) return 0;
  if (edit) return reinterpret_cast<LRESULT>(edit);
  std::u16string text = item->text;
  edit = MakeLabelEdit(window, text);
  editedItem = handle;
  constexpr UINT kMask = TVIF_TEXT | TVIF_PARAM | TVIF_STATE | TVIF_HANDLE;
  if (NotifyLabelEdit(TVN_BEGINLABELEDITW, handle, text.data(), kMask) || Gone()) {
    CloseLabelEdit();
    return 0;
  }
  SetFocus(edit);
  return reinterpret_cast<LRESULT>(edit);
}

bool TreeControl::NotifyLabelEdit(UINT code, HTREEITEM handle, LPWSTR text, UINT mask) {
  NMTVDISPINFOW record = {};
  record.item.mask = mask;
  record.item.hItem = handle;
  record.item.pszText = text;
  if (const TreeItem* item = Find(handle)) {
    record.item.state = item->state;
    record.item.lParam = item->param;
  }
  return Notify(window, code, &record.hdr) != 0;
}

// A cancelled edit notifies without a text.
void TreeControl::NotifyLabelEditEnd(bool withText) {
  std::u16string text = EditedText(edit);
  LPWSTR pointer = withText ? text.data() : nullptr;
  const UINT mask = withText ? TVIF_TEXT : 0;
  const bool accepted = NotifyLabelEdit(TVN_ENDLABELEDITW, editedItem, pointer, mask);
  TreeItem* item = Find(editedItem);
  if (!accepted || !withText || !item) return;
  item->text = text;
  LayoutChanged();
}

void TreeControl::EndLabelEdit(bool cancel) {
  if (!edit) return;
  const bool hadFocus = GetFocus() == edit;
  NotifyLabelEditEnd(!cancel);
  CloseLabelEdit();
  if (hadFocus) SetFocus(window);
}

void TreeControl::CloseLabelEdit() {
  editedItem = nullptr;
  DestroyWindow(std::exchange(edit, nullptr));
}

}  // namespace winsim
