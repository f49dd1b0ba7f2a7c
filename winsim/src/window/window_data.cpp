// The values that are stored with a window and with its class.
#include <utility>

#include "window/window.h"

using namespace winsim;

namespace {

LONG_PTR SetStyle(Window* window, LONG_PTR value) {
  STYLESTRUCT change = {window->style, static_cast<DWORD>(value)};
  window->style = change.styleNew;
  SendMessageW(window->handle, WM_STYLECHANGED, static_cast<WPARAM>(GWL_STYLE),
               reinterpret_cast<LPARAM>(&change));
  return static_cast<LONG_PTR>(change.styleOld);
}

}  // namespace

LONG_PTR WINAPI GetWindowLongPtrW(HWND handle, int index) {
  const Window* window = FindWindow(handle);
  if (!window) return 0;
  switch (index) {
    case GWL_STYLE:
      SettleLayout(handle);
      return static_cast<LONG_PTR>(window->style);
    case GWLP_USERDATA:
      return window->userData;
    case GWLP_WNDPROC:
      return reinterpret_cast<LONG_PTR>(window->procedure);
    default:
      return 0;
  }
}

LONG_PTR WINAPI SetWindowLongPtrW(HWND handle, int index, LONG_PTR value) {
  const auto window = ShareWindow(handle);
  if (!window) return 0;
  switch (index) {
    case GWLP_WNDPROC:
      return reinterpret_cast<LONG_PTR>(
          std::exchange(window->procedure, reinterpret_cast<WNDPROC>(value)));
    case GWLP_USERDATA:
      return std::exchange(window->userData, value);
    case GWL_STYLE:
      return SetStyle(window.get(), value);
    default:
      return 0;
  }
}

int WINAPI GetDlgCtrlID(HWND handle) {
  const Window* window = FindWindow(handle);
  return window ? static_cast<int>(window->id) : 0;
}

ULONG_PTR WINAPI GetClassLongPtrW(HWND handle, int index) {
  const Window* window = FindWindow(handle);
  if (!window || index != GCLP_WNDPROC) return 0;
  return reinterpret_cast<ULONG_PTR>(window->windowClass->procedure);
}

int WINAPI GetClassNameW(HWND handle, LPWSTR name, int size) {
  const Window* window = FindWindow(handle);
  if (!window || size <= 0) return 0;
  const std::size_t length =
      window->windowClass->name.copy(name, static_cast<std::size_t>(size - 1));
  name[length] = 0;
  return static_cast<int>(length);
}

// The stand-in has Unicode windows only.
BOOL WINAPI IsWindowUnicode(HWND window) { return FindWindow(window) != nullptr; }
