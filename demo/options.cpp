#include "options.h"

#include <cstddef>

#include "text.h"

namespace demo {

const char USAGE[] =
    "usage: demo [options] [directory]\n"
    "  --outline       print the tree as the view holds it, and end\n"
    "  --list          begin with the list instead of the tree\n"
    "  --log FILE      write every call of the client to FILE, - for the standard output\n"
    "  --skip NAME     pass over files and directories of that name; can be repeated\n"
    "  --channel       answer commands from the standard input (see docs/demo.md)\n";

namespace {

bool ParseFlag(const std::string& text, Options& options) {
  if (text == "--outline") {
    options.outline = true;
  } else if (text == "--list") {
    options.list = true;
  } else if (text == "--channel") {
    options.channel = true;
  } else {
    return false;
  }
  return true;
}

bool ParseValue(const std::string& text, const std::filesystem::path& value, Options& options) {
  if (text == "--log") {
    options.logFile = value;
  } else if (text == "--skip") {
    options.skip.push_back(PlainPath(value));
  } else {
    return false;
  }
  return true;
}

}  // namespace

std::optional<Options> ParseOptions(const std::vector<std::filesystem::path>& arguments) {
  Options options;
  bool named = false;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string text = PlainPath(arguments[i]);
    if (ParseFlag(text, options)) continue;
    const bool hasNext = i + 1 < arguments.size();
    if (hasNext && ParseValue(text, arguments[i + 1], options)) {
      ++i;
    } else if (!named && text.rfind("--", 0) != 0) {
      options.directory = arguments[i];
      named = true;
    } else {
      return std::nullopt;
    }
  }
  return options;
}

}  // namespace demo
