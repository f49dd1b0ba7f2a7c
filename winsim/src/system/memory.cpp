// Every block comes from malloc, so sanitizers detect accesses outside it.
#include "system/memory.h"

#include <cstdlib>
#include <set>

#include <shlobj.h>

namespace winsim {
namespace {

std::set<void*>& GlobalBlocks() {
  static std::set<void*> blocks;
  return blocks;
}

std::set<void*>& TaskBlocks() {
  static std::set<void*> blocks;
  return blocks;
}

// Other IMalloc methods are unused.
class TaskAllocator final : public IMalloc {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  void* STDMETHODCALLTYPE Alloc(SIZE_T bytes) override {
    void* block = std::malloc(bytes ? bytes : 1);
    if (block) TaskBlocks().insert(block);
    return block;
  }
  void* STDMETHODCALLTYPE Realloc(void*, SIZE_T) override { return nullptr; }
  void STDMETHODCALLTYPE Free(void* block) override {
    TaskBlocks().erase(block);
    std::free(block);
  }
  SIZE_T STDMETHODCALLTYPE GetSize(void*) override { return 0; }
  int STDMETHODCALLTYPE DidAlloc(void*) override { return -1; }
  void STDMETHODCALLTYPE HeapMinimize() override {}
};

TaskAllocator& Allocator() {
  static TaskAllocator allocator;
  return allocator;
}

}  // namespace

int CountGlobalBlocks() { return static_cast<int>(GlobalBlocks().size()); }

int CountTaskBlocks() { return static_cast<int>(TaskBlocks().size()); }

void* AllocateTaskBlock(std::size_t bytes) { return Allocator().Alloc(bytes); }

}  // namespace winsim

using namespace winsim;

HGLOBAL WINAPI GlobalAlloc(UINT, SIZE_T bytes) {
  void* block = std::malloc(bytes ? bytes : 1);
  if (block) GlobalBlocks().insert(block);
  return block;
}

HGLOBAL WINAPI GlobalFree(HGLOBAL block) {
  if (block && !GlobalBlocks().erase(block)) return block;
  std::free(block);
  return nullptr;
}

LPVOID WINAPI GlobalLock(HGLOBAL block) { return GlobalBlocks().contains(block) ? block : nullptr; }

BOOL WINAPI GlobalUnlock(HGLOBAL block) { return GlobalBlocks().contains(block); }

HRESULT WINAPI SHGetMalloc(IMalloc** allocator) {
  *allocator = &Allocator();
  return S_OK;
}
