// The tool tip window of a control.
#pragma once

#include <windows.h>

namespace winsim {

HWND MakeToolTip(HWND owner);

}  // namespace winsim
