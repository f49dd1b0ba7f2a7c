// The position and size of windows.
#pragma once

#include <windows.h>

namespace winsim {

// The rectangle of a window that is placed there. Limits position and size, so that sums of
// coordinates do not overflow.
RECT PlacedRect(int x, int y, int width, int height);

}  // namespace winsim
