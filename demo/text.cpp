#include "text.h"

#include <windows.h>

namespace demo {

std::string Utf8(std::wstring_view text) {
  const int size = static_cast<int>(text.size());
  const int length =
      WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
  std::string out(static_cast<std::size_t>(length), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), size, out.data(), length, nullptr, nullptr);
  return out;
}

std::wstring Wide(std::string_view text) {
  const int size = static_cast<int>(text.size());
  const int length = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0);
  std::wstring out(static_cast<std::size_t>(length), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), size, out.data(), length);
  return out;
}

}  // namespace demo
