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

constexpr int CYCLES = 1000;
constexpr int CYCLES_OF_A_SAMPLE = 100;

struct Usage {
  int windows;
  ULONG_PTR nextHandle;
  SIZE_T kilobytes;
};

BOOL CALLBACK CountWindow(HWND, LPARAM count) {
  ++*reinterpret_cast<int*>(count);
  return TRUE;
}

int WindowsOfThread() {
  int count = 0;
  EnumThreadWindows(GetCurrentThreadId(), &CountWindow, reinterpret_cast<LPARAM>(&count));
  return count;
}

// The place that the next handle gets: it rises with every handle that stays open. The runtime of
// the tests does not count a process's handles.
ULONG_PTR NextHandle() {
  const HANDLE probe = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  CloseHandle(probe);
  return reinterpret_cast<ULONG_PTR>(probe);
}

Usage CurrentUsage(HWND host) {
  Usage usage = {WindowsOfThread(), 0, 0};
  EnumChildWindows(host, &CountWindow, reinterpret_cast<LPARAM>(&usage.windows));
  usage.nextHandle = NextHandle();
  PROCESS_MEMORY_COUNTERS memory = {};
  memory.cb = sizeof memory;
  GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory);
  usage.kilobytes = memory.PagefileUsage / 1024;
  return usage;
}

class LifeCycle : public HostTest, public ::testing::WithParamInterface<std::uint32_t> {
 protected:
  void Live() {
    view->SetClient(&client);
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
  for (int cycle = 0; cycle < CYCLES; ++cycle) {
    ASSERT_NO_FATAL_FAILURE(Live());
    if ((cycle + 1) % CYCLES_OF_A_SAMPLE != 0) continue;
    curve.push_back(CurrentUsage(host));
    std::printf("after %4d lives: %d windows, next handle %llu, %llu KiB\n", cycle + 1,
                curve.back().windows, static_cast<unsigned long long>(curve.back().nextHandle),
                static_cast<unsigned long long>(curve.back().kilobytes));
  }
  // The second half has to stay where the first half ended, but for what an allocator rounds.
  const Usage& middle = curve[curve.size() / 2 - 1];
  const Usage& last = curve.back();
  EXPECT_EQ(last.windows, middle.windows);
  EXPECT_LE(last.nextHandle, middle.nextHandle);
  EXPECT_LE(last.kilobytes, middle.kilobytes + 200);
}

INSTANTIATE_TEST_SUITE_P(Views, LifeCycle, ::testing::Values(0u, QVLS_LISTVIEW));

}  // namespace
