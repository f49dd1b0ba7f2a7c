// Windows as the stand-in keeps them.
#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <windows.h>

namespace winsim {

// What a control of the stand-in's own keeps for one window. It lives until the window is gone and
// the last message that it handles has returned, so a handler may outlive its window.
class Control {
 public:
  virtual ~Control() = default;
  virtual LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) = 0;
  // Brings scroll bars up to date; called before anybody looks at them.
  virtual void SettleLayout() {}
};

// Lets the control of the window, if it has one, settle its layout.
void SettleLayout(HWND window);

struct WindowClass {
  std::u16string name;
  WNDPROC procedure = nullptr;
  ATOM atom = 0;
  // Makes the control behind a window of the stand-in's own classes.
  std::shared_ptr<Control> (*makeControl)(HWND) = nullptr;
};

struct ScrollBar {
  int min = 0;
  int max = 100;
  UINT page = 0;
  int position = 0;
};

struct Window {
  HWND handle = nullptr;
  HWND parent = nullptr;  // or owner, without WS_CHILD
  std::vector<HWND> children;
  const WindowClass* windowClass = nullptr;
  WNDPROC procedure = nullptr;
  DWORD style = 0;
  DWORD exStyle = 0;
  LONG_PTR id = 0;
  LONG_PTR userData = 0;
  std::u16string text;
  RECT rect = {};              // in the parent's client area, or on the screen
  bool hasScrollBars = false;  // set once a bar was given a value
  ScrollBar bars[2];
  bool invalid = false;
  bool ending = false;
  std::shared_ptr<Control> control;
};

// How wide a scroll bar is.
constexpr int kScrollBarSize = 17;

// No window lies or reaches farther than this many pixels.
constexpr int kFarthest = 1 << 24;
inline int PlacedWithin(int value) { return std::clamp(value, -kFarthest, kFarthest); }

// The live window of that handle, or null.
Window* FindWindow(HWND handle);
std::shared_ptr<Window> ShareWindow(HWND handle);
int CountWindows();
// All live windows in the order in which they were made.
std::vector<HWND> AllWindows();

const WindowClass* FindClass(LPCWSTR name);
// The procedure of the stand-in's own classes: hands on to the window's Control.
LRESULT CALLBACK ControlProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
void AddControlClass(const char16_t* name, std::shared_ptr<Control> (*make)(HWND));

// Changes the style bits under the mask without telling the window.
void ChangeStyle(HWND window, DWORD mask, DWORD bits);

// Sends a notification to the parent of `from`; 0 if there is none.
LRESULT Notify(HWND from, UINT code, NMHDR* header);

void SetFocusAfterDestroy(HWND window);
void ForgetMessagesOf(HWND window);

}  // namespace winsim
