// Makes every allocation and every platform call of every operation and gesture fail in turn: no
// exception, closed brackets, no leak, and a view that still works.
#include "linux/failing_memory.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>
#include <ole2.h>
#include <shellapi.h>
#include <shlobj.h>
#include <winsim.h>

#include <cstdio>
#include <functional>
#include <random>
#include <utility>

#include "random/operations.h"

namespace {

// A walk makes the same call for each item, so the first failures are enough.
constexpr int kMaxFailures = 25;
// The seed chooses the arguments of an operation.
constexpr unsigned kSeeds = 2;

// A drop target that reads the files of the drag.
HRESULT TakeFiles(IDataObject* data, IDropSource* /*source*/, DWORD /*allowed*/, DWORD* effect) {
  FORMATETC format = {CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
  STGMEDIUM medium = {};
  if (SUCCEEDED(data->GetData(&format, &medium))) GlobalFree(medium.hGlobal);
  *effect = DROPEFFECT_COPY;
  return DRAGDROP_S_DROP;
}

// A view with many items and a client that answers true.
class FullView final : public RandomHost {
 public:
  FullView(bool asList, unsigned seed)
      : RandomHost(MakeHostWindow(), asList, [engine = std::mt19937(seed)](int limit) mutable {
          return static_cast<int>(engine() % static_cast<unsigned>(limit));
        }) {
    Create();
    // In the other seeds the operation itself fills the list of shell icons.
    if (seed % 2 == 1) view->UseSystemImageList();
    for (int i = 0; i < 12; ++i) Insert();
    view->ExpandAll();
    const ItemHandleList items = Items();
    view->SetItemSelected(items.back(), true);
  }

  ~FullView() override {
    ReleaseIQVLTreeView(std::exchange(view, nullptr));
    DestroyWindow(host);
  }

  // The view inserts, selects and checks items like a new one.
  void ExpectUsable() {
    EXPECT_EQ(openBrackets, 0);
    view->SetClient(this);
    const std::uint32_t style = QVLS_CHECKBOXES | (list ? QVLS_LISTVIEW : 0U);
    ASSERT_NE(view->Create(host, kControlId, 0, 0, 300, 400, style, nullptr), nullptr);
    view->UseSystemImageList();
    QVLTreeViewItem record;
    record.SetChecked(true);
    for (int i = 0; i < 3; ++i) EXPECT_NE(view->InsertItem(&record, -1), -1);
    view->SelectAll();
    EXPECT_EQ(view->GetSelectedCount(), 3);
    EXPECT_EQ(view->GetCheckedCount(), 3);
  }

 private:
  bool OnCallback(const std::string&) override { return true; }
  void NameFiles(FileNameList* files) override {
    *files = {TEXT("C:\\folder\\file.txt"), TEXT("C:\\folder\\other.txt")};
  }
};

// Makes the first, second, ... call fail in every operation. `arm` returns an object during whose
// life the call of that number fails. Returns the number of failures.
template <class Arm>
int FailInEveryOperation(const std::string& what, Arm arm) {
  int injected = 0;
  const auto fail = [&](const Operation& operation, bool list, unsigned seed, int number) {
    SCOPED_TRACE(operation.name + (list ? " of a list, " : " of a tree, ") + what + " no. " +
                 std::to_string(number) + ", seed " + std::to_string(seed));
    FullView scene(list, seed);
    {
      const auto armed = arm(number);
      EXPECT_NO_THROW(operation.run(scene));
      FailurePoint::Disarm();
    }
    scene.ExpectUsable();
    return FailurePoint::calls >= number;
  };
  for (const Operation& operation : Operations()) {
    for (unsigned variant = 0; variant < 2 * kSeeds; ++variant) {
      int number = 1;
      while (number <= kMaxFailures && fail(operation, variant % 2, 1 + variant / 2, number))
        ++number;
      injected += number - 1;
    }
  }
  return injected;
}

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
};

TEST_F(FailureTest, OfAllocationLeavesViewUsable) {
  const int windows = winsim::CountLive().windows;
  const int injected = FailInEveryOperation(
      "allocation", [](int number) { return std::make_unique<FailingMemory>(number); });
  EXPECT_EQ(winsim::CountLive().windows, windows);
  std::printf("allocations that failed: %d\n", injected);
  EXPECT_GT(injected, 250);
}

struct PlatformCall {
  const char* name;
  std::unique_ptr<ImportPatch> (*patch)(const char* name);
};

constexpr PlatformCall kCalls[] = {
    {"ActivateActCtx", PatchToFail<&ActivateActCtx, FALSE>},
    {"CallWindowProcW", PatchToFail<&CallWindowProcW, 0>},
    {"CoDisconnectObject", PatchToFail<&CoDisconnectObject, E_FAIL>},
    {"CreatePopupMenu", PatchToFail<&CreatePopupMenu, nullptr>},
    {"CreateWindowExW", PatchToFail<&CreateWindowExW, nullptr>},
    {"DefWindowProcW", PatchToFail<&DefWindowProcW, 0>},
    {"DestroyIcon", PatchToFail<&DestroyIcon, FALSE>},
    {"DestroyWindow", PatchToFail<&DestroyWindow, FALSE>},
    {"DoDragDrop", PatchToFail<&DoDragDrop, E_FAIL>},
    {"GetClassLongPtrW", PatchToFail<&GetClassLongPtrW, 0>},
    {"GetClientRect", PatchToFail<&GetClientRect, FALSE>},
    {"GetScrollInfo", PatchToFail<&GetScrollInfo, FALSE>},
    {"GlobalAlloc", PatchToFail<&GlobalAlloc, nullptr>},
    {"GlobalLock", PatchToFail<&GlobalLock, nullptr>},
    {"InvalidateRect", PatchToFail<&InvalidateRect, FALSE>},
    {"IsWindowUnicode", PatchToFail<&IsWindowUnicode, FALSE>},
    {"LoadCursorW", PatchToFail<&LoadCursorW, nullptr>},
    {"MoveWindow", PatchToFail<&MoveWindow, FALSE>},
    {"RegisterClassW", PatchToFail<&RegisterClassW, 0>},
    {"RedrawWindow", PatchToFail<&RedrawWindow, FALSE>},
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

TEST_F(FailureTest, OfPlatformCallLeavesViewUsable) {
  int injected = 0;
  for (const PlatformCall& call : kCalls) {
    const int ofThisCall = FailInEveryOperation(call.name, [&](int number) {
      FailurePoint::Arm(number);
      return call.patch(call.name);
    });
    EXPECT_GT(ofThisCall, 0) << "no operation makes the call " << call.name;
    injected += ofThisCall;
  }
  std::printf("platform failures injected: %d\n", injected);
  EXPECT_GT(injected, 4000);
}

}  // namespace
