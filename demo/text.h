// Text between the views, which use UTF-16, and logs and scripts, which use UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace demo {

// Half of a surrogate pair becomes the replacement character.
std::string Utf8(std::wstring_view text);

// An ill-formed byte becomes the replacement character.
std::wstring Wide(std::string_view text);

}  // namespace demo
