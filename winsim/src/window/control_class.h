// The window classes of the stand-in's own controls.
#pragma once

#include "window/window_class.h"

namespace winsim {

void AddControlClass(LPCWSTR name, MakeControl makeControl);

// Registers the class of a control. A file with a control has one such object, so the class exists
// before the program begins.
template <class OwnControl>
class ControlClass {
 public:
  explicit ControlClass(LPCWSTR name) {
    AddControlClass(name, [](HWND window) -> std::shared_ptr<Control> {
      return std::make_shared<OwnControl>(window);
    });
  }
};

// Sends a notification to the control's parent; 0 if there is none.
LRESULT Notify(HWND control, UINT code, NMHDR* header);
LRESULT Notify(HWND control, UINT code);

}  // namespace winsim
