#pragma once

#include "random/random_host.h"

// An operation of a view or a gesture of the user, and its result as text.
struct Operation {
  std::string name;
  std::string (*run)(RandomHost& random);
};

// Add new operations at the end: the fuzzer's findings contain indexes.
const std::vector<Operation>& Operations();

const Operation& FindOperation(const std::string& name);
