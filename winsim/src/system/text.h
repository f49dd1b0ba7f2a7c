// Conversion between the platform's UTF-16 and the UTF-8 of this system.
#pragma once

#include <string>
#include <string_view>

namespace winsim {

std::string ToUtf8(std::u16string_view text);
std::u16string ToUtf16(std::string_view text);

// Changes ASCII letters only.
std::u16string ToLower(std::u16string text);

}  // namespace winsim
