// The header above a list's columns.
#pragma once

#include <windows.h>

namespace winsim {

HWND MakeHeader(HWND list, bool visible);

}  // namespace winsim
