// Reads a directory with everything below it from disk.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "directory_model.h"

namespace demo {

struct ReadLimits {
  std::vector<std::wstring> skip;  // names that are left out
  std::size_t entries = 200'000;   // reading stops here
  int depth = 32;                  // limits loops of links
};

// Called now and then with the number of entries. Result: whether to read on.
using ReadProgress = std::function<bool(std::size_t entries)>;

// Fills `model` with a full path's directory. Result: empty, or why the directory is not read. An
// unreadable directory below it is marked in the model.
std::string ReadDirectory(const std::wstring& directory, const ReadLimits& limits,
                          const ReadProgress& progress, DirectoryModel& model);

}  // namespace demo
