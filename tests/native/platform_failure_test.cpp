// Every platform call of the library fails once in turn, in every operation that makes it.
#include "native/failure_points.h"
#include "native/library_scene.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>
#include <ole2.h>
#include <shellapi.h>
#include <shlobj.h>

#include <cstdio>

namespace {

// A walk makes the same call for each item; the failures of the first ones stand for all.
constexpr int MOST_OF_ONE_CALL = 25;

struct PlatformCall {
  const char* name;
  std::unique_ptr<ImportPatch> (*patch)(const char* name);
};

constexpr PlatformCall CALLS[] = {
    {"ActivateActCtx", PatchToFail<&ActivateActCtx, FALSE>},
    {"CallWindowProcW", PatchToFail<&CallWindowProcW, 0>},
    {"CreatePopupMenu", PatchToFail<&CreatePopupMenu, nullptr>},
    {"CreateWindowExW", PatchToFail<&CreateWindowExW, nullptr>},
    {"DefWindowProcW", PatchToFail<&DefWindowProcW, 0>},
    {"DestroyIcon", PatchToFail<&DestroyIcon, FALSE>},
    {"DestroyWindow", PatchToFail<&DestroyWindow, FALSE>},
    {"DoDragDrop", PatchToFail<&DoDragDrop, E_FAIL>},
    {"GetClientRect", PatchToFail<&GetClientRect, FALSE>},
    {"GetScrollInfo", PatchToFail<&GetScrollInfo, FALSE>},
    {"GlobalAlloc", PatchToFail<&GlobalAlloc, nullptr>},
    {"GlobalLock", PatchToFail<&GlobalLock, nullptr>},
    {"InvalidateRect", PatchToFail<&InvalidateRect, FALSE>},
    {"IsWindowUnicode", PatchToFail<&IsWindowUnicode, FALSE>},
    {"LoadCursorW", PatchToFail<&LoadCursorW, nullptr>},
    {"MoveWindow", PatchToFail<&MoveWindow, FALSE>},
    {"RegisterClassW", PatchToFail<&RegisterClassW, 0>},
    {"SHBindToParent", PatchToFail<&SHBindToParent, E_FAIL>},
    {"SHGetDesktopFolder", PatchToFail<&SHGetDesktopFolder, E_FAIL>},
    {"SHGetFileInfoW", PatchToFail<&SHGetFileInfoW, 0>},
    {"SHGetMalloc", PatchToFail<&SHGetMalloc, E_FAIL>},
    {"ScreenToClient", PatchToFail<&ScreenToClient, FALSE>},
    {"SendMessageW", PatchToFail<&SendMessageW, 0>},
    {"SetScrollInfo", PatchToFail<&SetScrollInfo, 0>},
    {"SetWindowLongPtrW", PatchToFail<&SetWindowLongPtrW, 0>},
    {"GetWindowLongPtrW", PatchToFail<&GetWindowLongPtrW, 0>},
    {"ShowWindow", PatchToFail<&ShowWindow, FALSE>},
    {"TrackPopupMenu", PatchToFail<&TrackPopupMenu, FALSE>},
};

// Runs the operation with the given call failing, and gives the number of calls that it made.
int RunWithFailure(const LibraryOperation& operation, bool list, const PlatformCall& call,
                   int number) {
  LibraryScene scene(list);
  {
    const auto patch = call.patch(call.name);
    FailurePoint::Arm(number);
    EXPECT_NO_THROW(operation.run(scene));
    FailurePoint::Disarm();
  }
  scene.ExpectUsable();
  return FailurePoint::calls;
}

int FailEveryCall(const LibraryOperation& operation, bool list) {
  int injected = 0;
  for (const PlatformCall& call : CALLS) {
    for (int number = 1; number <= MOST_OF_ONE_CALL; ++number) {
      SCOPED_TRACE(operation.name + (list ? " of a list, " : " of a tree, ") + call.name + " no. " +
                   std::to_string(number));
      if (RunWithFailure(operation, list, call, number) < number) break;
      ++injected;
    }
  }
  return injected;
}

TEST(PlatformFailure, LeavesEveryOperationWhole) {
  int injected = 0;
  for (const LibraryOperation& operation : LibraryOperations()) {
    for (const bool list : {false, true}) injected += FailEveryCall(operation, list);
  }
  std::printf("platform failures injected: %d\n", injected);
  EXPECT_GT(injected, 500);
}

}  // namespace
