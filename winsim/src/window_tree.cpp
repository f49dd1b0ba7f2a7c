// Who is whose parent.
#include <algorithm>
#include <utility>

#include "window.h"

using namespace winsim;

HWND WINAPI GetParent(HWND window) {
  const Window* known = FindWindow(window);
  return known && (known->style & (WS_CHILD | WS_POPUP)) ? known->parent : nullptr;
}

HWND WINAPI SetParent(HWND window, HWND parent) {
  Window* known = FindWindow(window);
  Window* above = FindWindow(parent);
  if (!known || (parent && !above)) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return nullptr;
  }
  if (Window* former = FindWindow(known->parent)) {
    std::erase(former->children, window);
  }
  if (above) {
    above->children.push_back(window);
  }
  return std::exchange(known->parent, parent);
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
  if (command == GW_OWNER) {
    return (known->style & WS_CHILD) ? nullptr : known->parent;
  }
  const Window* above = FindWindow(known->parent);
  if (!above || !(known->style & WS_CHILD)) {
    return nullptr;
  }
  const auto place = std::find(above->children.begin(), above->children.end(), window);
  if (command == GW_HWNDNEXT) {
    return place + 1 == above->children.end() ? nullptr : *(place + 1);
  }
  return command == GW_HWNDPREV && place != above->children.begin() ? *(place - 1) : nullptr;
}

HWND WINAPI FindWindowExW(HWND parent, HWND after, LPCWSTR className, LPCWSTR title) {
  const WindowClass* wanted = className ? FindClass(className) : nullptr;
  bool passed = after == nullptr;
  for (HWND candidate : AllWindows()) {
    const Window* known = FindWindow(candidate);
    const bool below = parent ? (known->parent == parent && (known->style & WS_CHILD))
                              : !(known->style & WS_CHILD);
    if (below && passed && (!className || known->windowClass == wanted) &&
        (!title || known->text == title)) {
      return candidate;
    }
    passed = passed || candidate == after;
  }
  return nullptr;
}

HWND WINAPI GetDlgItem(HWND window, int id) {
  const Window* known = FindWindow(window);
  if (known) {
    for (HWND child : known->children) {
      if (FindWindow(child)->id == id) {
        return child;
      }
    }
  }
  return nullptr;
}

int WINAPI GetDlgCtrlID(HWND window) {
  const Window* known = FindWindow(window);
  return known ? static_cast<int>(known->id) : 0;
}

HWND WINAPI GetDesktopWindow() { return nullptr; }

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

BOOL WINAPI EnableWindow(HWND window, BOOL enable) {
  const bool wasDisabled = !IsWindowEnabled(window);
  ChangeStyle(window, WS_DISABLED, enable ? 0 : WS_DISABLED);
  return wasDisabled;
}

BOOL WINAPI IsWindowEnabled(HWND window) {
  const Window* known = FindWindow(window);
  return known && !(known->style & WS_DISABLED);
}

DWORD WINAPI GetWindowThreadProcessId(HWND window, LPDWORD process) {
  if (process) {
    *process = GetCurrentProcessId();
  }
  return FindWindow(window) ? GetCurrentThreadId() : 0;
}
