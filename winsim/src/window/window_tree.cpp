// Parents, children and siblings.
#include <algorithm>

#include "window/window.h"

using namespace winsim;

HWND WINAPI GetParent(HWND handle) {
  const Window* window = FindWindow(handle);
  return window && (window->style & (WS_CHILD | WS_POPUP)) ? window->parent : nullptr;
}

HWND WINAPI GetWindow(HWND handle, UINT command) {
  const Window* window = FindWindow(handle);
  if (!window) return nullptr;
  if (command == GW_CHILD) return window->children.empty() ? nullptr : window->children.front();
  const Window* parent = FindWindow(window->parent);
  if (!parent || !(window->style & WS_CHILD) || command != GW_HWNDNEXT) return nullptr;
  const auto place = std::ranges::find(parent->children, handle);
  return place + 1 == parent->children.end() ? nullptr : *(place + 1);
}
