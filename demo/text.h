// Text between the views, which speak UTF-16, and logs and scripts, which speak UTF-8.
#ifndef DEMO_TEXT_H
#define DEMO_TEXT_H

#include <windows.h>

#include <filesystem>
#include <string>
#include <string_view>

namespace demo {

using WideText = std::basic_string<WCHAR>;

// A lone half of a surrogate pair becomes the replacement character.
std::string Utf8(std::basic_string_view<WCHAR> text);

// An ill-formed byte becomes the replacement character.
WideText Wide(std::string_view text);

// The path as the platform writes it.
WideText WidePath(const std::filesystem::path& path);

// The path with forward slashes, in UTF-8.
std::string PlainPath(const std::filesystem::path& path);

}  // namespace demo

#endif
