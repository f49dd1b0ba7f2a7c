#include "shell/child_ids.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace {

using IdSize = USHORT;

// Length in bytes up to the terminator, which is a size of 0.
std::size_t LengthOf(const BYTE* id) {
  std::size_t length = 0;
  for (IdSize size = 0;; length += size) {
    std::memcpy(&size, id + length, sizeof(size));
    if (size == 0) return length;
  }
}

}  // namespace

bool ChildIds::Allocate(IMalloc& allocator, std::size_t wanted) {
  auto* array = static_cast<LPCITEMIDLIST*>(allocator.Alloc(wanted * sizeof(LPCITEMIDLIST)));
  if (!array) return false;
  std::fill_n(array, wanted, nullptr);
  ids = TaskMemory<LPCITEMIDLIST>(array, TaskFreer{&allocator});
  count = wanted;
  return true;
}

void ChildIds::Free() {
  for (std::size_t i = 0; i < count; ++i) delete[] reinterpret_cast<const BYTE*>(ids.get()[i]);
  count = 0;
  ids.reset();
}

void ChildIds::SetCopy(std::size_t index, LPCITEMIDLIST id) {
  const auto* bytes = reinterpret_cast<const BYTE*>(id);
  const std::size_t length = id ? LengthOf(bytes) : 0;
  auto* copy = new (std::nothrow) BYTE[length + sizeof(IdSize)]();
  if (copy && id) std::memcpy(copy, bytes, length);
  ids.get()[index] = reinterpret_cast<LPCITEMIDLIST>(copy);
}
