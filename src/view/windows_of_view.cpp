#include "view/windows_of_view.h"

#include "core/module_handle.h"
#include "platform/activation.h"

HWND CreateViewParent(const WCHAR* className, WNDPROC procedure, HWND host, int x, int y, int width,
                      int height) {
  WNDCLASSW parentClass{};
  parentClass.style = CS_HREDRAW | CS_VREDRAW;
  parentClass.lpfnWndProc = procedure;
  parentClass.hInstance = moduleHandle;
  parentClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  parentClass.lpszClassName = className;
  activated::RegisterClassW(&parentClass);
  return activated::CreateWindowExW(0, className, TEXT("QVL Tree View Parent"),
                                    WS_CHILD | WS_VISIBLE, x, y, width, height, host, nullptr,
                                    moduleHandle, nullptr);
}

HWND CreateViewControl(const WCHAR* className, DWORD style, DWORD exStyle, HWND parent,
                       int controlId, int width, int height) {
  const auto id = reinterpret_cast<HMENU>(static_cast<INT_PTR>(controlId));
  return activated::CreateWindowExW(exStyle, className, TEXT("QVL Tree View"), style, 0, 0, width,
                                    height, parent, id, moduleHandle, nullptr);
}

void ReplaceControlProc(HWND control, WNDPROC procedure, WNDPROC& saved) {
  const LONG_PTR previous =
      SetWindowLongPtrW(control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
  if (previous) saved = reinterpret_cast<WNDPROC>(previous);
}

void MoveViewWindows(HWND parent, HWND control, int x, int y, int width, int height) {
  MoveWindow(parent, x, y, width, height, FALSE);
  MoveWindow(control, 0, 0, width, height, FALSE);
}

namespace {

// A window that outlives its view, because the platform does not let go of it, must not find the
// view any more.
void EndWindow(HWND window) {
  if (window && !DestroyWindow(window)) SetWindowLongPtrW(window, GWLP_USERDATA, 0);
}

}  // namespace

bool EndViewWindows(ViewLife& life, HWND& control, HWND& parent) {
  life.End();
  LifeWatch alive(life);
  EndWindow(control);
  if (alive) EndWindow(parent);
  if (!alive) return false;
  control = nullptr;
  parent = nullptr;
  return true;
}
