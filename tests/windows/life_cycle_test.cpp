// What only the real platform can show. A thousand lives of a view leave nothing behind: windows,
// handles and memory of the process level off after the first ones. What a host does with the
// windows of a list, and what a receiver does with a drag, ends no process.
#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>
#include <ole2.h>
#include <psapi.h>

#include <atomic>
#include <cstdio>
#include <thread>
#include <vector>

#include "support/host_window.h"
#include "support/import_patch.h"

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

TEST_P(LifeCycle, AControlThatTheHostTakesElsewhereStillWorks) {
  OpenView(GetParam());
  for (int i = 0; i < 20; ++i) Insert(TEXT("item"));
  SetWindowLongPtrW(host, GWLP_USERDATA, 42);
  SetParent(control, host);
  Ask(WM_SETREDRAW, FALSE);
  Ask(WM_SETREDRAW, TRUE);
  view->SelectAll();
  EXPECT_EQ(view->GetSelectedCount(), 20);
  EXPECT_EQ(GetWindowLongPtrW(host, GWLP_USERDATA), 42);
}

// A receiver in another apartment gets the object by way of a stream, as one in another process.
IStream* marshaled = nullptr;
HRESULT WINAPI MarshalDragged(IDataObject* data, IDropSource*, DWORD, DWORD*) {
  EXPECT_EQ(CoMarshalInterThreadInterfaceInStream(IID_IDataObject, data, &marshaled), S_OK);
  return DRAGDROP_S_DROP;
}

TEST_P(LifeCycle, AReceiverThatKeepsTheDataObjectGetsAnError) {
  OpenView(GetParam());
  const ItemHandle item = Insert(TEXT("a"));
  client.onBeginDrag = [](ItemHandleList*, FileNameList* files) {
    files->push_back(TEXT("C:\\a"));
    return true;
  };
  {
    const ImportPatch patch("DoDragDrop", &MarshalDragged);
    NotifyOf(item, GetParam() ? LVN_BEGINDRAG : TVN_BEGINDRAGW);
  }
  std::atomic<bool> done = false;
  std::thread receiver([&] {
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
    void* data = nullptr;
    EXPECT_EQ(CoGetInterfaceAndReleaseStream(marshaled, IID_IDataObject, &data),
              CO_E_OBJNOTCONNECTED);
    CoUninitialize();
    done = true;
  });
  while (!done) PumpMessages();
  receiver.join();
}

INSTANTIATE_TEST_SUITE_P(Views, LifeCycle, ::testing::Values(0u, QVLS_LISTVIEW));

}  // namespace
