// What follows the press of a mouse button.
#pragma once

#include <windows.h>

namespace winsim {

// Whether the mouse has moved too little for a drag.
bool IsNear(POINT start, int x, int y);

// Takes the posted mouse messages from the queue until the button is up (false) or the mouse has
// moved far enough for a drag (true). An empty queue counts as the button let go: nobody is there
// to do it later.
bool WaitForDrag(HWND window, POINT start, UINT buttonUp);

}  // namespace winsim
