#pragma once

#include <winsim.h>

namespace winsim {

// Live folders and menu objects.
int CountInterfaces();
int& LiveInterfaces();

const ShellMenuBehaviour& MenuBehaviour();
IContextMenu* MakeShellMenu(UINT itemCount);
void ForgetShellSteering();

// Whether the name is a file for the shell: on disk, or one that a test added.
bool ShellFileExists(const std::u16string& path);

}  // namespace winsim
