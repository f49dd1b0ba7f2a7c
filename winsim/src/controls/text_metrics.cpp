#include "controls/text_metrics.h"

#include <array>

namespace winsim {
namespace {

constexpr char16_t kFirst = 32;
constexpr int kOther = 7;  // the width of any other character

// The widths of the characters from the space to U+00FF, in pixels.
constexpr std::array<signed char, 224> kRegular = {
    4, 4, 5,  9, 7,  10, 9, 3, 4, 4, 6, 9, 4, 4, 4, 4, 7,  7,  7,  7, 7, 7,  7, 7, 7, 7,  4,  4,
    9, 9, 9,  6, 11, 8,  8, 8, 8, 7, 6, 9, 8, 3, 3, 7, 6,  9,  8,  9, 7, 9,  8, 7, 7, 8,  8,  11,
    8, 7, 8,  4, 4,  4,  9, 6, 6, 7, 7, 6, 7, 7, 4, 7, 7,  3,  3,  6, 3, 11, 7, 7, 7, 7,  5,  6,
    4, 7, 7,  9, 7,  7,  6, 7, 4, 7, 9, 7, 7, 7, 7, 7, 7,  7,  7,  7, 7, 7,  7, 7, 7, 7,  7,  7,
    7, 7, 7,  7, 7,  7,  7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 4,  4,  7,  7, 7, 7,  4, 6, 6, 11, 5,  7,
    9, 4, 11, 6, 6,  9,  4, 4, 6, 7, 7, 4, 6, 4, 5, 7, 11, 11, 11, 6, 8, 8,  8, 8, 8, 8,  11, 8,
    7, 7, 7,  7, 3,  3,  3, 3, 9, 8, 9, 9, 9, 9, 9, 9, 9,  8,  8,  8, 8, 7,  7, 7, 7, 7,  7,  7,
    7, 7, 11, 6, 7,  7,  7, 7, 3, 3, 3, 3, 7, 7, 7, 7, 7,  7,  7,  9, 7, 7,  7, 7, 7, 7,  7,  7};

constexpr std::array<signed char, 224> kBold = {
    4, 5, 6,  9,  8,  11, 10, 3, 5, 5, 6, 9, 4, 5, 4, 4, 8,  8,  8,  8, 8, 8,  8, 8, 8, 8,  4,  4,
    9, 9, 9,  6,  11, 9,  8,  8, 9, 8, 8, 9, 9, 4, 4, 9, 7,  11, 9,  9, 8, 9,  8, 8, 8, 9,  9,  12,
    8, 8, 8,  5,  4,  5,  9,  6, 6, 7, 8, 7, 8, 7, 5, 8, 8,  4,  4,  7, 4, 11, 8, 8, 8, 8,  5,  7,
    5, 8, 7,  10, 7,  7,  6,  8, 4, 8, 9, 7, 7, 7, 7, 7, 7,  7,  7,  7, 7, 7,  7, 7, 7, 7,  7,  7,
    7, 7, 7,  7,  7,  7,  7,  7, 7, 7, 7, 7, 7, 7, 7, 7, 4,  5,  8,  8, 7, 8,  4, 6, 6, 11, 6,  7,
    9, 5, 11, 6,  6,  9,  5,  5, 6, 8, 7, 4, 6, 5, 6, 7, 11, 11, 11, 6, 9, 9,  9, 9, 9, 9,  12, 8,
    8, 8, 8,  8,  4,  4,  4,  4, 9, 9, 9, 9, 9, 9, 9, 9, 9,  9,  9,  9, 9, 8,  8, 8, 7, 7,  7,  7,
    7, 7, 12, 7,  7,  7,  7,  7, 4, 4, 4, 4, 8, 8, 8, 8, 8,  8,  8,  9, 8, 8,  8, 8, 8, 7,  8,  7};

}  // namespace

int TextWidth(const std::u16string& text, bool bold) {
  const auto& widths = bold ? kBold : kRegular;
  int width = 0;
  for (char16_t character : text) {
    const auto place = static_cast<std::size_t>(character - kFirst);
    width += character >= kFirst && place < widths.size() ? widths[place] : kOther;
  }
  return width;
}

}  // namespace winsim
