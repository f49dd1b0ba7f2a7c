// The files that exist for the shell.
#pragma once

#include <string>

namespace winsim {

// Whether the name is a file on disk or one that a test added.
bool ShellFileExists(const std::u16string& path);

// Removes the files that tests added.
void ForgetShellFiles();

}  // namespace winsim
