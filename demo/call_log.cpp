#include "call_log.h"

#include "platform.h"

namespace demo {

bool CallLog::WriteTo(const std::filesystem::path& file) {
  output.reset(file == "-" ? stdout : OpenForWriting(file));
  return output != nullptr;
}

void CallLog::Add(const std::string& text, int depth) {
  lines.push_back({text, depth});
  if (output) {
    std::fprintf(output.get(), "%s\n", text.c_str());
    std::fflush(output.get());
  }
  for (const auto& listener : listeners) listener();
}

}  // namespace demo
