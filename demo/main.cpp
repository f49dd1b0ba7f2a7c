#include <cstdio>

#include "options.h"
#include "outline_run.h"
#include "platform.h"

int main(int count, char** arguments) {
  const auto options = demo::ParseOptions(demo::CommandLine(count, arguments));
  if (!options) {
    std::fputs(demo::USAGE, stderr);
    return 2;
  }
  return options->outline ? demo::RunOutline(*options) : demo::RunDesktop(*options);
}
