// A thousand lives of a view leave nothing behind: windows, handles and memory of the process level
// off after the first ones.
#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>
#include <psapi.h>

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
  Usage usages[2] = {};
  for (Usage& usage : usages) {
    for (int cycle = 0; cycle < 500; ++cycle) ASSERT_NO_FATAL_FAILURE(Live());
    usage = CurrentUsage(host);
  }
  // The second half has to stay where the first half ended, but for what an allocator rounds.
  EXPECT_EQ(usages[1].windows, usages[0].windows);
  EXPECT_LE(usages[1].nextHandle, usages[0].nextHandle);
  EXPECT_LE(usages[1].kilobytes, usages[0].kilobytes + 200);
}

INSTANTIATE_TEST_SUITE_P(Views, LifeCycle, ::testing::Values(0u, QVLS_LISTVIEW));

}  // namespace
