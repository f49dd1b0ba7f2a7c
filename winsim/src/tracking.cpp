#include "tracking.h"

namespace winsim {

bool WaitForDrag(HWND window, POINT start, UINT buttonUp) {
  const int farX = GetSystemMetrics(SM_CXDRAG);
  const int farY = GetSystemMetrics(SM_CYDRAG);
  MSG message;
  while (PeekMessageW(&message, window, WM_MOUSEFIRST, WM_MOUSELAST, PM_REMOVE)) {
    if (message.message == buttonUp) {
      return false;
    }
    const int x = static_cast<short>(LOWORD(message.lParam));
    const int y = static_cast<short>(HIWORD(message.lParam));
    const bool near =
        x >= start.x - farX && x < start.x + farX && y >= start.y - farY && y < start.y + farY;
    if (message.message == WM_MOUSEMOVE && !near) {
      return true;
    }
  }
  return false;
}

}  // namespace winsim
