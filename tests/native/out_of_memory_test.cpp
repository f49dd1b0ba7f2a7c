// Every allocation that an operation makes fails in turn: those of operator new, of the host's text
// class, of global memory and of the task allocator.
#include "native/failure_points.h"
#include "native/library_scene.h"

#include "vornutil.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <ole2.h>
#include <shlobj.h>
#include <winsim.h>

#include <cstdio>
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

// Passes everything on to the task allocator but the allocation that is to fail.
class ScarceMalloc final : public IMalloc {
 public:
  explicit ScarceMalloc(IMalloc* allocator) : real(allocator) {}

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

HRESULT GetScarceMalloc(IMalloc** allocator) {
  IMalloc* real = nullptr;
  const HRESULT result = SHGetMalloc(&real);
  *allocator = real ? new ScarceMalloc(real) : nullptr;
  return result;
}

// A drop target that takes the files of the drag.
HRESULT TakeFiles(IDataObject* data, IDropSource* /*source*/, DWORD /*allowed*/, DWORD* effect) {
  FORMATETC format = {CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
  STGMEDIUM medium = {};
  if (SUCCEEDED(data->GetData(&format, &medium))) GlobalFree(medium.hGlobal);
  *effect = DROPEFFECT_COPY;
  return DRAGDROP_S_DROP;
}

class ScarceMemory {
 public:
  explicit ScarceMemory(int number) { FailurePoint::Arm(number); }
  ~ScarceMemory() { FailurePoint::Disarm(); }

 private:
  ImportPatch news{"_Znwm", &NewOrThrow};
  ImportPatch quietNews{"_ZnwmRKSt9nothrow_t", &NewOrNull};
  ImportPatch arrays{"_ZnamRKSt9nothrow_t", &NewArrayOrNull};
  ImportPatch texts{"_ZN7VornSDK4Util4WStr12dataForWriteEi", &TextOrNull};
  ImportPatch tasks{"SHGetMalloc", &GetScarceMalloc};
  std::unique_ptr<ImportPatch> blocks = PatchToFail<&GlobalAlloc, nullptr>("GlobalAlloc");
};

int FailEveryAllocation(const LibraryOperation& operation, bool list) {
  for (int number = 1;; ++number) {
    SCOPED_TRACE(operation.name + (list ? " of a list, " : " of a tree, ") + "allocation " +
                 std::to_string(number));
    LibraryScene scene(list);
    {
      const ScarceMemory memory(number);
      EXPECT_NO_THROW(operation.run(scene));
    }
    scene.ExpectUsable();
    if (FailurePoint::calls < number || ::testing::Test::HasFailure()) return number - 1;
  }
}

TEST(OutOfMemory, IsAFailureValueAndNothingElse) {
  winsim::SetDragScript(TakeFiles);
  winsim::AddShellFile(u"C:\\folder\\file.txt");
  winsim::AddShellFile(u"C:\\folder\\other.txt");
  int injected = 0;
  const winsim::Counts before = winsim::CountLive();
  for (const LibraryOperation& operation : LibraryOperations()) {
    for (const bool list : {false, true}) injected += FailEveryAllocation(operation, list);
  }
  const winsim::Counts after = winsim::CountLive();
  EXPECT_EQ(after.windows, before.windows);
  EXPECT_EQ(after.menus, 0);
  EXPECT_EQ(after.globalBlocks, 0);
  EXPECT_EQ(after.taskBlocks, 0);
  EXPECT_EQ(after.interfaces, 0);
  std::printf("allocations that failed: %d\n", injected);
  EXPECT_GT(injected, 50);
  winsim::Reset();
}

}  // namespace
