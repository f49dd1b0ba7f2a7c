#include "options.h"

#include <windows.h>

#include <shellapi.h>

#include <cstddef>

namespace demo {

const char kUsage[] =
    "usage: demo [options] [directory]\n"
    "  --outline       print the tree as the view holds it, and end\n"
    "  --list          begin with the list instead of the tree\n"
    "  --log FILE      write every callback to FILE, - for the standard output\n"
    "  --skip NAME     leave out files and directories of that name; can be repeated\n"
    "  --channel       answer commands from the standard input (see docs/demo.md)\n";

namespace {

bool ParseFlag(const std::wstring& text, Options& options) {
  if (text == L"--outline") {
    options.outline = true;
  } else if (text == L"--list") {
    options.list = true;
  } else if (text == L"--channel") {
    options.channel = true;
  } else {
    return false;
  }
  return true;
}

bool ParseValue(const std::wstring& text, const std::wstring& value, Options& options) {
  if (text == L"--log") {
    options.logFile = value;
  } else if (text == L"--skip") {
    options.skip.push_back(value);
  } else {
    return false;
  }
  return true;
}

}  // namespace

std::vector<std::wstring> CommandLine() {
  int count = 0;
  LPWSTR* texts = CommandLineToArgvW(GetCommandLineW(), &count);
  if (!texts) return {};
  std::vector<std::wstring> arguments(texts + 1, texts + count);
  LocalFree(texts);
  return arguments;
}

std::optional<Options> ParseOptions(const std::vector<std::wstring>& arguments) {
  Options options;
  bool hasDirectory = false;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::wstring& text = arguments[i];
    if (ParseFlag(text, options)) continue;
    const bool hasNext = i + 1 < arguments.size();
    if (hasNext && ParseValue(text, arguments[i + 1], options)) {
      ++i;
    } else if (!hasDirectory && !text.starts_with(L"--")) {
      options.directory = text;
      hasDirectory = true;
    } else {
      return std::nullopt;
    }
  }
  return options;
}

}  // namespace demo
