#include "entry_text.h"

#include <array>
#include <chrono>
#include <ctime>
#include <string>

namespace demo {

WideText SizeText(const Entry& entry) {
  if (entry.directory) return {};
  std::string digits = std::to_string(entry.size);
  for (std::size_t at = digits.size(); at > 3; at -= 3) digits.insert(at - 3, 1, ',');
  return Wide(digits);
}

WideText TimeText(const Entry& entry) {
  if (entry.modified == std::filesystem::file_time_type{}) return {};
  const auto seconds =
      std::chrono::floor<std::chrono::seconds>(std::chrono::file_clock::to_sys(entry.modified));
  const std::time_t time = std::chrono::system_clock::to_time_t(seconds);
  const std::tm* local = std::localtime(&time);
  if (local == nullptr) return {};
  std::array<char, 32> text{};
  const std::size_t length = std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", local);
  return Wide({text.data(), length});
}

WideText TipText(const Entry& entry) {
  WideText text = WidePath(entry.path);
  const WideText size = SizeText(entry);
  const WideText time = TimeText(entry);
  if (!size.empty()) text += Wide("\r\n") + size + Wide(" bytes");
  if (!time.empty()) text += Wide("\r\nmodified ") + time;
  if (!entry.readable) text += Wide("\r\ncannot be read");
  return text;
}

}  // namespace demo
