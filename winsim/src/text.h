// Between UTF-16, in which the platform speaks, and UTF-8, in which this system does.
#pragma once

#include <string>
#include <string_view>

namespace winsim {

std::string ToUtf8(std::u16string_view text);
std::u16string ToUtf16(std::string_view text);
std::u16string ToLower(std::u16string text);

}  // namespace winsim
