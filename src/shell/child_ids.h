// The ids under which a folder of the shell knows the files of one menu.
#pragma once

#include "platform/owners.h"

#include <shlobj.h>

#include <cstddef>

// An array of child ids, the array in the task allocator's memory, each id a copy of its own.
// Freed with the object, the copies before the array; the allocator has to outlive it.
class ChildIds {
 public:
  ChildIds() = default;
  ChildIds(const ChildIds&) = delete;
  ChildIds& operator=(const ChildIds&) = delete;
  ~ChildIds() { Free(); }

  // Makes room for `count` ids, all null. False without memory.
  bool Allocate(IMalloc& allocator, std::size_t count);
  void Free();

  // Stores a terminated copy of `id`, up to its terminator; a null id gives an empty one. The
  // entry stays null without memory.
  void SetCopy(std::size_t index, LPCITEMIDLIST id);

  std::size_t Count() const { return count; }
  // The array in the form that the shell takes.
  LPCITEMIDLIST* Data() const { return ids.get(); }

 private:
  TaskMemory<LPCITEMIDLIST> ids;
  std::size_t count = 0;
};
