// Delivery of messages, and their default handling.
#include "window/window.h"

using namespace winsim;

namespace {

LRESULT SetText(HWND handle, LPCWSTR text) {
  Window* window = FindWindow(handle);
  if (window) window->text = text ? text : u"";
  return window != nullptr;
}

LRESULT PassToParent(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
  const Window* window = FindWindow(handle);
  const bool child = window && (window->style & WS_CHILD);
  return child ? SendMessageW(window->parent, message, wParam, lParam) : 0;
}

}  // namespace

LRESULT WINAPI SendMessageW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
  const auto window = ShareWindow(handle);
  return window ? CallWindowProcW(window->procedure, handle, message, wParam, lParam) : 0;
}

LRESULT WINAPI CallWindowProcW(WNDPROC procedure, HWND window, UINT message, WPARAM wParam,
                               LPARAM lParam) {
  return procedure ? procedure(window, message, wParam, lParam) : 0;
}

LRESULT WINAPI DispatchMessageW(const MSG* message) {
  return SendMessageW(message->hwnd, message->message, message->wParam, message->lParam);
}

BOOL WINAPI TranslateMessage(const MSG*) { return FALSE; }

// The mouse stays in the corner of the screen.
DWORD WINAPI GetMessagePos() { return 0; }

LRESULT WINAPI DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_NCCREATE:
      return TRUE;
    case WM_SETTEXT:
      return SetText(window, reinterpret_cast<LPCWSTR>(lParam));
    case WM_PAINT:
      ValidateRect(window, nullptr);
      return 0;
    case WM_CONTEXTMENU:
      return PassToParent(window, message, wParam, lParam);
    default:
      return 0;
  }
}
