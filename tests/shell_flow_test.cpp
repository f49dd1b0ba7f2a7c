// How a view comes from its selection to a drag or to the shell's menu, and what ends that.

#include <windows.h>

#include <string>
#include <tuple>

#include "support/fake_drag.h"
#include "support/fake_shell.h"
#include "support/shell_test.h"

namespace {

const FileNameList FILES = {TEXT("C:\\a\\x")};

class ShellFlowTest : public EachSelectionView {
 protected:
  FakeDrag drag;
  FakeShell shell;
};

INSTANTIATE_TEST_SUITE_P(Views, ShellFlowTest, ::testing::ValuesIn(SELECTION_VIEWS), ParamName);

TEST_P(ShellFlowTest, TheClientIsAskedForTheFilesOfTheSelection) {
  AnswerWith(FILES);
  BeginDrag(a);
  EXPECT_EQ(client.Take(), Lines{"BeginDrag a c"});
  EXPECT_EQ(drag.runs, 1);

  EXPECT_TRUE(view->ShowContextMenu(10, 20));
  EXPECT_EQ(client.Take(), Lines{"ShellContextMenu a c"});
  EXPECT_TRUE(view->IsItemSelected(a) && !view->IsItemSelected(b) && view->IsItemSelected(c));
}

TEST_P(ShellFlowTest, WithoutAnAnswerOrANameNothingStarts) {
  for (const bool answer : {false, true}) {
    AnswerWith(answer ? FileNameList() : FILES, answer);
    BeginDrag(a);
    EXPECT_FALSE(view->ShowContextMenu(10, 20));
    EXPECT_EQ(client.Take(), (Lines{"BeginDrag a c", "ShellContextMenu a c"}));
  }
  EXPECT_EQ(drag.runs, 0);
  EXPECT_EQ(shell.Take(), Lines());
}

TEST_P(ShellFlowTest, WithoutASelectionOrAClientNobodyIsAsked) {
  AnswerWith(FILES);
  view->ClearSelection();
  client.Take();
  EXPECT_FALSE(view->ShowContextMenu(10, 20));

  view->SetItemSelected(a, true);
  client.Take();
  view->SetClient(nullptr);
  BeginDrag(a);
  EXPECT_FALSE(view->ShowContextMenu(10, 20));

  EXPECT_EQ(client.Take(), Lines());
  EXPECT_EQ(drag.runs, 0);
  EXPECT_EQ(shell.Take(), Lines());
}

TEST_P(ShellFlowTest, AFailedDragLeavesTheViewAsItWas) {
  AnswerWith(FILES);
  for (const HRESULT result : {E_UNEXPECTED, E_OUTOFMEMORY, DRAGDROP_S_CANCEL, DRAGDROP_S_DROP}) {
    drag.onDrag = [=](IDataObject*, IDropSource*) { return result; };
    BeginDrag(c);
    EXPECT_EQ(client.Take(), Lines{"BeginDrag a c"});
  }
  EXPECT_EQ(drag.runs, 4);
}

enum class Ending { DESTROY, RELEASE, CREATE };

// The host ends the view while it is asked or while the system is at work.
class ShellEndingTest : public SelectionTest,
                        public ::testing::WithParamInterface<std::tuple<std::uint32_t, Ending>> {
 protected:
  void SetUp() override {
    SelectionTest::SetUp();
    Open(std::get<0>(GetParam()));
  }

  void End() {
    switch (std::get<1>(GetParam())) {
      case Ending::DESTROY:
        view->Destroy();
        break;
      case Ending::RELEASE:
        ReleaseView();
        break;
      case Ending::CREATE:
        Open(std::get<0>(GetParam()));
        break;
    }
    client.Take();
  }

  // A view that was created again in the middle of its own flow works like a new one.
  void ExpectTheNextToWork() {
    if (std::get<1>(GetParam()) != Ending::CREATE) return;
    AnswerWith(FILES);
    shell.Take();
    shell.onTrack = [&] {
      shell.Take();
      SendMessageW(parent, WM_INITMENUPOPUP, 1, 0);
      EXPECT_EQ(shell.Take(), Lines{"HandleMenuMsg 0x117 1 0"});
      return 0;
    };
    EXPECT_TRUE(view->ShowContextMenu(10, 20));
    const int before = drag.runs;
    drag.onDrag = [](IDataObject*, IDropSource*) { return DRAGDROP_S_DROP; };
    BeginDrag(a);
    EXPECT_EQ(drag.runs, before + 1);
  }

  FakeDrag drag;
  FakeShell shell;
};

std::string EndingName(const ::testing::TestParamInfo<ShellEndingTest::ParamType>& info) {
  const std::string endings[] = {"Destroy", "Release", "Create"};
  return ViewName(std::get<0>(info.param)) + endings[static_cast<int>(std::get<1>(info.param))];
}

INSTANTIATE_TEST_SUITE_P(Views, ShellEndingTest,
                         ::testing::Combine(::testing::ValuesIn(SELECTION_VIEWS),
                                            ::testing::Values(Ending::DESTROY, Ending::RELEASE,
                                                              Ending::CREATE)),
                         EndingName);

TEST_P(ShellEndingTest, NoDragStartsAfterTheEnd) {
  client.onBeginDrag = [&](ItemHandleList*, FileNameList* files) {
    *files = FILES;
    End();
    return true;
  };
  BeginDrag(a);
  EXPECT_EQ(drag.runs, 0);
  EXPECT_EQ(client.Take(), Lines());
  ExpectTheNextToWork();
}

TEST_P(ShellEndingTest, TheDragOutlivesTheView) {
  AnswerWith(FILES);
  drag.onDrag = [&](IDataObject* data, IDropSource* source) {
    End();
    EXPECT_EQ(source->QueryContinueDrag(TRUE, 0), DRAGDROP_S_CANCEL);
    FORMATETC format = {CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    STGMEDIUM medium = {};
    EXPECT_EQ(data->GetData(&format, &medium), S_OK);
    GlobalFree(medium.hGlobal);
    return DRAGDROP_S_DROP;
  };
  BeginDrag(a);
  EXPECT_EQ(drag.runs, 1);
  EXPECT_EQ(client.Take(), Lines());
  ExpectTheNextToWork();
}

TEST_P(ShellEndingTest, NoMenuStartsAfterTheEnd) {
  client.onShellContextMenu = [&](ItemHandleList*, FileNameList* files) {
    *files = FILES;
    End();
    return true;
  };
  EXPECT_FALSE(view->ShowContextMenu(10, 20));
  EXPECT_EQ(shell.Take(), Lines());
  EXPECT_EQ(client.Take(), Lines());
  ExpectTheNextToWork();
}

TEST_P(ShellEndingTest, TheMenuReleasesAllWhenTheViewEndsUnderIt) {
  AnswerWith(FILES);
  shell.onTrack = [&] {
    End();
    return 0;
  };
  EXPECT_FALSE(view->ShowContextMenu(10, 20));
  shell.ExpectNothingHeld();
  EXPECT_EQ(client.Take(), Lines());
  ExpectTheNextToWork();
}

#ifdef _WIN32

// The real shell, up to the point where a menu would wait for the user.
class RealShellTest : public EachSelectionView {
 protected:
  static BOOL WINAPI PickNothing(HMENU menu, UINT, int, int, int, HWND, const RECT*) {
    entries = GetMenuItemCount(menu);
    SendMessageW(window, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), 0);
    return 0;
  }

  static inline int entries = 0;
  static inline HWND window = nullptr;
};

INSTANTIATE_TEST_SUITE_P(Views, RealShellTest, ::testing::ValuesIn(SELECTION_VIEWS), ParamName);

TEST_P(RealShellTest, OffersTheMenuOfARealFile) {
  WCHAR folder[MAX_PATH];
  WCHAR file[MAX_PATH];
  ASSERT_NE(GetTempPathW(MAX_PATH, folder), 0u);
  ASSERT_NE(GetTempFileNameW(folder, L"qvl", 0, file), 0u);
  const ImportPatch patch("TrackPopupMenu", &PickNothing);
  window = parent;

  entries = 0;
  AnswerWith({file});
  EXPECT_TRUE(view->ShowContextMenu(10, 20));
  EXPECT_GT(entries, 3);

  // The folder of the first file serves a later one that it does not know with an empty id.
  AnswerWith({file, TEXT("C:\\no\\such\\file")});
  EXPECT_TRUE(view->ShowContextMenu(10, 20));

  DeleteFileW(file);
  entries = 0;
  for (const Name& unknown : {Name(file), Name(TEXT("relative.txt"))}) {
    AnswerWith({unknown});
    EXPECT_FALSE(view->ShowContextMenu(10, 20));
  }
  EXPECT_EQ(entries, 0);
}

#endif

}  // namespace
