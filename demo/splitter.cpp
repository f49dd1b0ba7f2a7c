#include "splitter.h"

namespace demo {

bool Splitter::Create(HWND parent) {
  WindowPlan plan;
  plan.className = L"QVLDemoSplitter";
  plan.cursor = MAKEINTRESOURCEW(32644);  // IDC_SIZEWE
  plan.parent = parent;
  return CreateFrom(plan);
}

LRESULT Splitter::Receive(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_LBUTTONDOWN:
      grip = static_cast<short>(LOWORD(lParam));
      SetCapture(Window());
      return 0;
    case WM_LBUTTONUP:
      ReleaseCapture();
      return 0;
    case WM_MOUSEMOVE:
      if (GetCapture() == Window()) {
        POINT point{static_cast<short>(LOWORD(lParam)) - grip, 0};
        MapWindowPoints(Window(), GetParent(Window()), &point, 1);
        moved(static_cast<int>(point.x));
      }
      return 0;
    default:
      return WindowBase::Receive(message, wParam, lParam);
  }
}

}  // namespace demo
