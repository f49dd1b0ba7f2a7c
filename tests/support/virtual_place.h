#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

// The place of a virtual operation in its class's table, from 0. Both builds' compilers write such
// a pointer as the operation's distance from the start of the table, plus one.
template <class Member>
std::size_t VirtualPlace(Member member) {
  static_assert(sizeof member == 2 * sizeof(void*));
  std::uintptr_t distance = 0;
  std::memcpy(&distance, &member, sizeof distance);
  return (distance - 1) / sizeof(void*);
}

template <class... Members>
std::vector<std::size_t> VirtualPlaces(Members... members) {
  return {VirtualPlace(members)...};
}

// The places from `first` on, `count` of them.
inline std::vector<std::size_t> PlacesFrom(std::size_t first, std::size_t count) {
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < count; ++i) places.push_back(first + i);
  return places;
}
