#include "linux/failing_memory.h"

#include "vornutil.h"

#include <windows.h>

#include <shlobj.h>

#include <new>

namespace {

using VornSDK::Util::WStr;

void* NewOrThrow(std::size_t size) {
  if (FailurePoint::Fails()) throw std::bad_alloc();
  return ::operator new(size);
}

void* NewOrNull(std::size_t size, const std::nothrow_t& tag) {
  return FailurePoint::Fails() ? nullptr : ::operator new(size, tag);
}

void* NewArrayOrNull(std::size_t size, const std::nothrow_t& tag) {
  return FailurePoint::Fails() ? nullptr : ::operator new[](size, tag);
}

WCHAR* TextOrNull(WStr* text, int length) {
  return FailurePoint::Fails() ? nullptr : text->dataForWrite(length);
}

// Forwards everything to the task allocator except the allocation that must fail.
class FailingMalloc final : public IMalloc {
 public:
  explicit FailingMalloc(IMalloc* allocator) : real(allocator) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override {
    return real->QueryInterface(riid, object);
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return real->AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = real->Release();
    delete this;
    return left;
  }
  void* STDMETHODCALLTYPE Alloc(SIZE_T size) override {
    return FailurePoint::Fails() ? nullptr : real->Alloc(size);
  }
  void* STDMETHODCALLTYPE Realloc(void* block, SIZE_T size) override {
    return real->Realloc(block, size);
  }
  void STDMETHODCALLTYPE Free(void* block) override { real->Free(block); }
  SIZE_T STDMETHODCALLTYPE GetSize(void* block) override { return real->GetSize(block); }
  int STDMETHODCALLTYPE DidAlloc(void* block) override { return real->DidAlloc(block); }
  void STDMETHODCALLTYPE HeapMinimize() override { real->HeapMinimize(); }

 private:
  IMalloc* real;
};

HRESULT GetFailingMalloc(IMalloc** allocator) {
  IMalloc* real = nullptr;
  const HRESULT result = SHGetMalloc(&real);
  *allocator = real ? new FailingMalloc(real) : nullptr;
  return result;
}

}  // namespace

FailingMemory::FailingMemory(int number) {
  patches.push_back(PatchToFail<&GlobalAlloc, nullptr>("GlobalAlloc"));
  const auto replace = [this](const char* name, auto* function) {
    patches.push_back(std::make_unique<ImportPatch>(name, function));
  };
  replace("_Znwm", &NewOrThrow);
  replace("_ZnwmRKSt9nothrow_t", &NewOrNull);
  replace("_ZnamRKSt9nothrow_t", &NewArrayOrNull);
  replace("_ZN7VornSDK4Util4WStr12dataForWriteEi", &TextOrNull);
  replace("SHGetMalloc", &GetFailingMalloc);
  FailurePoint::Arm(number);
}

FailingMemory::~FailingMemory() { FailurePoint::Disarm(); }
