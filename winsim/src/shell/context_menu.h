// The shell's context menu object.
#pragma once

#include <shlobj.h>

namespace winsim {

// The caller owns the reference.
IContextMenu* MakeShellMenu();

}  // namespace winsim
