#pragma once

#include "linux/failing_call.h"

#include <vector>

// During the life of the object the library's allocation of that number, from 1, fails: of operator
// new, of the host's text class, of global memory or of the task allocator.
class FailingMemory {
 public:
  explicit FailingMemory(int number = 1);
  ~FailingMemory();
  FailingMemory(const FailingMemory&) = delete;
  FailingMemory& operator=(const FailingMemory&) = delete;

 private:
  std::vector<std::unique_ptr<ImportPatch>> patches;
};
