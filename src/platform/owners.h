// Owners of platform resources. Each releases its resource once.
#pragma once

#include <windows.h>

#include <ole2.h>

#include <memory>

struct MenuDestroyer {
  using pointer = HMENU;
  void operator()(HMENU menu) const { DestroyMenu(menu); }
};
using MenuOwner = std::unique_ptr<HMENU, MenuDestroyer>;

struct GlobalFreer {
  using pointer = HGLOBAL;
  void operator()(HGLOBAL block) const { GlobalFree(block); }
};
using GlobalBlock = std::unique_ptr<HGLOBAL, GlobalFreer>;

// Locks a block of global memory. Data() is null if the lock failed.
class GlobalLocker {
 public:
  explicit GlobalLocker(HGLOBAL locked) : block(locked), data(GlobalLock(locked)) {}
  GlobalLocker(const GlobalLocker&) = delete;
  GlobalLocker& operator=(const GlobalLocker&) = delete;
  ~GlobalLocker() {
    if (data) GlobalUnlock(block);
  }

  void* Data() const { return data; }

 private:
  HGLOBAL block;
  void* data;
};

// Memory of the task allocator, which must outlive it.
struct TaskFreer {
  IMalloc* allocator = nullptr;
  void operator()(void* memory) const { allocator->Free(memory); }
};
template <class Type>
using TaskMemory = std::unique_ptr<Type, TaskFreer>;
