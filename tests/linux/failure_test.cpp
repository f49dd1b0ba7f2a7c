// Every allocation and every platform call of every operation fails in turn: no exception leaves
// the library, brackets close, nothing leaks, and the view works afterwards.
#include <windows.h>

#include <commctrl.h>
#include <ole2.h>
#include <shellapi.h>
#include <shlobj.h>
#include <winsim.h>

#include <cstdio>
#include <new>
#include <vector>

#include "random/interruptions.h"
#include "vornutil.h"

namespace {

// The choices of an operation differ from seed to seed.
constexpr int kMostWays = 2;

// A drop target that takes the files of the drag.
HRESULT TakeFiles(IDataObject* data, IDropSource* /*source*/, DWORD /*allowed*/, DWORD* effect) {
  FORMATETC format = {CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
  STGMEDIUM medium = {};
  if (SUCCEEDED(data->GetData(&format, &medium))) GlobalFree(medium.hGlobal);
  *effect = DROPEFFECT_COPY;
  return DRAGDROP_S_DROP;
}

// A function of the platform that fails at the interruption.
template <auto Function, auto Failure>
struct Failing;

template <class Result, class... Arguments, Result (*Function)(Arguments...), auto Failure>
struct Failing<Function, Failure> {
  static Result Call(Arguments... arguments) {
    return Interruption::IsHere() ? static_cast<Result>(Failure) : Function(arguments...);
  }
};

using Patches = std::vector<std::unique_ptr<ImportPatch>>;

struct PlatformCall {
  const char* name;
  void (*add)(Patches& patches, const char* name);
};

template <auto Function, auto Failure>
void Add(Patches& patches, const char* name) {
  patches.push_back(std::make_unique<ImportPatch>(name, &Failing<Function, Failure>::Call));
}

constexpr PlatformCall kCalls[] = {{"ActivateActCtx", &Add<&ActivateActCtx, FALSE>},
                                   {"CallWindowProcW", &Add<&CallWindowProcW, 0>},
                                   {"CoDisconnectObject", &Add<&CoDisconnectObject, E_FAIL>},
                                   {"CreatePopupMenu", &Add<&CreatePopupMenu, nullptr>},
                                   {"CreateWindowExW", &Add<&CreateWindowExW, nullptr>},
                                   {"DefWindowProcW", &Add<&DefWindowProcW, 0>},
                                   {"DestroyIcon", &Add<&DestroyIcon, FALSE>},
                                   {"DestroyWindow", &Add<&DestroyWindow, FALSE>},
                                   {"DoDragDrop", &Add<&DoDragDrop, E_FAIL>},
                                   {"GetClassLongPtrW", &Add<&GetClassLongPtrW, 0>},
                                   {"GetClientRect", &Add<&GetClientRect, FALSE>},
                                   {"GetScrollInfo", &Add<&GetScrollInfo, FALSE>},
                                   {"GetWindowLongPtrW", &Add<&GetWindowLongPtrW, 0>},
                                   {"GlobalAlloc", &Add<&GlobalAlloc, nullptr>},
                                   {"GlobalLock", &Add<&GlobalLock, nullptr>},
                                   {"InvalidateRect", &Add<&InvalidateRect, FALSE>},
                                   {"IsWindowUnicode", &Add<&IsWindowUnicode, FALSE>},
                                   {"LoadCursorW", &Add<&LoadCursorW, nullptr>},
                                   {"MoveWindow", &Add<&MoveWindow, FALSE>},
                                   {"RedrawWindow", &Add<&RedrawWindow, FALSE>},
                                   {"RegisterClassW", &Add<&RegisterClassW, 0>},
                                   {"SHBindToParent", &Add<&SHBindToParent, E_FAIL>},
                                   {"SHGetDesktopFolder", &Add<&SHGetDesktopFolder, E_FAIL>},
                                   {"SHGetFileInfoW", &Add<&SHGetFileInfoW, 0>},
                                   {"SHGetMalloc", &Add<&SHGetMalloc, E_FAIL>},
                                   {"ScreenToClient", &Add<&ScreenToClient, FALSE>},
                                   {"SendMessageW", &Add<&SendMessageW, 0>},
                                   {"SetScrollInfo", &Add<&SetScrollInfo, 0>},
                                   {"SetWindowLongPtrW", &Add<&SetWindowLongPtrW, 0>},
                                   {"ShowWindow", &Add<&ShowWindow, FALSE>},
                                   {"TrackPopupMenu", &Add<&TrackPopupMenu, FALSE>}};

void* NewOrThrow(std::size_t size) {
  if (Interruption::IsHere()) throw std::bad_alloc();
  return ::operator new(size);
}

void* NewOrNull(std::size_t size, const std::nothrow_t& tag) {
  return Interruption::IsHere() ? nullptr : ::operator new(size, tag);
}

void* NewArrayOrNull(std::size_t size, const std::nothrow_t& tag) {
  return Interruption::IsHere() ? nullptr : ::operator new[](size, tag);
}

WCHAR* TextOrNull(VornSDK::Util::WStr* text, int length) {
  return Interruption::IsHere() ? nullptr : text->dataForWrite(length);
}

// The library's allocations: operator new, the host's text class and global memory.
void AddAllocations(Patches& patches, const char*) {
  Add<&GlobalAlloc, nullptr>(patches, "GlobalAlloc");
  const auto add = [&](const char* name, auto* function) {
    patches.push_back(std::make_unique<ImportPatch>(name, function));
  };
  add("_Znwm", &NewOrThrow);
  add("_ZnwmRKSt9nothrow_t", &NewOrNull);
  add("_ZnamRKSt9nothrow_t", &NewArrayOrNull);
  add("_ZN7VornSDK4Util4WStr12dataForWriteEi", &TextOrNull);
}

// Lets one call of that kind fail during its life.
class FailingCall {
 public:
  FailingCall(const PlatformCall& call, int number) {
    call.add(patches, call.name);
    Interruption::Arm(number);
  }
  ~FailingCall() { Interruption::at = 0; }

 private:
  Patches patches;
};

constexpr PlatformCall kAllocation = {"allocation", &AddAllocations};

// A scene in a window of its own, which may keep a control that could not be destroyed.
class OwnedScene final : public Scene {
 public:
  // Without the system's icons, UseSystemImageList itself fills the icon list.
  OwnedScene(bool asList, unsigned seed) : Scene(MakeHostWindow(), asList, seed) {
    if (seed % 2 == 1) view->UseSystemImageList();
  }
  ~OwnedScene() override {
    Release();
    DestroyWindow(host);
  }
};

class FailureTest : public ::testing::Test {
 protected:
  void SetUp() override {
    winsim::SetDragScript(TakeFiles);
    winsim::AddShellFile(u"C:\\folder\\file.txt");
    winsim::AddShellFile(u"C:\\folder\\other.txt");
  }

  void TearDown() override {
    const winsim::Counts after = winsim::CountLive();
    EXPECT_EQ(after.menus, 0);
    EXPECT_EQ(after.globalBlocks, 0);
    EXPECT_EQ(after.taskBlocks, 0);
    EXPECT_EQ(after.interfaces, 0);
    winsim::Reset();
  }

  // The number of times that the call failed.
  int FailInEveryOperation(const PlatformCall& call) {
    int failures = 0;
    ForEachOperation(kMostWays, [&](const Operation& operation, bool asList, unsigned seed) {
      for (int number = 1; number <= kMostPoints; ++number) {
        SCOPED_TRACE(call.name + (" number " + std::to_string(number)));
        OwnedScene scene(asList, seed);
        {
          const FailingCall failing(call, number);
          EXPECT_NO_THROW(operation.run(scene));
        }
        EXPECT_EQ(scene.openBrackets, 0);
        const bool failed = Interruption::points >= number;
        scene.ExpectUsable();
        if (!failed) break;
        ++failures;
      }
    });
    return failures;
  }
};

TEST_F(FailureTest, AllocationsMayFailInEveryOperation) {
  const int failures = FailInEveryOperation(kAllocation);
  EXPECT_EQ(winsim::CountLive().windows, 0);
  std::printf("allocations that failed: %d\n", failures);
  EXPECT_GT(failures, 250);
}

TEST_F(FailureTest, PlatformCallsMayFailInEveryOperation) {
  int failures = 0;
  for (const PlatformCall& call : kCalls) {
    const int failuresOfCall = FailInEveryOperation(call);
    EXPECT_GT(failuresOfCall, 0) << "no operation calls " << call.name;
    failures += failuresOfCall;
  }
  std::printf("platform calls that failed: %d\n", failures);
  EXPECT_GT(failures, 2500);
}

TEST_F(FailureTest, FailedAllocationsOutsideOfAView) {
  QVLTreeViewItem item;
  item.SetItemName(TEXT("short"));
  const FailingCall failing(kAllocation, 1);
  item.SetItemName(std::basic_string<WCHAR>(1000, TEXT('x')).c_str());
  EXPECT_EQ(item.GetItemName(), std::basic_string<WCHAR>());
  Interruption::Arm(1);
  EXPECT_EQ(GetIQVLTreeView(), nullptr);
}

TEST_F(FailureTest, ListThatCannotGrowKeepsItsItems) {
  for (const bool asList : {false, true}) {
    OwnedScene scene(asList, 1);
    scene.view->ExpandAll();
    const ItemHandleList all = scene.Items();
    // The capacity doubles, so the fourth allocation is that of the fifth item.
    const std::ptrdiff_t kept[] = {0, 1, 2, 4};
    for (int number = 1; number <= 4; ++number) {
      const FailingCall failing(kAllocation, number);
      ItemHandleList items;
      EXPECT_EQ(scene.view->GetItems(&items, true), kept[number - 1]);
      EXPECT_EQ(items, ItemHandleList(all.begin(), all.begin() + kept[number - 1]));
    }
  }
}

}  // namespace
