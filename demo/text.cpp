#include "text.h"

namespace demo {
namespace {

constexpr char32_t REPLACEMENT = 0xFFFD;

bool IsHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

void AppendUtf8(std::string& out, char32_t point) {
  const auto put = [&out](char32_t value) { out.push_back(static_cast<char>(value)); };
  const auto tail = [&put, point](int shift) { put(0x80 | ((point >> shift) & 0x3F)); };
  if (point < 0x80) {
    put(point);
  } else if (point < 0x800) {
    put(0xC0 | (point >> 6));
    tail(0);
  } else if (point < 0x10000) {
    put(0xE0 | (point >> 12));
    tail(6);
    tail(0);
  } else {
    put(0xF0 | (point >> 18));
    tail(12);
    tail(6);
    tail(0);
  }
}

void AppendWide(WideText& out, char32_t point) {
  if (point < 0x10000) {
    out.push_back(static_cast<WCHAR>(point));
  } else {
    out.push_back(static_cast<WCHAR>(0xD800 + ((point - 0x10000) >> 10)));
    out.push_back(static_cast<WCHAR>(0xDC00 + ((point - 0x10000) & 0x3FF)));
  }
}

// Length of the sequence that a lead byte announces, 0 for a byte that leads nothing.
std::size_t SequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead < 0xE0) return 2;
  if (lead >= 0xE0 && lead < 0xF0) return 3;
  if (lead >= 0xF0 && lead < 0xF5) return 4;
  return 0;
}

// The code point at `at`, and in `at` the place behind it.
char32_t NextPoint(std::string_view text, std::size_t& at) {
  const auto lead = static_cast<unsigned char>(text[at++]);
  const std::size_t length = SequenceLength(lead);
  if (length == 1) return lead;
  if (length == 0 || at + length - 1 > text.size()) return REPLACEMENT;
  char32_t point = lead & (0x7Fu >> length);
  for (std::size_t i = 0; i + 1 < length; ++i) {
    const auto next = static_cast<unsigned char>(text[at + i]);
    if ((next & 0xC0) != 0x80) return REPLACEMENT;
    point = (point << 6) | (next & 0x3Fu);
  }
  at += length - 1;
  return point;
}

}  // namespace

std::string Utf8(std::basic_string_view<WCHAR> text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char32_t unit = static_cast<char16_t>(text[i]);
    const char32_t next = i + 1 < text.size() ? static_cast<char16_t>(text[i + 1]) : 0;
    if (IsHighSurrogate(unit) && IsLowSurrogate(next)) {
      AppendUtf8(out, 0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00));
      ++i;
    } else {
      AppendUtf8(out, IsHighSurrogate(unit) || IsLowSurrogate(unit) ? REPLACEMENT : unit);
    }
  }
  return out;
}

WideText Wide(std::string_view text) {
  WideText out;
  out.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) AppendWide(out, NextPoint(text, at));
  return out;
}

WideText WidePath(const std::filesystem::path& path) { return path.string<WCHAR>(); }

std::string PlainPath(const std::filesystem::path& path) {
  return Utf8(path.generic_string<WCHAR>());
}

}  // namespace demo
