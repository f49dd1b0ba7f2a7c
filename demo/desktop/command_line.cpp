// How the system hands over arguments and files.
#include <windows.h>

#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include <cstdio>

#include "platform.h"

namespace demo {

std::vector<std::filesystem::path> CommandLine(int, char**) {
  _setmode(_fileno(stdout), _O_BINARY);
  int count = 0;
  LPWSTR* texts = CommandLineToArgvW(GetCommandLineW(), &count);
  if (texts == nullptr) return {};
  std::vector<std::filesystem::path> arguments(texts + 1, texts + count);
  LocalFree(texts);
  return arguments;
}

std::FILE* OpenForWriting(const std::filesystem::path& file) {
  return _wfopen(file.c_str(), L"wb");
}

}  // namespace demo
