// Which windows are visible, and which of them wait for WM_PAINT. Nothing is drawn.
#include "window/window.h"

using namespace winsim;

BOOL WINAPI IsWindowVisible(HWND handle) {
  const Window* window = FindWindow(handle);
  while (window && (window->style & WS_VISIBLE)) {
    if (!(window->style & WS_CHILD)) return TRUE;
    window = FindWindow(window->parent);
  }
  return FALSE;
}

BOOL WINAPI ShowWindow(HWND handle, int command) {
  Window* window = FindWindow(handle);
  if (!window) return FALSE;
  const bool wasVisible = (window->style & WS_VISIBLE) != 0;
  const bool visible = command != SW_HIDE;
  if (wasVisible == visible) return wasVisible;
  ChangeStyle(handle, WS_VISIBLE, visible ? WS_VISIBLE : 0);
  window->invalid = window->invalid || visible;
  if (!visible && (GetFocus() == handle || IsInside(GetFocus(), handle))) {
    SetFocus(GetParent(handle));
  }
  return wasVisible;
}

BOOL WINAPI InvalidateRect(HWND handle, const RECT*, BOOL) {
  Window* window = FindWindow(handle);
  if (window) window->invalid = true;
  return window != nullptr;
}

BOOL WINAPI RedrawWindow(HWND handle, const RECT* rect, HRGN, UINT flags) {
  return InvalidateRect(handle, rect, (flags & RDW_ERASE) != 0);
}

BOOL WINAPI ValidateRect(HWND handle, const RECT*) {
  Window* window = FindWindow(handle);
  if (window) window->invalid = false;
  return window != nullptr;
}

BOOL WINAPI GetUpdateRect(HWND handle, RECT* rect, BOOL) {
  const Window* window = FindWindow(handle);
  const bool waiting = window && window->invalid && IsWindowVisible(handle);
  if (rect) *rect = {};
  if (rect && waiting) GetClientRect(handle, rect);
  return waiting;
}

BOOL WINAPI UpdateWindow(HWND handle) {
  if (!FindWindow(handle)) return FALSE;
  if (GetUpdateRect(handle, nullptr, FALSE)) SendMessageW(handle, WM_PAINT, 0, 0);
  const auto window = ShareWindow(handle);
  const std::vector<HWND> children = window ? window->children : std::vector<HWND>();
  for (HWND child : children) UpdateWindow(child);
  return TRUE;
}
