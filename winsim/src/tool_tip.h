// The tool tip window of a tree or a list.
#pragma once

#include <commctrl.h>

namespace winsim {

constexpr int kInfoTipSize = 1024;

HWND MakeToolTip(HWND owner);

}  // namespace winsim
