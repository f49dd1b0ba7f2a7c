// Every allocation and every platform call that an operation or a gesture makes fails in turn: no
// exception comes out, brackets that opened close, nothing leaks, and the view works on.
#include "linux/scarce_memory.h"

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

#include "random/acts.h"

namespace {

// A walk makes the same call for each item; the failures of the first ones stand for all.
constexpr int MOST_OF_ONE_CALL = 25;
// What an act is about differs from seed to seed.
constexpr unsigned SEEDS = 2;

// A drop target that takes the files of the drag.
HRESULT TakeFiles(IDataObject* data, IDropSource* /*source*/, DWORD /*allowed*/, DWORD* effect) {
  FORMATETC format = {CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
  STGMEDIUM medium = {};
  if (SUCCEEDED(data->GetData(&format, &medium))) GlobalFree(medium.hGlobal);
  *effect = DROPEFFECT_COPY;
  return DRAGDROP_S_DROP;
}

// A view full of items, with a client that agrees to everything.
class Scene final : public Player {
 public:
  Scene(bool asList, unsigned seed)
      : Player(MakeStoryWindow(), asList, [dice = std::mt19937(seed)](int limit) mutable {
          return static_cast<int>(dice() % static_cast<unsigned>(limit));
        }) {
    Create();
    // Without them yet, the act that asks for them fills their list.
    if (seed % 2 == 1) view->UseSystemImageList();
    for (int i = 0; i < 12; ++i) Insert();
    view->ExpandAll();
    const ItemHandleList items = Items();
    view->SetItemSelected(items.back(), true);
  }

  ~Scene() override {
    ReleaseIQVLTreeView(std::exchange(view, nullptr));
    DestroyWindow(host);
  }

  // The view takes items, selects and ticks them as on its first day.
  void ExpectUsable() {
    EXPECT_EQ(openBrackets, 0);
    view->SetClient(this);
    const std::uint32_t style = QVLS_CHECKBOXES | (list ? QVLS_LISTVIEW : 0U);
    ASSERT_NE(view->Create(host, CONTROL_ID, 0, 0, 300, 400, style, nullptr), nullptr);
    view->UseSystemImageList();
    QVLTreeViewItem record;
    record.SetChecked(true);
    for (int i = 0; i < 3; ++i) EXPECT_NE(view->InsertItem(&record, -1), -1);
    view->SelectAll();
    EXPECT_EQ(view->GetSelectedCount(), 3);
    EXPECT_EQ(view->GetCheckedCount(), 3);
  }

 private:
  bool Heard(const std::string&) override { return true; }
  void NameFiles(FileNameList* files) override {
    *files = {TEXT("C:\\folder\\file.txt"), TEXT("C:\\folder\\other.txt")};
  }
};

// Lets something fail, the first time it happens, the second, and so on, in every act. `arm` gives
// an object for whose life the one of that number fails. The result counts the failures.
template <class Arm>
int FailInEveryAct(const std::string& what, Arm arm) {
  int injected = 0;
  const auto fail = [&](const Act& act, bool list, unsigned seed, int number) {
    SCOPED_TRACE(act.name + (list ? " of a list, " : " of a tree, ") + what + " no. " +
                 std::to_string(number) + ", seed " + std::to_string(seed));
    Scene scene(list, seed);
    {
      const auto armed = arm(number);
      EXPECT_NO_THROW(act.run(scene));
      FailurePoint::Disarm();
    }
    scene.ExpectUsable();
    return FailurePoint::calls >= number;
  };
  for (const Act& act : Acts()) {
    for (unsigned variant = 0; variant < 2 * SEEDS; ++variant) {
      int number = 1;
      while (number <= MOST_OF_ONE_CALL && fail(act, variant % 2, 1 + variant / 2, number))
        ++number;
      injected += number - 1;
    }
  }
  return injected;
}

class Failure : public ::testing::Test {
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

TEST_F(Failure, OfMemoryLeavesEveryOperationWhole) {
  const int windows = winsim::CountLive().windows;
  const int injected = FailInEveryAct(
      "allocation", [](int number) { return std::make_unique<ScarceMemory>(number); });
  EXPECT_EQ(winsim::CountLive().windows, windows);
  std::printf("allocations that failed: %d\n", injected);
  EXPECT_GT(injected, 250);
}

struct PlatformCall {
  const char* name;
  std::unique_ptr<ImportPatch> (*patch)(const char* name);
};

constexpr PlatformCall CALLS[] = {
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

TEST_F(Failure, OfAPlatformCallLeavesEveryOperationWhole) {
  int injected = 0;
  for (const PlatformCall& call : CALLS) {
    const int ofThisCall = FailInEveryAct(call.name, [&](int number) {
      FailurePoint::Arm(number);
      return call.patch(call.name);
    });
    EXPECT_GT(ofThisCall, 0) << "no act makes the call " << call.name;
    injected += ofThisCall;
  }
  std::printf("platform failures injected: %d\n", injected);
  EXPECT_GT(injected, 4000);
}

}  // namespace
