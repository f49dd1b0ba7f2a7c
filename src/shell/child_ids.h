// The ids of the files of one menu in their shell folder.
#pragma once

#include "platform/owners.h"

#include <shlobj.h>

#include <cstddef>

// An array of copies of child ids. The array is memory of the task allocator, which must outlive
// this object. The destructor frees the copies, then the array.
class ChildIds {
 public:
  ChildIds() = default;
  ChildIds(const ChildIds&) = delete;
  ChildIds& operator=(const ChildIds&) = delete;
  ~ChildIds() { Free(); }

  // Allocates `count` ids, all null. False without memory.
  bool Allocate(IMalloc& allocator, std::size_t count);
  void Free();

  // Stores a terminated copy of `id`; null stores an empty id. Without memory the entry stays null.
  void SetCopy(std::size_t index, LPCITEMIDLIST id);

  std::size_t Count() const { return count; }
  // The array as the shell takes it.
  LPCITEMIDLIST* Data() const { return ids.get(); }

 private:
  TaskMemory<LPCITEMIDLIST> ids;
  std::size_t count = 0;
};
