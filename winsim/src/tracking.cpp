#include "tracking.h"

namespace winsim {

constexpr int kDragDistance = 4;  // in each direction

bool IsNear(POINT start, int x, int y) {
  return x >= start.x - kDragDistance && x < start.x + kDragDistance &&
         y >= start.y - kDragDistance && y < start.y + kDragDistance;
}

bool WaitForDrag(HWND window, POINT start, UINT buttonUp) {
  MSG message;
  while (PeekMessageW(&message, window, WM_MOUSEFIRST, WM_MOUSELAST, PM_REMOVE)) {
    if (message.message == buttonUp) {
      return false;
    }
    const int x = static_cast<short>(LOWORD(message.lParam));
    const int y = static_cast<short>(HIWORD(message.lParam));
    if (message.message == WM_MOUSEMOVE && !IsNear(start, x, y)) {
      return true;
    }
  }
  return false;
}

}  // namespace winsim
