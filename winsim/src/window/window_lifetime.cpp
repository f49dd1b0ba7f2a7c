// Creation and destruction of windows.
#include "window/input.h"
#include "window/message_queue.h"
#include "window/placement.h"
#include "window/window.h"

using namespace winsim;

namespace {

void SendDestroy(HWND handle) {
  SendMessageW(handle, WM_DESTROY, 0, 0);
  const auto window = ShareWindow(handle);
  if (!window) return;
  const std::vector<HWND> children = window->children;
  for (HWND child : children) SendDestroy(child);
}

void Remove(HWND handle) {
  const auto window = ShareWindow(handle);
  if (!window) return;
  const std::vector<HWND> children = window->children;
  for (HWND child : children) Remove(child);
  SendMessageW(handle, WM_NCDESTROY, 0, 0);
  if (Window* parent = FindWindow(window->parent)) std::erase(parent->children, handle);
  ForgetFocusOn(handle);
  ForgetMessagesOf(handle);
  RemoveWindow(handle);
}

// False if the window rejects its creation or is destroyed meanwhile.
bool SendCreate(const Window& window) {
  const HWND handle = window.handle;
  if (!SendMessageW(handle, WM_NCCREATE, 0, 0)) {
    Remove(handle);
    return false;
  }
  if (SendMessageW(handle, WM_CREATE, 0, 0) == -1) {
    DestroyWindow(handle);
    return false;
  }
  const RECT rect = window.rect;
  SendMessageW(handle, WM_SIZE, 0, MAKELPARAM(rect.right - rect.left, rect.bottom - rect.top));
  return FindWindow(handle) != nullptr;
}

void DestroyOwnedBy(HWND owner) {
  for (HWND handle : AllWindows()) {
    const Window* window = FindWindow(handle);
    if (window && window->parent == owner && !(window->style & WS_CHILD)) DestroyWindow(handle);
  }
}

}  // namespace

HWND WINAPI CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style, int x,
                            int y, int width, int height, HWND parent, HMENU menu, HINSTANCE,
                            LPVOID) {
  const WindowClass* windowClass = FindClass(className);
  Window* above = FindWindow(parent);
  const bool child = (style & WS_CHILD) != 0;
  if (!windowClass || ((parent || child) && !above)) return nullptr;
  const auto window = std::make_shared<Window>();
  window->parent = parent;
  window->windowClass = windowClass;
  window->procedure = windowClass->procedure;
  window->style = style;
  window->exStyle = exStyle;
  window->id = child ? reinterpret_cast<LONG_PTR>(menu) : 0;
  window->text = title ? title : u"";
  window->rect = PlacedRect(x, y, width, height);
  window->invalid = (style & WS_VISIBLE) != 0;
  AddWindow(window);
  if (child) above->children.push_back(window->handle);
  return SendCreate(*window) ? window->handle : nullptr;
}

BOOL WINAPI DestroyWindow(HWND handle) {
  const auto window = ShareWindow(handle);
  if (!window || window->destroying) return FALSE;
  window->destroying = true;
  DestroyOwnedBy(handle);
  const HWND focus = GetFocus();
  if (focus == handle || IsInside(focus, handle)) {
    SetFocus((window->style & WS_CHILD) ? window->parent : nullptr);
  }
  SendDestroy(handle);
  Remove(handle);
  return TRUE;
}

BOOL WINAPI IsWindow(HWND window) { return FindWindow(window) != nullptr; }
