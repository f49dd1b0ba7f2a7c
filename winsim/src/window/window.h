// The windows of the process.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "window/control.h"
#include "window/window_class.h"

namespace winsim {

struct ScrollBar {
  int max = 100;
  UINT page = 0;
  int position = 0;
};

// The thickness of a scroll bar in pixels.
constexpr int kScrollBarSize = 17;

struct Window {
  HWND handle = nullptr;
  HWND parent = nullptr;  // the owner, if the window is not a child
  std::vector<HWND> children;
  const WindowClass* windowClass = nullptr;
  WNDPROC procedure = nullptr;
  DWORD style = 0;
  DWORD exStyle = 0;
  LONG_PTR id = 0;
  LONG_PTR userData = 0;
  std::u16string text;
  RECT rect = {};              // in the parent's client area, or on the screen
  bool hasScrollBars = false;  // true after the first value is set
  ScrollBar bars[2];           // by SB_HORZ and SB_VERT
  bool invalid = false;
  bool destroying = false;
  std::shared_ptr<Control> control;
};

// The existing window of that handle, or null.
Window* FindWindow(HWND handle);
std::shared_ptr<Window> ShareWindow(HWND handle);
int CountWindows();
// In the order of creation.
std::vector<HWND> AllWindows();

// Gives the window a handle that no window had before.
void AddWindow(const std::shared_ptr<Window>& window);
void RemoveWindow(HWND handle);

// Whether the window is a descendant of the other.
bool IsInside(HWND window, HWND ancestor);

// Changes the style bits under the mask without a message.
void ChangeStyle(HWND handle, DWORD mask, DWORD bits);

// Lets the window's control, if it has one, settle its layout.
void SettleLayout(HWND handle);

}  // namespace winsim
