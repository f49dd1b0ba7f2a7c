// The command line.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace demo {

struct Options {
  std::wstring directory = L".";
  std::wstring logFile;            // empty: none, "-": standard output
  std::vector<std::wstring> skip;  // names that are left out while reading
  bool outline = false;            // print what the view holds and end
  bool list = false;               // begin with the list
  bool channel = false;            // answer commands from the standard input
};

// The arguments of this process without the program's name.
std::vector<std::wstring> CommandLine();

// Nothing if the arguments are not understood.
std::optional<Options> ParseOptions(const std::vector<std::wstring>& arguments);

extern const char kUsage[];

}  // namespace demo
