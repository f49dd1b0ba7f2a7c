// Who is whose parent.
#include <algorithm>

#include "window.h"

using namespace winsim;

HWND WINAPI GetParent(HWND window) {
  const Window* known = FindWindow(window);
  return known && (known->style & (WS_CHILD | WS_POPUP)) ? known->parent : nullptr;
}

BOOL WINAPI IsChild(HWND parent, HWND window) {
  for (const Window* known = FindWindow(window); known && (known->style & WS_CHILD);
       known = FindWindow(known->parent)) {
    if (known->parent == parent) {
      return TRUE;
    }
  }
  return FALSE;
}

HWND WINAPI GetWindow(HWND window, UINT command) {
  const Window* known = FindWindow(window);
  if (!known) {
    return nullptr;
  }
  if (command == GW_CHILD) {
    return known->children.empty() ? nullptr : known->children.front();
  }
  const Window* above = FindWindow(known->parent);
  if (!above || !(known->style & WS_CHILD)) {
    return nullptr;
  }
  const auto place = std::find(above->children.begin(), above->children.end(), window);
  return command == GW_HWNDNEXT && place + 1 != above->children.end() ? *(place + 1) : nullptr;
}

int WINAPI GetDlgCtrlID(HWND window) {
  const Window* known = FindWindow(window);
  return known ? static_cast<int>(known->id) : 0;
}

// There is no other character set here.
BOOL WINAPI IsWindowUnicode(HWND window) { return FindWindow(window) != nullptr; }

BOOL WINAPI IsWindowVisible(HWND window) {
  const Window* known = FindWindow(window);
  while (known && (known->style & WS_VISIBLE)) {
    if (!(known->style & WS_CHILD)) {
      return TRUE;
    }
    known = FindWindow(known->parent);
  }
  return FALSE;
}
