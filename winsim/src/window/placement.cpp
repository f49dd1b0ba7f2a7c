#include "window/placement.h"

#include <algorithm>

#include "window/window.h"

namespace winsim {
namespace {

constexpr int kFarthest = 1 << 24;
constexpr int kEdge = 2;
constexpr int kBorder = 1;

int FrameOf(const Window& window) {
  return ((window.exStyle & WS_EX_CLIENTEDGE) ? kEdge : 0) +
         ((window.style & WS_BORDER) ? kBorder : 0);
}

// Sums of any coordinates wrap round, as on the platform.
LONG WrapAdd(LONG a, LONG b) {
  return static_cast<LONG>(static_cast<DWORD>(a) + static_cast<DWORD>(b));
}

// Where the client area begins on the screen.
POINT ClientOrigin(const Window& window) {
  POINT origin = {window.rect.left, window.rect.top};
  if (const Window* parent = (window.style & WS_CHILD) ? FindWindow(window.parent) : nullptr) {
    const POINT base = ClientOrigin(*parent);
    origin.x += base.x;
    origin.y += base.y;
  }
  const int frame = FrameOf(window);
  return {origin.x + frame, origin.y + frame};
}

}  // namespace

RECT PlacedRect(int x, int y, int width, int height) {
  const int left = std::clamp(x, -kFarthest, kFarthest);
  const int top = std::clamp(y, -kFarthest, kFarthest);
  return {left, top, left + std::clamp(width, 0, kFarthest),
          top + std::clamp(height, 0, kFarthest)};
}

}  // namespace winsim

using namespace winsim;

BOOL WINAPI GetClientRect(HWND handle, RECT* rect) {
  SettleLayout(handle);
  const Window* window = FindWindow(handle);
  if (!window) return FALSE;
  const int frame = 2 * FrameOf(*window);
  const int width = window->rect.right - window->rect.left - frame;
  const int height = window->rect.bottom - window->rect.top - frame;
  const bool vertical = (window->style & WS_VSCROLL) && width >= kScrollBarSize;
  const bool horizontal = (window->style & WS_HSCROLL) && height > kScrollBarSize;
  *rect = {0, 0, std::max(width - (vertical ? kScrollBarSize : 0), 0),
           std::max(height - (horizontal ? kScrollBarSize : 0), 0)};
  return TRUE;
}

BOOL WINAPI ClientToScreen(HWND handle, POINT* point) {
  const Window* window = FindWindow(handle);
  if (!window) return FALSE;
  const POINT origin = ClientOrigin(*window);
  *point = {WrapAdd(point->x, origin.x), WrapAdd(point->y, origin.y)};
  return TRUE;
}

BOOL WINAPI ScreenToClient(HWND handle, POINT* point) {
  const Window* window = FindWindow(handle);
  if (!window) return FALSE;
  const POINT origin = ClientOrigin(*window);
  *point = {WrapAdd(point->x, -origin.x), WrapAdd(point->y, -origin.y)};
  return TRUE;
}

BOOL WINAPI MoveWindow(HWND handle, int x, int y, int width, int height, BOOL repaint) {
  Window* window = FindWindow(handle);
  if (!window) return FALSE;
  const RECT former = window->rect;
  const RECT rect = PlacedRect(x, y, width, height);
  window->rect = rect;
  const bool moved = rect.left != former.left || rect.top != former.top;
  const bool sized = rect.right - rect.left != former.right - former.left ||
                     rect.bottom - rect.top != former.bottom - former.top;
  if ((moved || sized) && repaint) InvalidateRect(handle, nullptr, TRUE);
  RECT client;
  if (sized && GetClientRect(handle, &client)) {
    SendMessageW(handle, WM_SIZE, 0, MAKELPARAM(client.right, client.bottom));
  }
  return TRUE;
}
