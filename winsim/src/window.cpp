#include "window.h"

#include <algorithm>
#include <map>
#include <utility>

namespace winsim {
namespace {

// In the order of creation, since handles only grow.
std::map<HWND, std::shared_ptr<Window>>& Windows() {
  static std::map<HWND, std::shared_ptr<Window>> windows;
  return windows;
}

// A handle is never given twice, so a stale one is always found out.
HWND NextHandle() {
  static ULONG_PTR last = 0x10010;
  last += 2;
  return reinterpret_cast<HWND>(last);
}

void TellParent(const Window& window, WORD event) {
  if ((window.style & WS_CHILD) && window.parent && !(window.exStyle & WS_EX_NOPARENTNOTIFY)) {
    SendMessageW(window.parent, WM_PARENTNOTIFY, MAKEWPARAM(event, window.id),
                 reinterpret_cast<LPARAM>(window.handle));
  }
}

void SendDestroy(HWND handle) {
  SendMessageW(handle, WM_DESTROY, 0, 0);
  if (const auto window = ShareWindow(handle)) {
    const std::vector<HWND> children = window->children;
    for (HWND child : children) {
      if (FindWindow(child)) {
        SendDestroy(child);
      }
    }
  }
}

void Remove(HWND handle) {
  const auto window = ShareWindow(handle);
  if (!window) {
    return;
  }
  const std::vector<HWND> children = window->children;
  for (HWND child : children) {
    Remove(child);
  }
  SendMessageW(handle, WM_NCDESTROY, 0, 0);
  if (Window* parent = FindWindow(window->parent)) {
    std::erase(parent->children, handle);
  }
  SetFocusAfterDestroy(handle);
  ForgetMessagesOf(handle);
  Windows().erase(handle);
}

// False if the window refused itself or ended while it was told.
bool AnnounceCreation(const std::shared_ptr<Window>& window) {
  if (!SendMessageW(window->handle, WM_NCCREATE, 0, 0)) {
    Remove(window->handle);
    return false;
  }
  if (SendMessageW(window->handle, WM_CREATE, 0, 0) == -1) {
    DestroyWindow(window->handle);
    return false;
  }
  const RECT rect = window->rect;
  SendMessageW(window->handle, WM_SIZE, 0,
               MAKELPARAM(rect.right - rect.left, rect.bottom - rect.top));
  TellParent(*window, WM_CREATE);
  return FindWindow(window->handle) != nullptr;
}

}  // namespace

Window* FindWindow(HWND handle) {
  const auto found = Windows().find(handle);
  return found == Windows().end() ? nullptr : found->second.get();
}

std::shared_ptr<Window> ShareWindow(HWND handle) {
  const auto found = Windows().find(handle);
  return found == Windows().end() ? nullptr : found->second;
}

void SettleLayout(HWND handle) {
  const Window* window = FindWindow(handle);
  if (window && window->control) {
    const std::shared_ptr<Control> control = window->control;
    control->SettleLayout();
  }
}

int CountWindows() { return static_cast<int>(Windows().size()); }

std::vector<HWND> AllWindows() {
  std::vector<HWND> handles;
  for (const auto& [handle, window] : Windows()) {
    handles.push_back(handle);
  }
  return handles;
}

void ChangeStyle(HWND window, DWORD mask, DWORD bits) {
  if (Window* known = FindWindow(window)) {
    known->style = (known->style & ~mask) | (bits & mask);
  }
}

LRESULT Notify(HWND from, UINT code, NMHDR* header) {
  const Window* window = FindWindow(from);
  if (!window || !window->parent) {
    return 0;
  }
  header->hwndFrom = from;
  header->idFrom = static_cast<UINT_PTR>(window->id);
  header->code = code;
  return SendMessageW(window->parent, WM_NOTIFY, header->idFrom, reinterpret_cast<LPARAM>(header));
}

LRESULT CALLBACK ControlProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  Window* known = FindWindow(window);
  if (!known) {
    return 0;
  }
  if (message == WM_NCCREATE && known->windowClass->makeControl) {
    known->control = known->windowClass->makeControl(window);
  }
  const std::shared_ptr<Control> control = known->control;
  return control ? control->Handle(message, wParam, lParam)
                 : DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace winsim

using namespace winsim;

HWND WINAPI CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style, int x,
                            int y, int width, int height, HWND parent, HMENU menu, HINSTANCE,
                            LPVOID) {
  const WindowClass* windowClass = FindClass(className);
  if (!windowClass) {
    SetLastError(ERROR_CANNOT_FIND_WND_CLASS);
    return nullptr;
  }
  Window* above = FindWindow(parent);
  if ((parent && !above) || (!parent && (style & WS_CHILD))) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return nullptr;
  }
  const auto window = std::make_shared<Window>();
  window->handle = NextHandle();
  window->parent = above ? parent : nullptr;
  window->windowClass = windowClass;
  window->procedure = windowClass->procedure;
  window->style = style;
  window->exStyle = exStyle;
  window->id = (style & WS_CHILD) ? reinterpret_cast<LONG_PTR>(menu) : 0;
  window->text = title ? title : u"";
  const int left = PlacedWithin(x);
  const int top = PlacedWithin(y);
  window->rect = {left, top, left + PlacedWithin(std::max(width, 0)),
                  top + PlacedWithin(std::max(height, 0))};
  window->invalid = (style & WS_VISIBLE) != 0;
  Windows()[window->handle] = window;
  if (above && (style & WS_CHILD)) {
    above->children.push_back(window->handle);
  }
  return AnnounceCreation(window) ? window->handle : nullptr;
}

BOOL WINAPI DestroyWindow(HWND handle) {
  const auto window = ShareWindow(handle);
  if (!window || window->ending) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  window->ending = true;
  TellParent(*window, WM_DESTROY);
  for (HWND other : AllWindows()) {
    const Window* known = FindWindow(other);
    if (known && known->parent == handle && !(known->style & WS_CHILD)) {
      DestroyWindow(other);  // what a window owns ends with it
    }
  }
  const HWND focus = GetFocus();
  if (focus == handle || IsChild(handle, focus)) {
    SetFocus((window->style & WS_CHILD) ? window->parent : nullptr);
  }
  SendDestroy(handle);
  Remove(handle);
  return TRUE;
}

BOOL WINAPI IsWindow(HWND window) { return FindWindow(window) != nullptr; }

LONG_PTR WINAPI GetWindowLongPtrW(HWND handle, int index) {
  const Window* window = FindWindow(handle);
  if (!window) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return 0;
  }
  switch (index) {
    case GWL_STYLE:
      SettleLayout(handle);
      return static_cast<LONG_PTR>(window->style);
    case GWL_EXSTYLE:
      return static_cast<LONG_PTR>(window->exStyle);
    case GWLP_USERDATA:
      return window->userData;
    case GWLP_WNDPROC:
      return reinterpret_cast<LONG_PTR>(window->procedure);
    default:
      SetLastError(ERROR_INVALID_PARAMETER);
      return 0;
  }
}

namespace {

LONG_PTR SetStyle(HWND handle, DWORD* style, LONG_PTR value) {
  STYLESTRUCT change = {*style, static_cast<DWORD>(value)};
  *style = change.styleNew;
  SendMessageW(handle, WM_STYLECHANGED, static_cast<WPARAM>(GWL_STYLE),
               reinterpret_cast<LPARAM>(&change));
  return static_cast<LONG_PTR>(change.styleOld);
}

}  // namespace

LONG_PTR WINAPI SetWindowLongPtrW(HWND handle, int index, LONG_PTR value) {
  const auto window = ShareWindow(handle);
  if (!window) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return 0;
  }
  switch (index) {
    case GWLP_WNDPROC: {
      const auto former = reinterpret_cast<LONG_PTR>(window->procedure);
      window->procedure = reinterpret_cast<WNDPROC>(value);
      return former;
    }
    case GWLP_USERDATA:
      return std::exchange(window->userData, value);
    case GWL_STYLE:
      return SetStyle(handle, &window->style, value);
    default:
      SetLastError(ERROR_INVALID_PARAMETER);
      return 0;
  }
}
