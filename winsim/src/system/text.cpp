#include "system/text.h"

#include <cstdint>

namespace winsim {
namespace {

void AppendUtf8(char32_t point, std::string* text) {
  const auto byte = [text](char32_t value) { text->push_back(static_cast<char>(value)); };
  if (point < 0x80) {
    byte(point);
  } else if (point < 0x800) {
    byte(0xC0 | (point >> 6));
    byte(0x80 | (point & 0x3F));
  } else if (point < 0x10000) {
    byte(0xE0 | (point >> 12));
    byte(0x80 | ((point >> 6) & 0x3F));
    byte(0x80 | (point & 0x3F));
  } else {
    byte(0xF0 | (point >> 18));
    byte(0x80 | ((point >> 12) & 0x3F));
    byte(0x80 | ((point >> 6) & 0x3F));
    byte(0x80 | (point & 0x3F));
  }
}

// Reads one code point and advances `place`. Invalid UTF-8 gives U+FFFD.
char32_t NextPoint(std::string_view text, std::size_t* place) {
  const auto lead = static_cast<std::uint8_t>(text[(*place)++]);
  if (lead < 0x80) {
    return lead;
  }
  const int more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
  char32_t point = more == 0 ? 0xFFFD : lead & (0x3Fu >> more);
  for (int i = 0; i < more; ++i) {
    const bool follows = *place < text.size() && (text[*place] & 0xC0) == 0x80;
    if (!follows) {
      return 0xFFFD;
    }
    point = (point << 6) | (static_cast<std::uint8_t>(text[(*place)++]) & 0x3F);
  }
  return point;
}

}  // namespace

std::string ToUtf8(std::u16string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t point = text[i];
    const bool high = point >= 0xD800 && point < 0xDC00;
    if (high && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000) {
      point = 0x10000 + ((point - 0xD800) << 10) + (text[++i] - 0xDC00U);
    }
    AppendUtf8(point, &result);
  }
  return result;
}

std::u16string ToUtf16(std::string_view text) {
  std::u16string result;
  for (std::size_t place = 0; place < text.size();) {
    const char32_t point = NextPoint(text, &place);
    if (point < 0x10000) {
      result.push_back(static_cast<char16_t>(point));
    } else {
      result.push_back(static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10)));
      result.push_back(static_cast<char16_t>(0xDC00 + ((point - 0x10000) & 0x3FF)));
    }
  }
  return result;
}

std::u16string ToLower(std::u16string text) {
  for (char16_t& character : text) {
    if (character >= u'A' && character <= u'Z') {
      character = static_cast<char16_t>(character + 32);
    }
  }
  return text;
}

}  // namespace winsim
