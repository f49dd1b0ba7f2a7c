// The focus and the state of the keys.
#pragma once

#include <windows.h>

namespace winsim {

// Takes the focus from a window that is destroyed.
void ForgetFocusOn(HWND window);

// Releases every key and takes the focus from all windows.
void ResetInput();

}  // namespace winsim
