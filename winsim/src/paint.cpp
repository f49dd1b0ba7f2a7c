// Which windows wait to be painted. Nothing is drawn.
#include "window.h"

using namespace winsim;

BOOL WINAPI InvalidateRect(HWND handle, const RECT*, BOOL) {
  if (!handle) {
    for (HWND window : AllWindows()) {
      FindWindow(window)->invalid = true;
    }
    return TRUE;
  }
  Window* window = FindWindow(handle);
  if (!window) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  window->invalid = true;
  ++window->invalidations;
  return TRUE;
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

BOOL WINAPI RedrawWindow(HWND handle, const RECT* rect, HRGN, UINT flags) {
  if (flags & RDW_INVALIDATE) {
    InvalidateRect(handle, rect, (flags & RDW_ERASE) != 0);
  }
  if (flags & RDW_VALIDATE) {
    ValidateRect(handle, rect);
  }
  return (flags & RDW_UPDATENOW) ? UpdateWindow(handle) : TRUE;
}

HDC WINAPI BeginPaint(HWND handle, PAINTSTRUCT* paint) {
  *paint = {};
  paint->hdc = reinterpret_cast<HDC>(handle);
  GetClientRect(handle, &paint->rcPaint);
  ValidateRect(handle, nullptr);
  return paint->hdc;
}

BOOL WINAPI EndPaint(HWND, const PAINTSTRUCT*) { return TRUE; }

DWORD WINAPI GetSysColor(int index) {
  switch (index) {
    case COLOR_WINDOW:
      return RGB(255, 255, 255);
    case COLOR_HIGHLIGHT:
      return RGB(8, 36, 107);
    case COLOR_BTNFACE:
      return RGB(212, 208, 200);
    default:
      return RGB(0, 0, 0);
  }
}

HBRUSH WINAPI GetSysColorBrush(int index) {
  return reinterpret_cast<HBRUSH>(static_cast<ULONG_PTR>(index) + 1);
}

HGDIOBJ WINAPI GetStockObject(int index) {
  return reinterpret_cast<HGDIOBJ>(static_cast<ULONG_PTR>(index) + 0x100);
}

HBRUSH WINAPI CreateSolidBrush(COLORREF) { return reinterpret_cast<HBRUSH>(GetStockObject(0)); }
