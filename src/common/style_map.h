// Translates the interface's style flags to native style bits.
#pragma once

#include "core/qvl.h"

#include <span>

struct StylePair {
  std::uint32_t flag;
  DWORD native;
};

inline DWORD TranslateStyle(std::uint32_t flags, std::span<const StylePair> table) {
  DWORD style = 0;
  for (const StylePair& row : table) {
    if (flags & row.flag) style |= row.native;
  }
  return style;
}
