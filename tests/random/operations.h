#pragma once

#include "random/random_host.h"

// An operation of a view, or a gesture or a notification that reaches it.
struct Operation {
  std::string name;
  std::string (*run)(RandomHost& host);  // returns the results as text
  int ways = 1;                          // how many runs with different choices it takes
  std::string failure = "done";          // the result if a callback ends the view meanwhile
};

const std::vector<Operation>& Operations();

const Operation& FindOperation(const std::string& name);
