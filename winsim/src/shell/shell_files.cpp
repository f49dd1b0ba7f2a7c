#include "shell/shell_files.h"

#include <winsim.h>

#include <filesystem>
#include <set>
#include <system_error>

#include "system/text.h"

namespace winsim {
namespace {

std::set<std::u16string>& AddedFiles() {
  static std::set<std::u16string> files;
  return files;
}

}  // namespace

void AddShellFile(const std::u16string& path) { AddedFiles().insert(path); }

void ForgetShellFiles() { AddedFiles().clear(); }

bool ShellFileExists(const std::u16string& path) {
  std::error_code error;
  return AddedFiles().contains(path) || std::filesystem::exists(ToUtf8(path), error);
}

}  // namespace winsim
