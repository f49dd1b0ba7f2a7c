// The shell's context menu and the drag of a selection: when they start, and every call to the
// shell.

#include <windows.h>

#include <string>

#include "support/fake_drag.h"
#include "support/fake_shell.h"
#include "support/import_patch.h"
#include "support/shell_test.h"

namespace {

using Text = std::basic_string<WCHAR>;

const Text kFileX = TEXT("C:\\a\\x");

const std::string kStart = "SHGetMalloc|Alloc 8|SHGetDesktopFolder|";
const std::string kParsed = "Parse C:\\a\\x|Bind C:\\a\\|Free ids|";
const std::string kTaken = kStart + kParsed + kParsed + "Release C:\\a\\|";
const std::string kObject = kTaken + "GetUIObjectOf C:\\a\\: x|";
const std::string kFilled = kObject + "CreatePopupMenu|QueryContextMenu|";
const std::string kTracked = kFilled + "QueryInterface|Track 10,20|";
const std::string kMenuReleased = "DestroyMenu|Release menu|";
const std::string kReleased = "Release C:\\a\\|Release desktop|Free array|Release allocator|shown";

class ShellMenuTest : public EachSelectionView {
 protected:
  // The log of a menu for `names`, and whether it was shown.
  std::string Show(const FileNameList& names) {
    AnswerWith(names);
    const bool shown = view->ShowContextMenu(10, 20);
    EXPECT_TRUE(shell.HoldsNothing());
    std::string log = shell.Take() + (shown ? "shown" : "not shown");
    SendMessageW(parent, WM_INITMENUPOPUP, 0, 0);
    EXPECT_EQ(shell.Take(), "") << "no menu is active";
    return log;
  }

  FakeDrag drag;
  FakeShell shell;
};

INSTANTIATE_TEST_SUITE_P(Views, ShellMenuTest, kEachView, ViewName);

TEST_P(ShellMenuTest, EverythingIsAcquiredAndReleasedInOrder) {
  const struct {
    const char* failing;
    std::string log;
  } cases[] = {
      {"SHGetMalloc", "SHGetMalloc|not shown"},
      {"Alloc", "SHGetMalloc|Alloc 8|Release allocator|not shown"},
      {"SHGetDesktopFolder", kStart + "Free array|Release allocator|not shown"},
      {"Parse", kStart + "Parse C:\\a\\x|Bind nothing|Free array|Release desktop|"
                         "Release allocator|not shown"},
      // With the first folder the operation succeeds, with or without a menu.
      {"id x", kTaken + kReleased},
      {"GetUIObjectOf", kObject + kReleased},
      {"CreatePopupMenu", kObject + "CreatePopupMenu|Release menu|" + kReleased},
      {"QueryContextMenu", kFilled + kMenuReleased + kReleased},
      {"QueryInterface", kTracked + kMenuReleased + kReleased},
      {"nothing", kTracked + "Release menu 2|" + kMenuReleased + kReleased},
  };
  for (const auto& test : cases) {
    shell.failing = test.failing;
    EXPECT_EQ(Show({kFileX}), test.log) << test.failing;
  }
  for (const int command : {1, 5, 0x7FFF}) {
    shell.onTrack = [=] { return command; };
    const std::string invoke = "Invoke " + std::to_string(command - 1) + "|";
    EXPECT_EQ(Show({kFileX}), kTracked + "Release menu 2|" + invoke + kMenuReleased + kReleased);
  }
  EXPECT_EQ(shell.window, parent);
}

TEST_P(ShellMenuTest, NamesReachTheShellUnchanged) {
  const Text surrogates = TEXT("C:\\") + Text{WCHAR(0xD83D), WCHAR(0xDCC4)};
  const Text longName = TEXT("D:\\b\\") + Text(32000, WCHAR('n'));
  const std::string longText(32000, 'n');
  shell.failing = "id y";
  const std::string log = Show(
      {kFileX, surrogates, TEXT("C:\\a\\y"), TEXT("gone"), longName, kFileX + Text(1, 0) + kFileX});
  EXPECT_TRUE(log.starts_with(
      "SHGetMalloc|Alloc 48|SHGetDesktopFolder|" + kParsed + kParsed + "Release C:\\a\\|" +
      "Parse C:\\=\xC4|Bind C:\\|Free ids|Release C:\\|" +
      "Parse C:\\a\\y|Bind C:\\a\\|Free ids|Release C:\\a\\|Parse gone|Bind nothing|" +
      "Parse D:\\b\\" + longText + "|Bind D:\\b\\|Free ids|Release D:\\b\\|" + kParsed +
      "Release C:\\a\\|" +
      // The folder of the first name gets all ids: an empty one for a name that does not exist,
      // null for one without memory.
      "GetUIObjectOf C:\\a\\: x =\xC4 null  " + longText + " x|CreatePopupMenu|"))
      << log;
  for (const Text& unknown : {Text(), Text(TEXT("x.txt"))}) {
    EXPECT_TRUE(Show({unknown, kFileX}).ends_with("|not shown"));
  }
}

TEST_P(ShellMenuTest, NameThatCannotBeCopiedIsUnknown) {
  const auto noText = [](void*, int) -> WCHAR* { return nullptr; };
  const ImportPatch patch("_ZN7VornSDK4Util4WStr12dataForWriteEi", +noText);
  EXPECT_EQ(Show({kFileX}),
            "SHGetMalloc|Alloc 8|SHGetDesktopFolder|Bind nothing|Free array|Release desktop|"
            "Release allocator|not shown");
}

TEST_P(ShellMenuTest, ActiveMenuGetsMenuMessagesAlsoAfterANestedMenu) {
  int depth = 0;
  shell.onTrack = [&] {
    if (++depth == 1) {
      EXPECT_TRUE(view->ShowContextMenu(30, 40));
    }
    shell.Take();
    for (const UINT message : {WM_INITMENUPOPUP, WM_DRAWITEM, WM_MEASUREITEM, WM_MENUCHAR,
                               WM_MENUSELECT, WM_ENTERIDLE}) {
      SendMessageW(parent, message, 3, 0);
    }
    EXPECT_EQ(shell.Take(), shell.failing == "QueryInterface"
                                ? ""
                                : "HandleMenuMsg 279 3 0|HandleMenuMsg 43 3 0|"
                                  "HandleMenuMsg 44 3 0|HandleMenuMsg 288 3 0|");
    return 0;
  };
  Show({kFileX});
  shell.failing = "QueryInterface";
  Show({kFileX});
  EXPECT_EQ(depth, 3);
}

TEST_P(ShellMenuTest, OnlyNamedFilesOfASelectionStartAnything) {
  const std::string asked = "BeginDrag a c ShellContextMenu a c";
  const auto expectStart = [&](bool starts, const std::string& callbacks) {
    drag.runs = 0;
    BeginDrag(a);
    EXPECT_EQ(view->ShowContextMenu(10, 20), starts);
    EXPECT_EQ(drag.runs, starts);
    EXPECT_EQ(Callbacks(), callbacks);
    EXPECT_EQ(shell.Take().empty(), !starts);
    EXPECT_EQ(Selected(), "ac");
  };
  AnswerWith({});
  expectStart(false, asked);
  AnswerWith({kFileX}, false);
  expectStart(false, asked);
  AnswerWith({kFileX});
  for (const HRESULT result : {E_UNEXPECTED, E_OUTOFMEMORY, DRAGDROP_S_CANCEL, DRAGDROP_S_DROP}) {
    drag.onDrag = [=](IDataObject*, IDropSource*) { return result; };
    expectStart(true, asked);
  }
  view->SetClient(nullptr);
  expectStart(false, "");
  view->SetClient(&client);

  view->ClearSelection();
  client.Take();
  EXPECT_FALSE(view->ShowContextMenu(10, 20));
  EXPECT_EQ(Callbacks(), "");
  // The client deselects the item that the drag selects.
  client.onItemSelectionChanged = [this](ItemHandle) {
    client.onItemSelectionChanged = nullptr;
    view->ClearSelection();
  };
  BeginDrag(b);
  EXPECT_EQ(Callbacks().find("BeginDrag"), std::string::npos);
}

// The platform's own shell, up to the point where a menu would wait for the user.
using RealShellTest = EachSelectionView;

INSTANTIATE_TEST_SUITE_P(Views, RealShellTest, kEachView, ViewName);

TEST_P(RealShellTest, OffersTheMenuOfARealFile) {
  static int entries;
  const auto track = [](HMENU menu, UINT, int, int, int, HWND window, const RECT*) -> BOOL {
    entries = GetMenuItemCount(menu);
    SendMessageW(window, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), 0);
    return 0;
  };
  const ImportPatch patch("TrackPopupMenu", +track);
  WCHAR program[MAX_PATH] = {};
  ASSERT_GT(GetModuleFileNameW(nullptr, program, MAX_PATH), 0u);
  const Text unknown = TEXT("C:\\no\\such\\file");
  const struct {
    FileNameList files;
    bool shown;
  } cases[] = {
      {{program}, true},
      // The folder of the first file gets an empty id for the unknown one.
      {{program, unknown}, true},
      {{unknown, program}, false},
      {{TEXT("relative.txt"), program}, false},
  };
  for (const auto& test : cases) {
    AnswerWith(test.files);
    entries = 0;
    EXPECT_EQ(view->ShowContextMenu(10, 20), test.shown);
    EXPECT_EQ(entries > 1, test.shown);
  }
}

}  // namespace
