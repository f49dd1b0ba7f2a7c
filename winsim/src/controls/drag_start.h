// Detection of a drag after a button is pressed.
#pragma once

#include <windows.h>

namespace winsim {

// The position of a mouse message in the client area.
POINT MousePoint(LPARAM lParam);

// Whether the mouse has moved too little for a drag.
bool IsNear(POINT start, POINT point);

// Removes posted mouse messages from the queue until the button is released (false) or the mouse
// has moved far enough for a drag (true). An empty queue counts as a release: no message arrives
// later.
bool WaitForDrag(HWND window, POINT start, UINT buttonUp);

}  // namespace winsim
