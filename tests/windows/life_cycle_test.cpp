// A thousand lives of a view leave nothing behind: windows, handles and memory of the process level
// off after the first ones.
#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>
#include <psapi.h>

#include <cstdio>
#include <vector>

#include "support/host_window.h"

namespace {

struct Usage {
  int windows;
  // The place that the next handle gets: it rises with every handle that stays open. The runtime of
  // the tests does not count a process's handles.
  ULONG_PTR nextHandle;
  SIZE_T kilobytes;
};

BOOL CALLBACK CountWindow(HWND, LPARAM count) {
  ++*reinterpret_cast<int*>(count);
  return TRUE;
}

Usage CurrentUsage(HWND host) {
  Usage usage = {};
  const auto count = reinterpret_cast<LPARAM>(&usage.windows);
  EnumThreadWindows(GetCurrentThreadId(), &CountWindow, count);
  EnumChildWindows(host, &CountWindow, count);
  const HANDLE probe = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  CloseHandle(probe);
  usage.nextHandle = reinterpret_cast<ULONG_PTR>(probe);
  PROCESS_MEMORY_COUNTERS memory = {};
  memory.cb = sizeof memory;
  GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory);
  usage.kilobytes = memory.PagefileUsage / 1024;
  return usage;
}

class LifeCycle : public HostTest, public ::testing::WithParamInterface<std::uint32_t> {
 protected:
  void Live() {
    ASSERT_NE(CreateView(GetParam() | QVLS_CHECKBOXES | QVLS_INFOTIP), nullptr);
    view->UseSystemImageList();
    QVLTreeViewItem item;
    item.SetItemName(TEXT("an item with a name of some length"));
    item.SetFileName(TEXT("C:\\file.txt"));
    item.SetChecked(true);
    for (int i = 0; i < 20; ++i) view->InsertItem(&item, -1);
    view->SelectAll();
    view->CheckAll();
    view->InvertSelection();
    view->Destroy();
    PumpMessages();
    client.Take();
  }
};

TEST_P(LifeCycle, LeavesNothingBehind) {
  std::vector<Usage> curve;
  while (curve.size() < 10) {
    for (int life = 0; life < 100; ++life) ASSERT_NO_FATAL_FAILURE(Live());
    curve.push_back(CurrentUsage(host));
    std::printf("after %4d lives: %d windows, next handle %llu, %llu KiB\n",
                static_cast<int>(curve.size()) * 100, curve.back().windows,
                static_cast<unsigned long long>(curve.back().nextHandle),
                static_cast<unsigned long long>(curve.back().kilobytes));
  }
  // The second half has to stay where the first half ended, but for what an allocator rounds.
  EXPECT_EQ(curve[9].windows, curve[4].windows);
  EXPECT_LE(curve[9].nextHandle, curve[4].nextHandle);
  EXPECT_LE(curve[9].kilobytes, curve[4].kilobytes + 200);
}

INSTANTIATE_TEST_SUITE_P(Views, LifeCycle, ::testing::Values(0u, QVLS_LISTVIEW));

}  // namespace
