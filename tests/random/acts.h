#pragma once

#include "random/player.h"

// What a host or a user can do to a view, each operation and each gesture once. The result is what
// it gave, in words.
struct Act {
  std::string name;
  std::string (*run)(Player& player);
};

// New ones come last: what the fuzzer found names an act by its place.
const std::vector<Act>& Acts();

// The one of that name.
const Act& FindAct(const std::string& name);
