// Translates native hit flags to those of the interface.
#pragma once

#include "core/qvl.h"

#include <cstdint>
#include <span>

struct HitFlagPair {
  UINT native;
  std::uint32_t qvl;
};

// A row of the table applies if any of its native bits is set.
inline std::uint32_t TranslateHitFlags(UINT native, std::span<const HitFlagPair> table) {
  std::uint32_t flags = 0;
  for (const HitFlagPair& row : table) {
    if (native & row.native) flags |= row.qvl;
  }
  return flags;
}
