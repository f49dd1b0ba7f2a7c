// The registered window classes.
#pragma once

#include <memory>
#include <string>

#include "window/control.h"

namespace winsim {

using MakeControl = std::shared_ptr<Control> (*)(HWND window);

struct WindowClass {
  std::u16string name;
  WNDPROC procedure = nullptr;
  // Creates the control of a window; null for classes that the program registers.
  MakeControl makeControl = nullptr;
  ATOM atom = 0;
};

// The class of that name or atom, or null. Classes stay registered.
const WindowClass* FindClass(LPCWSTR name);
ATOM AddClass(LPCWSTR name, WNDPROC procedure, MakeControl makeControl);

}  // namespace winsim
