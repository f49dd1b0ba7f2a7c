// The tool tip window of a tree or a list.
#pragma once

#include <commctrl.h>

namespace winsim {

HWND MakeToolTip(HWND owner);

}  // namespace winsim
