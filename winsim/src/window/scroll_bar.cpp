// The positions of scroll bars.
#include <algorithm>

#include "window/window.h"

using namespace winsim;

namespace {

ScrollBar* BarOf(HWND handle, int bar) {
  Window* window = FindWindow(handle);
  return window && (bar == SB_HORZ || bar == SB_VERT) ? &window->bars[bar] : nullptr;
}

}  // namespace

BOOL WINAPI GetScrollInfo(HWND handle, int bar, SCROLLINFO* info) {
  SettleLayout(handle);
  const ScrollBar* values = BarOf(handle, bar);
  if (!values || !FindWindow(handle)->hasScrollBars) return FALSE;
  if (info->fMask & SIF_POS) info->nPos = values->position;
  return TRUE;
}

int WINAPI SetScrollInfo(HWND handle, int bar, const SCROLLINFO* info, BOOL) {
  SettleLayout(handle);
  ScrollBar* values = BarOf(handle, bar);
  if (!values) return 0;
  FindWindow(handle)->hasScrollBars = true;
  if (info->fMask & SIF_POS) values->position = info->nPos;
  const int last = values->max - std::max(static_cast<int>(values->page) - 1, 0);
  values->position = std::clamp(values->position, 0, std::max(0, last));
  return values->position;
}
