// Which windows wait to be painted. Nothing is drawn.
#include "window.h"

using namespace winsim;

BOOL WINAPI InvalidateRect(HWND handle, const RECT*, BOOL) {
  Window* window = FindWindow(handle);
  if (!window) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  window->invalid = true;
  return TRUE;
}

BOOL WINAPI RedrawWindow(HWND handle, const RECT* rect, HRGN, UINT flags) {
  return InvalidateRect(handle, rect, (flags & RDW_ERASE) != 0);
}

BOOL WINAPI ValidateRect(HWND handle, const RECT*) {
  Window* window = FindWindow(handle);
  if (!window) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  window->invalid = false;
  return TRUE;
}

BOOL WINAPI GetUpdateRect(HWND handle, LPRECT rect, BOOL) {
  const Window* window = FindWindow(handle);
  const bool waiting = window && window->invalid && IsWindowVisible(handle);
  if (rect) {
    *rect = {};
    if (waiting) {
      GetClientRect(handle, rect);
    }
  }
  return waiting;
}

BOOL WINAPI UpdateWindow(HWND handle) {
  if (!FindWindow(handle)) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  if (GetUpdateRect(handle, nullptr, FALSE)) {
    SendMessageW(handle, WM_PAINT, 0, 0);
  }
  if (const auto window = ShareWindow(handle)) {
    const std::vector<HWND> children = window->children;
    for (HWND child : children) {
      UpdateWindow(child);
    }
  }
  return TRUE;
}
