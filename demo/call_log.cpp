#include "call_log.h"

namespace demo {
namespace {

constexpr std::size_t kBufferSize = 65536;

}  // namespace

bool CallLog::WriteTo(const std::wstring& file) {
  output.reset(file == L"-" ? stdout : _wfopen(file.c_str(), L"wb"));
  if (output) std::setvbuf(output.get(), nullptr, _IOFBF, kBufferSize);
  return output != nullptr;
}

void CallLog::Add(const std::string& text, int depth) {
  lines.push_back({text, depth});
  if (output) {
    std::fputs(text.c_str(), output.get());
    std::fputc('\n', output.get());
  }
  for (const auto& listener : listeners) listener();
}

void CallLog::Flush() {
  if (output) std::fflush(output.get());
}

}  // namespace demo
