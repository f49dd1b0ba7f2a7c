// The conversation with the shell behind ShowContextMenu.

#include <windows.h>

#include <algorithm>
#include <string>

#include "support/fake_shell.h"
#include "support/shell_test.h"

namespace {

// The lines that stand in `text` between bars.
Lines Split(const std::string& text) {
  Lines lines;
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t end = std::min(text.find('|', start), text.size());
    if (end > start) lines.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return lines;
}

class ShellMenuTest : public EachSelectionView {
 protected:
  bool Show(const FileNameList& names) {
    AnswerWith(names);
    const bool shown = view->ShowContextMenu(10, 20);
    shell.ExpectNothingHeld();
    EXPECT_EQ(LinesOfAMenuMessage(), Lines());
    return shown;
  }

  // What reaches the shell of a menu message now, behind what it wrote before.
  Lines LinesOfAMenuMessage() {
    const Lines before = shell.Take();
    SendMessageW(parent, WM_INITMENUPOPUP, 0, 0);
    Lines lines = shell.Take();
    for (const std::string& line : before) shell.Log(line);
    return lines;
  }

  FakeShell shell;
};

INSTANTIATE_TEST_SUITE_P(Views, ShellMenuTest, ::testing::ValuesIn(SELECTION_VIEWS), ParamName);

TEST_P(ShellMenuTest, EverythingIsTakenAndReleasedInOrder) {
  shell.onTrack = [] { return 5; };
  EXPECT_TRUE(Show({TEXT("C:\\a\\x"), TEXT("D:\\b\\y")}));
  EXPECT_EQ(shell.Take(),
            Split("SHGetMalloc|Alloc 16|SHGetDesktopFolder|"
                  "Parse C:\\a\\x|Bind C:\\a|Free ids|"
                  "Parse C:\\a\\x|Bind C:\\a|Free ids|Release C:\\a|"
                  "Parse D:\\b\\y|Bind D:\\b|Free ids|Release D:\\b|"
                  "GetUIObjectOf C:\\a: x y|CreatePopupMenu|QueryContextMenu|QueryInterface|"
                  "Track 10,20|Release menu 2|Invoke 4|DestroyMenu|Release menu|"
                  "Release C:\\a|Release desktop|Free array|Release allocator"));

  EXPECT_EQ(shell.trackWindow, parent);
  EXPECT_EQ(shell.objectWindow, parent);
  EXPECT_EQ(shell.invoked.cbSize, 56u);
  EXPECT_EQ(shell.invoked.fMask, 0u);
  EXPECT_EQ(shell.invoked.hwnd, parent);
  EXPECT_EQ(shell.invoked.lpParameters, nullptr);
  EXPECT_EQ(shell.invoked.lpDirectory, nullptr);
  EXPECT_EQ(shell.invoked.nShow, 1);
  EXPECT_EQ(shell.invoked.dwHotKey, 0u);
  EXPECT_EQ(shell.invoked.hIcon, nullptr);
}

TEST_P(ShellMenuTest, TheFirstAndTheLastCommandAreRun) {
  for (const int command : {1, 0x7FFF}) {
    shell.onTrack = [=] { return command; };
    EXPECT_TRUE(Show({TEXT("C:\\a\\x")}));
    const Lines lines = shell.Take();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "Invoke " + std::to_string(command - 1)), 1);
  }
}

TEST_P(ShellMenuTest, FailuresBeforeTheFirstFolderGiveFalse) {
  const std::string parsed = "SHGetMalloc|Alloc 8|SHGetDesktopFolder|Parse C:\\a\\x|Bind nothing|";
  const struct {
    const char* failing;
    std::string lines;
  } cases[] = {
      {"SHGetMalloc", "SHGetMalloc"},
      {"Alloc", "SHGetMalloc|Alloc 8|Release allocator"},
      {"SHGetDesktopFolder", "SHGetMalloc|Alloc 8|SHGetDesktopFolder|Free array|Release allocator"},
      {"the name", parsed + "Free array|Release desktop|Release allocator"},
  };
  shell.unknown.insert(TEXT("C:\\a\\x"));
  for (const auto& test : cases) {
    shell.failing = test.failing;
    EXPECT_FALSE(Show({TEXT("C:\\a\\x")})) << test.failing;
    EXPECT_EQ(shell.Take(), Split(test.lines)) << test.failing;
  }
}

TEST_P(ShellMenuTest, FailuresBehindTheFirstFolderGiveTrue) {
  const std::string taken =
      "SHGetMalloc|Alloc 8|SHGetDesktopFolder|Parse C:\\a\\x|Bind C:\\a|Free ids|"
      "Parse C:\\a\\x|Bind C:\\a|Free ids|Release C:\\a|";
  const std::string object = "GetUIObjectOf C:\\a: x|";
  const std::string released = "|Release C:\\a|Release desktop|Free array|Release allocator";
  const struct {
    const char* failing;
    std::string lines;
  } cases[] = {
      {"GetUIObjectOf", object},
      {"CreatePopupMenu", object + "CreatePopupMenu|Release menu"},
      {"QueryContextMenu", object + "CreatePopupMenu|QueryContextMenu|DestroyMenu|Release menu"},
      {"IContextMenu2", object + "CreatePopupMenu|QueryContextMenu|QueryInterface|Track 10,20|"
                                 "DestroyMenu|Release menu"},
      {"nothing", object + "CreatePopupMenu|QueryContextMenu|QueryInterface|Track 10,20|"
                           "Release menu 2|DestroyMenu|Release menu"},
  };
  for (const auto& test : cases) {
    shell.failing = test.failing;
    EXPECT_TRUE(Show({TEXT("C:\\a\\x")})) << test.failing;
    EXPECT_EQ(shell.Take(), Split(taken + test.lines + released)) << test.failing;
  }

  shell.failing.clear();
  shell.childIdWithoutMemory = static_cast<int>(std::size(cases));
  EXPECT_TRUE(Show({TEXT("C:\\a\\x")}));
  EXPECT_EQ(shell.Take(), Split(taken + released));
}

TEST_P(ShellMenuTest, LaterNamesThatFailContributeAnEmptyIdOrNone) {
  shell.unknown.insert(TEXT("C:\\a\\gone"));
  shell.childIdWithoutMemory = 2;
  EXPECT_TRUE(Show({TEXT("C:\\a\\x"), TEXT("C:\\a\\gone"), TEXT("C:\\a\\y"), TEXT("C:\\a\\z")}));
  const Lines lines = shell.Take();
  // The unknown name's id is empty, and the third has no copy at all.
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "GetUIObjectOf C:\\a: x  null z"), 1);
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "Track 10,20"), 1);
}

TEST_P(ShellMenuTest, NamesReachTheShellAsTheyAre) {
  const Name longName = TEXT("C:\\") + Name(32000, WCHAR('n'));
  const Name surrogates = TEXT("C:\\") + Name{WCHAR(0xD83D), WCHAR(0xDCC4)};
  const Name relative = TEXT("x.txt");
  const Name known = TEXT("C:\\a\\x");
  const struct {
    FileNameList names;
    bool shown;
  } cases[] = {
      {{known}, true},          {{known, surrogates, longName}, true}, {{longName}, true},
      {{TEXT("C:\\")}, true},   {{known, relative, Name()}, true},     {{relative, known}, false},
      {{Name(), known}, false},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(Show(test.names), test.shown);
    // The first name is asked for twice, the later ones only if the first one was found.
    FileNameList expected = {test.names.front()};
    if (test.shown) expected.insert(expected.end(), test.names.begin(), test.names.end());
    EXPECT_TRUE(shell.parsed == expected) << shell.parsed.size();
    shell.parsed.clear();
    shell.Take();
  }

  const Name cut = known + Name(1, WCHAR()) + TEXT("y");
  EXPECT_TRUE(Show({cut}));
  EXPECT_TRUE(shell.parsed.front() == known);
}

WCHAR* NoText(void*, int) { return nullptr; }

TEST_P(ShellMenuTest, ANameThatCannotBeCopiedIsUnknown) {
  const ImportPatch patch("_ZN7VornSDK4Util4WStr12dataForWriteEi", &NoText);
  EXPECT_FALSE(Show({TEXT("C:\\a\\x")}));
  EXPECT_TRUE(shell.parsed.empty());
}

TEST_P(ShellMenuTest, MenuMessagesReachTheShellWhileTheMenuIsUp) {
  shell.onTrack = [&] {
    shell.Take();
    for (const UINT message : {WM_INITMENUPOPUP, WM_DRAWITEM, WM_MEASUREITEM, WM_MENUCHAR,
                               WM_MENUSELECT, WM_ENTERIDLE}) {
      SendMessageW(parent, message, 3, 0);
    }
    EXPECT_EQ(shell.Take(), Split("HandleMenuMsg 0x117 3 0|HandleMenuMsg 0x2B 3 0|"
                                  "HandleMenuMsg 0x2C 3 0|HandleMenuMsg 0x120 3 0"));
    return 0;
  };
  EXPECT_TRUE(Show({TEXT("C:\\a\\x")}));
  EXPECT_NE(shell.trackWindow, nullptr);

  // A menu without the second interface tracks all the same, and nothing is handed on.
  shell.failing = "IContextMenu2";
  shell.trackWindow = nullptr;
  shell.onTrack = [&] {
    EXPECT_EQ(LinesOfAMenuMessage(), Lines());
    return 0;
  };
  EXPECT_TRUE(Show({TEXT("C:\\a\\x")}));
  EXPECT_EQ(shell.trackWindow, parent);
}

TEST_P(ShellMenuTest, AMenuShownFromWithinAMenuLeavesTheOuterOneActive) {
  int depth = 0;
  shell.onTrack = [&] {
    if (++depth == 1) {
      EXPECT_TRUE(view->ShowContextMenu(30, 40));
    }
    EXPECT_EQ(LinesOfAMenuMessage(), Lines{"HandleMenuMsg 0x117 0 0"}) << depth;
    return 0;
  };
  EXPECT_TRUE(Show({TEXT("C:\\a\\x")}));
  EXPECT_EQ(depth, 2);
}

}  // namespace
