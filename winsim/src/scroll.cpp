#include <algorithm>

#include "window.h"

using namespace winsim;

namespace {

ScrollBar* BarOf(HWND handle, int bar) {
  Window* window = FindWindow(handle);
  if (!window) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return nullptr;
  }
  return bar == SB_HORZ || bar == SB_VERT ? &window->bars[bar] : nullptr;
}

// A bar without a range to scroll through is hidden, the other way round it shows.
void ShowAsNeeded(HWND handle, int bar, const ScrollBar& values) {
  const DWORD style = bar == SB_HORZ ? WS_HSCROLL : WS_VSCROLL;
  const bool needed = values.max - values.min >= static_cast<int>(std::max(values.page, 1U));
  ChangeStyle(handle, style, needed ? style : 0);
}

}  // namespace

BOOL WINAPI GetScrollInfo(HWND handle, int bar, SCROLLINFO* info) {
  SettleLayout(handle);
  const ScrollBar* values = BarOf(handle, bar);
  if (!values || !FindWindow(handle)->hasScrollBars) {
    SetLastError(values ? ERROR_ACCESS_DENIED : ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  if (info->fMask & SIF_RANGE) {
    info->nMin = values->min;
    info->nMax = values->max;
  }
  if (info->fMask & SIF_PAGE) {
    info->nPage = values->page;
  }
  if (info->fMask & SIF_POS) {
    info->nPos = values->position;
  }
  if (info->fMask & SIF_TRACKPOS) {
    info->nTrackPos = values->position;
  }
  return TRUE;
}

int WINAPI SetScrollInfo(HWND handle, int bar, const SCROLLINFO* info, BOOL) {
  SettleLayout(handle);
  ScrollBar* values = BarOf(handle, bar);
  if (!values) {
    return 0;
  }
  FindWindow(handle)->hasScrollBars = true;
  if (info->fMask & SIF_RANGE) {
    values->min = info->nMin;
    values->max = std::max(info->nMin, info->nMax);
  }
  if (info->fMask & SIF_PAGE) {
    values->page = info->nPage;
  }
  if (info->fMask & SIF_POS) {
    values->position = info->nPos;
  }
  const int last = values->max - std::max(static_cast<int>(values->page) - 1, 0);
  values->position = std::clamp(values->position, values->min, std::max(values->min, last));
  if (info->fMask & (SIF_RANGE | SIF_PAGE)) {
    ShowAsNeeded(handle, bar, *values);
  }
  return values->position;
}

int WINAPI GetScrollPos(HWND handle, int bar) {
  SettleLayout(handle);
  const ScrollBar* values = BarOf(handle, bar);
  return values ? values->position : 0;
}
