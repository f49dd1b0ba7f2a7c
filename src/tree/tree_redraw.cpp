#include "tree/tree_redraw.h"

#include "platform/tree_control.h"

namespace {

// A change of style closes a label edit and may scroll.
void ChangeStyle(HWND control, LONG_PTR style) {
  const TreeControl::Item top = TreeControl::TopItem(control);
  SetWindowLongPtrW(control, GWL_STYLE, style);
  if (TreeControl::TopItem(control) != top) TreeControl::ScrollToTop(control, top);
}

}  // namespace

// Only if there are bars and the host has not set TVS_NOSCROLL itself.
void TreeRedraw::TakeBars(HWND control) {
  const LONG_PTR style = GetWindowLongPtrW(control, GWL_STYLE);
  const bool hasBars = (style & (WS_VSCROLL | WS_HSCROLL)) && !(style & TVS_NOSCROLL);
  if (!hasBars || TreeControl::EditControl(control)) return;
  ChangeStyle(control, style | TVS_NOSCROLL);
  barsTaken = true;
}

void TreeRedraw::ReturnBars(HWND control) {
  const LONG_PTR style = GetWindowLongPtrW(control, GWL_STYLE);
  if (!barsTaken || !style || TreeControl::EditControl(control)) return;
  barsTaken = false;
  ChangeStyle(control, style & ~LONG_PTR{TVS_NOSCROLL});
}
