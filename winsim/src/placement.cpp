// Where windows are, and whether they show.
#include <algorithm>

#include "window.h"

using namespace winsim;

namespace {

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

void TellSize(HWND handle) {
  RECT client;
  if (GetClientRect(handle, &client)) {
    SendMessageW(handle, WM_SIZE, 0, MAKELPARAM(client.right, client.bottom));
  }
}

}  // namespace

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

BOOL WINAPI MoveWindow(HWND handle, int x, int y, int width, int height, BOOL repaint) {
  Window* window = FindWindow(handle);
  if (!window) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  const RECT former = window->rect;
  x = PlacedWithin(x);
  y = PlacedWithin(y);
  const RECT rect = {x, y, x + PlacedWithin(std::max(width, 0)),
                     y + PlacedWithin(std::max(height, 0))};
  window->rect = rect;
  const bool moved = rect.left != former.left || rect.top != former.top;
  const bool sized = rect.right - rect.left != former.right - former.left ||
                     rect.bottom - rect.top != former.bottom - former.top;
  if ((moved || sized) && repaint) {
    InvalidateRect(handle, nullptr, TRUE);
  }
  if (sized) {
    TellSize(handle);
  }
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
    ChangeStyle(handle, WS_VISIBLE, visible ? WS_VISIBLE : 0);
    window->invalid = window->invalid || visible;
    if (!visible && (GetFocus() == handle || IsChild(handle, GetFocus()))) {
      SetFocus(GetParent(handle));
    }
  }
  return wasVisible;
}
