#include "window/window.h"

#include <map>

namespace winsim {
namespace {

// Handles only grow, so this is the order of creation.
std::map<HWND, std::shared_ptr<Window>>& Windows() {
  static std::map<HWND, std::shared_ptr<Window>> windows;
  return windows;
}

}  // namespace

Window* FindWindow(HWND handle) { return ShareWindow(handle).get(); }

std::shared_ptr<Window> ShareWindow(HWND handle) {
  const auto found = Windows().find(handle);
  return found == Windows().end() ? nullptr : found->second;
}

int CountWindows() { return static_cast<int>(Windows().size()); }

std::vector<HWND> AllWindows() {
  std::vector<HWND> handles;
  for (const auto& [handle, window] : Windows()) handles.push_back(handle);
  return handles;
}

void AddWindow(const std::shared_ptr<Window>& window) {
  static ULONG_PTR last = 0x10010;
  last += 2;
  window->handle = reinterpret_cast<HWND>(last);
  Windows()[window->handle] = window;
}

void RemoveWindow(HWND handle) { Windows().erase(handle); }

bool IsInside(HWND window, HWND ancestor) {
  const Window* known = FindWindow(window);
  while (known && (known->style & WS_CHILD) && known->parent != ancestor) {
    known = FindWindow(known->parent);
  }
  return known && (known->style & WS_CHILD);
}

void ChangeStyle(HWND handle, DWORD mask, DWORD bits) {
  if (Window* window = FindWindow(handle)) window->style = (window->style & ~mask) | (bits & mask);
}

void SettleLayout(HWND handle) {
  const auto window = ShareWindow(handle);
  const auto control = window ? window->control : nullptr;
  if (control) control->SettleLayout();
}

}  // namespace winsim
