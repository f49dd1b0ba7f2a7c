// The two packed forms in which the platform passes a screen position.
#pragma once

#include <windows.h>

#include <cstdint>

// x in the low 16 bits, y in the next 16 bits, both signed.
inline POINT PointFromPacked(std::uint32_t packed) {
  return {static_cast<std::int16_t>(packed & 0xFFFF), static_cast<std::int16_t>(packed >> 16)};
}

inline POINT PointFromParam(LPARAM lParam) {
  return PointFromPacked(static_cast<std::uint32_t>(lParam));
}

// The mouse position of the last message.
inline POINT LastMessagePoint() { return PointFromPacked(GetMessagePos()); }
