#pragma once

#include <string>

#include <shlobj.h>

namespace winsim {

// Live folders and menu objects.
int CountInterfaces();
int& LiveInterfaces();

IContextMenu* MakeShellMenu();
void ForgetShellFiles();

// Whether the name is a file for the shell: on disk, or one that a test added.
bool ShellFileExists(const std::u16string& path);

}  // namespace winsim
