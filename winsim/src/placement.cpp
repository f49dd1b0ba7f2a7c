// Where windows are, and whether they show.
#include <algorithm>

#include "window.h"

using namespace winsim;

namespace {

constexpr int kScrollBarSize = 17;
constexpr int kEdge = 2;
constexpr int kBorder = 1;

int FrameOf(const Window& window) {
  return ((window.exStyle & WS_EX_CLIENTEDGE) ? kEdge : 0) +
         ((window.style & WS_BORDER) ? kBorder : 0);
}

// Points can lie anywhere; sums wrap round, as the platform's do.
LONG WrapAdd(LONG a, LONG b) {
  return static_cast<LONG>(static_cast<DWORD>(a) + static_cast<DWORD>(b));
}

POINT ScreenOrigin(const Window& window) {
  POINT origin = {window.rect.left, window.rect.top};
  const Window* above = (window.style & WS_CHILD) ? FindWindow(window.parent) : nullptr;
  if (above) {
    const POINT base = ScreenOrigin(*above);
    const int frame = FrameOf(*above);
    origin.x += base.x + frame;
    origin.y += base.y + frame;
  }
  return origin;
}

void TellPlacement(HWND handle, bool moved, bool sized) {
  const Window* window = FindWindow(handle);
  if (window && moved) {
    SendMessageW(handle, WM_MOVE, 0, MAKELPARAM(window->rect.left, window->rect.top));
  }
  RECT client;
  if (sized && GetClientRect(handle, &client)) {
    SendMessageW(handle, WM_SIZE, 0, MAKELPARAM(client.right, client.bottom));
  }
}

}  // namespace

BOOL WINAPI GetWindowRect(HWND handle, LPRECT rect) {
  const Window* window = FindWindow(handle);
  if (!window) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  const POINT origin = ScreenOrigin(*window);
  *rect = {origin.x, origin.y, origin.x + window->rect.right - window->rect.left,
           origin.y + window->rect.bottom - window->rect.top};
  return TRUE;
}

BOOL WINAPI GetClientRect(HWND handle, LPRECT rect) {
  SettleLayout(handle);
  const Window* window = FindWindow(handle);
  if (!window) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  const int frame = 2 * FrameOf(*window);
  const int width = window->rect.right - window->rect.left - frame;
  const int height = window->rect.bottom - window->rect.top - frame;
  const bool vertical = (window->style & WS_VSCROLL) && width >= kScrollBarSize;
  const bool horizontal = (window->style & WS_HSCROLL) && height > kScrollBarSize;
  *rect = {0, 0, std::max(width - (vertical ? kScrollBarSize : 0), 0),
           std::max(height - (horizontal ? kScrollBarSize : 0), 0)};
  return TRUE;
}

BOOL WINAPI ClientToScreen(HWND handle, LPPOINT point) {
  const Window* window = FindWindow(handle);
  if (!window) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  const POINT origin = ScreenOrigin(*window);
  point->x = WrapAdd(point->x, origin.x + FrameOf(*window));
  point->y = WrapAdd(point->y, origin.y + FrameOf(*window));
  return TRUE;
}

BOOL WINAPI ScreenToClient(HWND handle, LPPOINT point) {
  POINT origin = {};
  if (!ClientToScreen(handle, &origin)) {
    return FALSE;
  }
  point->x = WrapAdd(point->x, -origin.x);
  point->y = WrapAdd(point->y, -origin.y);
  return TRUE;
}

// A null window stands for the screen.
int WINAPI MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count) {
  POINT shift = {};
  if (from) {
    ClientToScreen(from, &shift);
  }
  if (to) {
    ScreenToClient(to, &shift);
  }
  for (UINT i = 0; i < count; ++i) {
    points[i].x = WrapAdd(points[i].x, shift.x);
    points[i].y = WrapAdd(points[i].y, shift.y);
  }
  return static_cast<int>(MAKELONG(shift.x, shift.y));
}

BOOL WINAPI MoveWindow(HWND handle, int x, int y, int width, int height, BOOL repaint) {
  return SetWindowPos(handle, nullptr, x, y, width, height,
                      SWP_NOZORDER | SWP_NOACTIVATE | (repaint ? 0U : SWP_NOREDRAW));
}

BOOL WINAPI SetWindowPos(HWND handle, HWND, int x, int y, int width, int height, UINT flags) {
  Window* window = FindWindow(handle);
  if (!window) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  const RECT former = window->rect;
  RECT rect = former;
  x = PlacedWithin(x);
  y = PlacedWithin(y);
  if (!(flags & SWP_NOMOVE)) {
    rect = {x, y, x + former.right - former.left, y + former.bottom - former.top};
  }
  if (!(flags & SWP_NOSIZE)) {
    rect.right = rect.left + PlacedWithin(std::max(width, 0));
    rect.bottom = rect.top + PlacedWithin(std::max(height, 0));
  }
  window->rect = rect;
  const bool moved = rect.left != former.left || rect.top != former.top;
  const bool sized = rect.right - rect.left != former.right - former.left ||
                     rect.bottom - rect.top != former.bottom - former.top;
  if (flags & (SWP_SHOWWINDOW | SWP_HIDEWINDOW)) {
    ShowWindow(handle, (flags & SWP_SHOWWINDOW) ? SW_SHOW : SW_HIDE);
  }
  if ((moved || sized) && !(flags & SWP_NOREDRAW)) {
    InvalidateRect(handle, nullptr, TRUE);
  }
  TellPlacement(handle, moved, sized);
  return TRUE;
}

BOOL WINAPI ShowWindow(HWND handle, int command) {
  Window* window = FindWindow(handle);
  if (!window) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  const bool wasVisible = (window->style & WS_VISIBLE) != 0;
  const bool visible = command != SW_HIDE;
  if (wasVisible != visible) {
    SendMessageW(handle, WM_SHOWWINDOW, visible, 0);
    ChangeStyle(handle, WS_VISIBLE, visible ? WS_VISIBLE : 0);
    if (visible && FindWindow(handle)) {
      FindWindow(handle)->invalid = true;
    }
    if (!visible && (GetFocus() == handle || IsChild(handle, GetFocus()))) {
      SetFocus(GetParent(handle));
    }
  }
  return wasVisible;
}

int WINAPI GetSystemMetrics(int index) {
  switch (index) {
    case SM_CXSCREEN:
      return 1280;
    case SM_CYSCREEN:
      return 1024;
    case SM_CXVSCROLL:
    case SM_CYHSCROLL:
      return kScrollBarSize;
    case SM_CXBORDER:
    case SM_CYBORDER:
      return kBorder;
    case SM_CXEDGE:
    case SM_CYEDGE:
      return kEdge;
    case SM_CYCAPTION:
      return 19;
    case SM_CXSMICON:
    case SM_CYSMICON:
      return 16;
    case SM_CXDRAG:
    case SM_CYDRAG:
      return 4;
    default:
      return 0;
  }
}
