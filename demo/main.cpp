#include <fcntl.h>
#include <io.h>

#include <cstdio>

#include "options.h"
#include "outline.h"
#include "run_browser.h"

int main() {
  _setmode(_fileno(stdout), _O_BINARY);
  const auto options = demo::ParseOptions(demo::CommandLine());
  if (!options) {
    std::fputs(demo::kUsage, stderr);
    return 2;
  }
  return options->outline ? demo::RunOutline(*options) : demo::RunBrowser(*options);
}
