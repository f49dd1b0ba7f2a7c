// The command line.
#ifndef DEMO_OPTIONS_H
#define DEMO_OPTIONS_H

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace demo {

struct Options {
  std::filesystem::path directory = ".";
  std::filesystem::path logFile;  // empty: none, "-": standard output
  std::vector<std::string> skip;  // names that are passed over while reading
  bool outline = false;           // print what the view holds and end
  bool list = false;              // begin with the list
  bool channel = false;           // answer commands from the standard input
};

// Nothing if the arguments are not understood.
std::optional<Options> ParseOptions(const std::vector<std::filesystem::path>& arguments);

extern const char USAGE[];

}  // namespace demo

#endif
