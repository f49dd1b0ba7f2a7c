// The build against the stand-in: there is nothing to look at, only the outline.
#include <cstdio>

#include "options.h"
#include "platform.h"

namespace demo {

std::vector<std::filesystem::path> CommandLine(int count, char** arguments) {
  return {arguments + 1, arguments + count};
}

std::FILE* OpenForWriting(const std::filesystem::path& file) {
  return std::fopen(file.c_str(), "wb");
}

int RunDesktop(const Options&) {
  std::fprintf(stderr, "demo: this build has no desktop; --outline prints what the view holds\n");
  return 2;
}

}  // namespace demo
