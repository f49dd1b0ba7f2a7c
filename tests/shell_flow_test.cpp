// How a view comes from its selection to a drag or to the shell's menu.

#include <windows.h>

#include <string>

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

INSTANTIATE_TEST_SUITE_P(Views, ShellFlowTest, EACH_VIEW, ViewName);

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
  EXPECT_EQ(client.Take(), Lines());

  // The client takes back what the drag selects.
  client.onItemSelectionChanged = [this](ItemHandle) {
    client.onItemSelectionChanged = nullptr;
    view->ClearSelection();
  };
  BeginDrag(b);
  for (const std::string& line : client.Take()) EXPECT_FALSE(line.starts_with("BeginDrag")) << line;

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
  for (const HRESULT result : {E_UNEXPECTED, E_OUTOFMEMORY, DRAGDROP_S_CANCEL}) {
    drag.onDrag = [=](IDataObject*, IDropSource*) { return result; };
    BeginDrag(c);
    EXPECT_EQ(client.Take(), Lines{"BeginDrag a c"});
  }
  EXPECT_EQ(drag.runs, 3);
}

// The platform's own shell, up to the point where a menu would wait for the user.
class RealShellTest : public EachSelectionView {
 protected:
  static BOOL WINAPI PickNothing(HMENU menu, UINT, int, int, int, HWND window, const RECT*) {
    entries = GetMenuItemCount(menu);
    SendMessageW(window, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), 0);
    return 0;
  }

  static inline int entries = 0;
};

INSTANTIATE_TEST_SUITE_P(Views, RealShellTest, EACH_VIEW, ViewName);

TEST_P(RealShellTest, OffersTheMenuOfARealFile) {
  const ImportPatch patch("TrackPopupMenu", &PickNothing);
  const Name unknown = TEXT("C:\\no\\such\\file");
  WCHAR program[MAX_PATH] = {};
  ASSERT_GT(GetModuleFileNameW(nullptr, program, MAX_PATH), 0u);
  // The folder of the first file serves a later one that it does not know with an empty id.
  for (const FileNameList& files : {FileNameList{program}, FileNameList{program, unknown}}) {
    entries = 0;
    AnswerWith(files);
    EXPECT_TRUE(view->ShowContextMenu(10, 20));
    EXPECT_GT(entries, 1);
  }
  entries = 0;
  for (const Name& first : {unknown, Name(TEXT("relative.txt"))}) {
    AnswerWith({first, program});
    EXPECT_FALSE(view->ShowContextMenu(10, 20));
  }
  EXPECT_EQ(entries, 0);
}

}  // namespace
