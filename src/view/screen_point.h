// The two packed forms in which the platform hands over a screen position.
#pragma once

#include <windows.h>

#include <cstdint>

// x in the low, y in the next 16 bits, both signed.
inline POINT PointFromPacked(std::uint32_t packed) {
  return {static_cast<std::int16_t>(packed & 0xFFFF), static_cast<std::int16_t>(packed >> 16)};
}

inline POINT PointFromParam(LPARAM lParam) {
  return PointFromPacked(static_cast<std::uint32_t>(lParam));
}

// Where the mouse was at the last message.
inline POINT LastMessagePoint() { return PointFromPacked(GetMessagePos()); }
