#include "controls/drag_start.h"

namespace winsim {
namespace {

constexpr int kDragDistance = 4;  // in each direction

}  // namespace

POINT MousePoint(LPARAM lParam) {
  return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

bool IsNear(POINT start, POINT point) {
  return point.x >= start.x - kDragDistance && point.x < start.x + kDragDistance &&
         point.y >= start.y - kDragDistance && point.y < start.y + kDragDistance;
}

bool WaitForDrag(HWND window, POINT start, UINT buttonUp) {
  MSG message;
  while (PeekMessageW(&message, window, WM_MOUSEFIRST, WM_MOUSELAST, PM_REMOVE)) {
    if (message.message == buttonUp) return false;
    if (message.message == WM_MOUSEMOVE && !IsNear(start, MousePoint(message.lParam))) return true;
  }
  return false;
}

}  // namespace winsim
