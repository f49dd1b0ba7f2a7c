#pragma once

#include "linux/failure_points.h"

#include <vector>

// Lets the library's allocation of that number fail, from 1, for the life of the object: of
// operator new, of the host's text class, of global memory and of the task allocator.
class ScarceMemory {
 public:
  explicit ScarceMemory(int number = 1);
  ~ScarceMemory();
  ScarceMemory(const ScarceMemory&) = delete;
  ScarceMemory& operator=(const ScarceMemory&) = delete;

 private:
  std::vector<std::unique_ptr<ImportPatch>> patches;
};
