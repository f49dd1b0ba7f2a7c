// Editing a label in place.
#include "tree_control.h"

#include <utility>

namespace winsim {

LRESULT TreeControl::BeginLabelEdit(HTREEITEM handle) {
  if (!(Style() & TVS_EDITLABELS) || !Find(handle)) {
    return 0;
  }
  if (edit_) {
    return reinterpret_cast<LRESULT>(edit_);
  }
  edit_ = MakeLabelEdit(window_, Find(handle)->text);
  edited_ = handle;
  std::u16string text = Find(handle)->text;
  constexpr UINT kMask = TVIF_TEXT | TVIF_PARAM | TVIF_STATE | TVIF_HANDLE;
  if (AskLabelEdit(TVN_BEGINLABELEDITW, handle, text.data(), kMask) || Gone()) {
    if (!Gone()) {
      CloseLabelEdit();
    }
    return 0;
  }
  SetFocus(edit_);
  return reinterpret_cast<LRESULT>(edit_);
}

bool TreeControl::AskLabelEdit(UINT code, HTREEITEM handle, LPWSTR text, UINT mask) {
  const TreeItem* item = Find(handle);
  NMTVDISPINFOW record = {};
  record.item.mask = mask;
  record.item.hItem = handle;
  record.item.pszText = text;
  if (item) {
    record.item.state = item->state;
    record.item.lParam = item->param;
  }
  return Notify(window_, code, &record.hdr) != 0;
}

// A cancelled edit is told of without a text.
void TreeControl::TellLabelEditEnd(bool withText) {
  std::u16string text = EditedText(edit_);
  LPWSTR pointer = withText ? text.data() : nullptr;
  const UINT mask = withText ? TVIF_TEXT : 0;
  const bool accepted = AskLabelEdit(TVN_ENDLABELEDITW, edited_, pointer, mask);
  TreeItem* item = Gone() ? nullptr : Find(edited_);
  if (accepted && withText && item) {
    item->text = text;
    rowsStale_ = barsStale_ = true;
  }
}

void TreeControl::EndLabelEdit(bool cancel) {
  if (!edit_) {
    return;
  }
  const bool hadFocus = GetFocus() == edit_;
  TellLabelEditEnd(!cancel);
  if (!Gone()) {
    CloseLabelEdit();
    if (hadFocus && !Gone()) {
      SetFocus(window_);
    }
  }
}

void TreeControl::CloseLabelEdit() {
  const HWND field = std::exchange(edit_, nullptr);
  edited_ = nullptr;
  if (field) {
    DestroyWindow(field);
  }
}

}  // namespace winsim
