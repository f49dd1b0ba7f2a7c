// What only the real platform shows: a thousand views leave nothing behind, and no host or receiver
// of a drag ends the process.
#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>
#include <ole2.h>
#include <psapi.h>

#include <atomic>
#include <thread>
#include <vector>

#include "support/each_view.h"
#include "support/import_patch.h"

namespace {

class LifeCycle : public EachView {};

INSTANTIATE_TEST_SUITE_P(Views, LifeCycle, kEachView, ViewName);

// The second half of the views takes no more than the first half: windows, handles, and memory but
// for what the allocator rounds. Handles are not counted here, but a new one gets the lowest place
// that is free.
TEST_P(LifeCycle, ThousandViewsLeaveNothingBehindOnTestRuntime) {
  struct Usage {
    int windows = 0;
    ULONG_PTR nextHandle = 0;
    SIZE_T bytes = 0;
  };
  std::vector<Usage> usages;
  for (int life = 1; life <= 1000; ++life) {
    Open(QVLS_CHECKBOXES | QVLS_INFOTIP);
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
    if (life % 500 != 0) continue;
    Usage& usage = usages.emplace_back();
    const auto count = [](HWND, LPARAM sum) -> BOOL { return ++*reinterpret_cast<int*>(sum); };
    EnumThreadWindows(GetCurrentThreadId(), count, reinterpret_cast<LPARAM>(&usage.windows));
    EnumChildWindows(host, count, reinterpret_cast<LPARAM>(&usage.windows));
    const HANDLE probe = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    CloseHandle(probe);
    usage.nextHandle = reinterpret_cast<ULONG_PTR>(probe);
    PROCESS_MEMORY_COUNTERS memory = {};
    GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory);
    usage.bytes = memory.PagefileUsage;
  }
  EXPECT_EQ(usages[1].windows, usages[0].windows);
  EXPECT_LE(usages[1].nextHandle, usages[0].nextHandle);
  EXPECT_LE(usages[1].bytes, usages[0].bytes + 200 * 1024);
}

TEST_P(LifeCycle, ControlInAnotherParentStillWorks) {
  OpenWithItems();
  SetWindowLongPtrW(host, GWLP_USERDATA, 42);
  SetParent(control, host);
  Ask(WM_SETREDRAW, FALSE);
  Ask(WM_SETREDRAW, TRUE);
  view->SelectAll();
  EXPECT_EQ(view->GetSelectedCount(), 3);
  EXPECT_EQ(GetWindowLongPtrW(host, GWLP_USERDATA), 42);
}

// A receiver in another apartment gets the object through a stream, as one in another process does.
TEST_P(LifeCycle, ReceiverThatKeepsTheDataObjectGetsAnError) {
  OpenWithItems();
  client.onBeginDrag = [](ItemHandleList*, FileNameList* files) {
    files->push_back(TEXT("C:\\a"));
    return true;
  };
  static IStream* stream = nullptr;
  const auto marshal = [](IDataObject* data, IDropSource*, DWORD, DWORD*) -> HRESULT {
    EXPECT_EQ(CoMarshalInterThreadInterfaceInStream(IID_IDataObject, data, &stream), S_OK);
    return DRAGDROP_S_DROP;
  };
  const ImportPatch patch("DoDragDrop", +marshal);
  NotifyOf(a, TreeOrList(TVN_BEGINDRAGW, LVN_BEGINDRAG));
  std::atomic<bool> done = false;
  std::thread receiver([&] {
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
    void* data = nullptr;
    EXPECT_EQ(CoGetInterfaceAndReleaseStream(stream, IID_IDataObject, &data), CO_E_OBJNOTCONNECTED);
    CoUninitialize();
    done = true;
  });
  while (!done) PumpMessages();
  receiver.join();
}

}  // namespace
