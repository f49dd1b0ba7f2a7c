// The interface of the stand-in's own controls.
#pragma once

#include <windows.h>

namespace winsim {

// Handles the messages of one window. A control is deleted after its window is destroyed and the
// last message that it handles has returned, so a handler may outlive its window.
class Control {
 public:
  virtual ~Control() = default;
  virtual LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) = 0;
  // Updates the scroll bars. Called before the scroll bars or the client area are read.
  virtual void SettleLayout() {}
};

}  // namespace winsim
