// The conversation with the shell behind ShowContextMenu.

#include <windows.h>

#include <algorithm>
#include <string>

#include "support/fake_shell.h"
#include "support/import_patch.h"
#include "support/shell_test.h"

namespace {

const Name FILE_X = TEXT("C:\\a\\x");

// The lines that stand in `text` between bars.
Lines Split(const std::string& text) {
  Lines lines;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find('|', start), text.size());
    lines.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return lines;
}

class ShellMenuTest : public EachSelectionView {
 protected:
  bool Show(const FileNameList& names) {
    AnswerWith(names);
    const bool shown = view->ShowContextMenu(10, 20);
    EXPECT_TRUE(shell.HoldsNothing());
    lines = shell.Take();
    SendMenuMessage();
    EXPECT_EQ(shell.Take(), Lines()) << "the menu is gone";
    return shown;
  }

  void SendMenuMessage() { SendMessageW(parent, WM_INITMENUPOPUP, 0, 0); }

  Lines lines;  // of the last Show
  FakeShell shell;
};

INSTANTIATE_TEST_SUITE_P(Views, ShellMenuTest, EACH_VIEW, ViewName);

TEST_P(ShellMenuTest, EverythingIsTakenAndReleasedInOrder) {
  for (const int command : {1, 5, 0x7FFF}) {
    shell.onTrack = [=] { return command; };
    EXPECT_TRUE(Show({FILE_X, TEXT("D:\\b\\y")}));
    EXPECT_EQ(lines,
              Split("SHGetMalloc|Alloc 16|SHGetDesktopFolder|"
                    "Parse C:\\a\\x|Bind C:\\a|Free ids|"
                    "Parse C:\\a\\x|Bind C:\\a|Free ids|Release C:\\a|"
                    "Parse D:\\b\\y|Bind D:\\b|Free ids|Release D:\\b|"
                    "GetUIObjectOf C:\\a: x y|CreatePopupMenu|QueryContextMenu|QueryInterface|"
                    "Track 10,20|Release menu 2|Invoke " +
                    std::to_string(command - 1) +
                    "|DestroyMenu|Release menu|"
                    "Release C:\\a|Release desktop|Free array|Release allocator"));
    EXPECT_EQ(shell.window, parent);
  }
}

TEST_P(ShellMenuTest, FailuresEndTheConversationAndReleaseWhatWasTaken) {
  const std::string parsed = "SHGetMalloc|Alloc 8|SHGetDesktopFolder|Parse C:\\a\\x|";
  const std::string taken =
      parsed + "Bind C:\\a|Free ids|Parse C:\\a\\x|Bind C:\\a|Free ids|Release C:\\a|";
  const std::string object = taken + "GetUIObjectOf C:\\a: x|";
  const std::string menu = object + "CreatePopupMenu|QueryContextMenu|";
  const std::string released = "Release C:\\a|Release desktop|Free array|Release allocator";
  // From the first folder on there is a menu in principle.
  const struct {
    const char* failing;
    bool shown;
    std::string lines;
  } cases[] = {
      {"SHGetMalloc", false, "SHGetMalloc"},
      {"Alloc", false, "SHGetMalloc|Alloc 8|Release allocator"},
      {"SHGetDesktopFolder", false,
       "SHGetMalloc|Alloc 8|SHGetDesktopFolder|Free array|Release allocator"},
      {"Parse", false, parsed + "Bind nothing|Free array|Release desktop|Release allocator"},
      {"child id of x", true, taken + released},
      {"GetUIObjectOf", true, object + released},
      {"CreatePopupMenu", true, object + "CreatePopupMenu|Release menu|" + released},
      {"QueryContextMenu", true, menu + "DestroyMenu|Release menu|" + released},
      {"QueryInterface", true,
       menu + "QueryInterface|Track 10,20|DestroyMenu|Release menu|" + released},
      {"nothing", true,
       menu + "QueryInterface|Track 10,20|Release menu 2|DestroyMenu|Release menu|" + released},
  };
  for (const auto& test : cases) {
    shell.failing = test.failing;
    EXPECT_EQ(Show({FILE_X}), test.shown) << test.failing;
    EXPECT_EQ(lines, Split(test.lines)) << test.failing;
  }
}

TEST_P(ShellMenuTest, LaterNamesThatFailContributeAnEmptyIdOrNone) {
  shell.unknown = TEXT("C:\\a\\gone");
  shell.failing = "child id of y";
  EXPECT_TRUE(Show({FILE_X, shell.unknown, TEXT("C:\\a\\y"), TEXT("C:\\a\\z")}));
  // The unknown name's id is empty, and the third has no copy at all.
  EXPECT_EQ(std::ranges::count(lines, "GetUIObjectOf C:\\a: x  null z"), 1);
  EXPECT_EQ(std::ranges::count(lines, "Track 10,20"), 1);
}

TEST_P(ShellMenuTest, NamesReachTheShellAsTheyAre) {
  const Name longName = TEXT("C:\\") + Name(32000, WCHAR('n'));
  const Name surrogates = TEXT("C:\\") + Name{WCHAR(0xD83D), WCHAR(0xDCC4)};
  const Name relative = TEXT("x.txt");
  const struct {
    FileNameList names;
    bool shown;
  } cases[] = {
      {{FILE_X}, true},
      {{FILE_X, surrogates, longName}, true},
      {{longName}, true},
      {{TEXT("C:\\")}, true},
      {{FILE_X, relative, Name()}, true},
      {{relative, FILE_X}, false},
      {{Name(), FILE_X}, false},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(Show(test.names), test.shown);
    // The first name is asked for twice, the later ones only if the first one was found.
    FileNameList expected = {test.names.front()};
    if (test.shown) expected.insert(expected.end(), test.names.begin(), test.names.end());
    EXPECT_TRUE(shell.parsed == expected) << shell.parsed.size();
    shell.parsed.clear();
  }

  EXPECT_TRUE(Show({FILE_X + Name(1, WCHAR()) + TEXT("y")}));
  EXPECT_TRUE(shell.parsed.front() == FILE_X);
}

WCHAR* NoText(void*, int) { return nullptr; }

TEST_P(ShellMenuTest, ANameThatCannotBeCopiedIsUnknown) {
  const ImportPatch patch("_ZN7VornSDK4Util4WStr12dataForWriteEi", &NoText);
  EXPECT_FALSE(Show({FILE_X}));
  EXPECT_TRUE(shell.parsed.empty());
}

TEST_P(ShellMenuTest, MenuMessagesReachTheShellWhileTheMenuIsUp) {
  const std::string handled =
      "HandleMenuMsg 0x117 3 0|HandleMenuMsg 0x2B 3 0|HandleMenuMsg 0x2C 3 0|"
      "HandleMenuMsg 0x120 3 0";
  // A menu without the second interface tracks all the same, and nothing is handed on.
  for (const char* failing : {"nothing", "QueryInterface"}) {
    shell.failing = failing;
    bool tracked = false;
    shell.onTrack = [&] {
      shell.Take();
      for (const UINT message : {WM_INITMENUPOPUP, WM_DRAWITEM, WM_MEASUREITEM, WM_MENUCHAR,
                                 WM_MENUSELECT, WM_ENTERIDLE}) {
        SendMessageW(parent, message, 3, 0);
      }
      EXPECT_EQ(shell.Take(), shell.failing == "QueryInterface" ? Lines() : Split(handled));
      tracked = true;
      return 0;
    };
    EXPECT_TRUE(Show({FILE_X}));
    EXPECT_TRUE(tracked);
  }
}

TEST_P(ShellMenuTest, AMenuShownFromWithinAMenuLeavesTheOuterOneActive) {
  int depth = 0;
  shell.onTrack = [&] {
    if (++depth == 1) {
      EXPECT_TRUE(view->ShowContextMenu(30, 40));
    }
    shell.Take();
    SendMenuMessage();
    EXPECT_EQ(shell.Take(), Lines{"HandleMenuMsg 0x117 0 0"}) << depth;
    return 0;
  };
  EXPECT_TRUE(Show({FILE_X}));
  EXPECT_EQ(depth, 2);
}

}  // namespace
