// How the library finds and activates its context. What it finds is settled once in a process, so
// each case has a process to itself.
#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qvl.h"
#include "support/host_window.h"
#include "support/scripted_platform.h"

namespace {

using Answer = ScriptedPlatform::Answer;

// Errors that belong to no call of these cases.
constexpr DWORD SOME_ERROR = 14001;
constexpr DWORD OTHER_ERROR = 1450;

// What a call gives that fails to find or make a context.
constexpr LONG_PTR NO_CONTEXT = -1;
constexpr LONG_PTR FAKE = ScriptedPlatform::FAKE_CONTEXT;

Lines operator+(Lines first, const Lines& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

const Lines QUERY = {"QueryActCtxW"};
const Lines SEARCH = {"QueryActCtxW", "GetModuleHandleExW", "GetModuleFileNameW", "CreateActCtxW"};

// Whether the common controls are redirected is asked within the context; then they are loaded.
Lines Resident(const std::string& activate) { return {activate, "Find", "Deactivate"}; }
const Lines FOUND_NONE = SEARCH + Resident("Activate 0");
const Lines REDIRECTED = {"Activate 0", "Find", "LoadLibraryW", "Deactivate"};

// The class, the parent window and the control.
Lines Windows(const std::string& activate) {
  return {activate,     "RegisterClassW", "Deactivate",      activate,    "CreateWindowExW",
          "Deactivate", activate,         "CreateWindowExW", "Deactivate"};
}

std::ptrdiff_t CountOf(const Lines& lines, const std::string& line) {
  return std::count(lines.begin(), lines.end(), line);
}

class Activation : public HostTest {
 protected:
  using Case = std::function<void(ScriptedPlatform&)>;

  // Runs the rest of a case in a process of its own and takes over its failures.
  static void Alone(const Case& rest) {
    EXPECT_EXIT(RunAndExit(rest), testing::ExitedWithCode(EXIT_SUCCESS), "");
  }

  // Creates a view that is to fail, and gives the last error of that.
  DWORD ErrorOfCreate() {
    SetLastError(OTHER_ERROR);
    const HWND control = CreateView();
    const DWORD error = GetLastError();
    EXPECT_EQ(control, nullptr);
    return error;
  }

  // The lines that the first use of the system's icons by a tree leaves.
  Lines UseIcons(ScriptedPlatform& platform) {
    EXPECT_NE(CreateView(), nullptr);
    platform.Take();
    EXPECT_TRUE(view->UseSystemImageList());
    return platform.Take();
  }

 private:
  static void RunAndExit(const Case& rest) {
    {
      ScriptedPlatform platform;
      rest(platform);
      EXPECT_EQ(platform.active, 0u) << "a context stayed active";
    }
    const auto& result = *testing::UnitTest::GetInstance()->current_test_info()->result();
    for (int i = 0; i < result.total_part_count(); ++i) std::cerr << result.GetTestPartResult(i);
    std::exit(result.Failed() ? EXIT_FAILURE : EXIT_SUCCESS);
  }
};

TEST_F(Activation, ContextIsFoundOnceAndUsedForEveryWindow) {
  struct Row {
    const char* call;
    Answer answer;
    Lines search;
    const char* activate;
  };
  std::vector<Row> rows = {
      {"no answer of the script", {}, FOUND_NONE, "Activate 0"},
      {"Find", {0, TRUE}, SEARCH + REDIRECTED, "Activate 0"},
      {"QueryActCtxW", {0, FAKE}, QUERY + Resident("Activate fake"), "Activate fake"},
      {"CreateActCtxW", {0, FAKE}, SEARCH + Resident("Activate fake"), "Activate fake"},
      {"GetModuleFileNameW", {0, 260}, FOUND_NONE, "Activate 0"},
  };
  // These errors mean that there is no such manifest.
  for (const DWORD error : {2u, 3u, 1812u, 1813u, 1814u, 1815u}) {
    rows.push_back({"CreateActCtxW", {error, NO_CONTEXT}, FOUND_NONE, "Activate 0"});
  }
  for (const Row& row : rows) {
    Alone([&](ScriptedPlatform& platform) {
      SCOPED_TRACE(row.call + std::to_string(row.answer.error));
      platform.answers[row.call] = row.answer;
      EXPECT_NE(CreateView(), nullptr);
      EXPECT_EQ(platform.Take(), row.search + Windows(row.activate));
      EXPECT_NE(CreateView(), nullptr);
      EXPECT_EQ(platform.Take(), Windows(row.activate));
    });
  }
}

TEST_F(Activation, FailedSearchMakesNoWindowTellsItsErrorAndIsTriedAgain) {
  const struct {
    const char* call;
    Answer answer;
    std::ptrdiff_t calls;
    DWORD error;
  } rows[] = {
      {"QueryActCtxW", {SOME_ERROR, NO_CONTEXT}, 1, SOME_ERROR},
      {"GetModuleHandleExW", {SOME_ERROR}, 2, SOME_ERROR},
      {"GetModuleFileNameW", {SOME_ERROR}, 3, SOME_ERROR},
      {"GetModuleFileNameW", {0, 261}, 3, ERROR_BUFFER_OVERFLOW},
      {"GetModuleFileNameW", {0, 262}, 3, ERROR_BUFFER_OVERFLOW},
      {"CreateActCtxW", {SOME_ERROR, NO_CONTEXT}, 4, SOME_ERROR},
      {"CreateActCtxW", {1, NO_CONTEXT}, 4, 1},
      {"CreateActCtxW", {4, NO_CONTEXT}, 4, 4},
      {"CreateActCtxW", {1811, NO_CONTEXT}, 4, 1811},
      {"CreateActCtxW", {1816, NO_CONTEXT}, 4, 1816},
  };
  WCHAR path[4] = {};
  EXPECT_EQ(GetModuleFileNameW(nullptr, path, 4), 4u)
      << "a path that does not fit fills its buffer";
  for (const auto& row : rows) {
    Alone([&](ScriptedPlatform& platform) {
      platform.answers[row.call] = row.answer;
      EXPECT_EQ(ErrorOfCreate(), row.error);
      const Lines search(SEARCH.begin(), SEARCH.begin() + row.calls);
      EXPECT_EQ(platform.Take(), search + search) << "class and window try";

      platform.answers.clear();
      EXPECT_NE(CreateView(), nullptr);
      EXPECT_EQ(platform.Take(), FOUND_NONE + Windows("Activate 0"));
    });
  }
}

TEST_F(Activation, ContextThatCannotBeActivatedIsSettledAllTheSame) {
  Alone([&](ScriptedPlatform& platform) {
    platform.answers["Activate 0"] = {SOME_ERROR};
    EXPECT_EQ(ErrorOfCreate(), SOME_ERROR);
    // One to make the common controls resident, then class and window.
    const Lines attempts = {"Activate 0", "Activate 0", "Activate 0"};
    EXPECT_EQ(platform.Take(), SEARCH + attempts);

    platform.answers.clear();
    EXPECT_NE(CreateView(), nullptr);
    EXPECT_EQ(platform.Take(), Windows("Activate 0"));
  });
}

TEST_F(Activation, FailedWindowKeepsItsErrorPastTheDeactivation) {
  Alone([&](ScriptedPlatform& platform) {
    platform.answers = {{"RegisterClassW", {OTHER_ERROR}}, {"CreateWindowExW", {SOME_ERROR}}};
    EXPECT_EQ(ErrorOfCreate(), SOME_ERROR);
    platform.Take();
    // The third activation comes after the class, before the window.
    ASSERT_EQ(platform.errorsAt["Activate 0"].size(), 3u);
    EXPECT_EQ(platform.errorsAt["Activate 0"][2], OTHER_ERROR);
  });
}

TEST_F(Activation, EachImageFunctionIsLookedUpOnce) {
  Alone([&](ScriptedPlatform& platform) {
    Lines lines = UseIcons(platform);
    EXPECT_EQ(CountOf(lines, "LoadLibraryW"), 1);
    for (const std::string name :
         {"ImageList_Create", "ImageList_GetIcon", "ImageList_GetIconSize",
          "ImageList_GetImageCount", "ImageList_ReplaceIcon", "ImageList_SetBkColor"}) {
      EXPECT_EQ(CountOf(lines, "Lookup " + name), 1) << name;
      EXPECT_GE(CountOf(lines, name), 1) << name;
    }
    EXPECT_EQ(CountOf(lines, "Activate 0"), CountOf(lines, "Deactivate"));

    // Another tree knows nothing of the first one's use, and fills the list again.
    lines = UseIcons(platform);
    EXPECT_EQ(CountOf(lines, "LoadLibraryW"), 0);
    EXPECT_EQ(CountOf(lines, "Lookup ImageList_ReplaceIcon"), 0);
    EXPECT_GE(CountOf(lines, "ImageList_ReplaceIcon"), 1);
  });
}

TEST_F(Activation, MissingFunctionIsLookedUpUntilItIsThere) {
  Alone([&](ScriptedPlatform& platform) {
    platform.answers["Lookup ImageList_SetBkColor"] = {127};
    EXPECT_EQ(CountOf(UseIcons(platform), "Lookup ImageList_SetBkColor"), 1);

    platform.answers.clear();
    EXPECT_TRUE(view->SetBkColor(RGB(1, 2, 3)));
    EXPECT_EQ(platform.Take(), (Lines{"Activate 0", "Activate 0", "Lookup ImageList_SetBkColor",
                                      "Deactivate", "ImageList_SetBkColor", "Deactivate"}));
    EXPECT_TRUE(view->SetBkColor(RGB(3, 2, 1)));
    EXPECT_EQ(platform.Take(), (Lines{"Activate 0", "ImageList_SetBkColor", "Deactivate"}));
  });
}

// The call's activation, the lookup's, and the next call's.
TEST_F(Activation, FailedLookupLeavesItsError) {
  for (const std::string failing : {"Lookup ImageList_GetIconSize", "LoadLibraryW"}) {
    Alone([&](ScriptedPlatform& platform) {
      platform.answers[failing] = {SOME_ERROR};
      const Lines lines = UseIcons(platform);
      ASSERT_GE(platform.errorsAt["Activate 0"].size(), 3u);
      EXPECT_EQ(platform.errorsAt["Activate 0"][2], SOME_ERROR);
      if (failing != "LoadLibraryW") return;
      const auto loads = CountOf(lines, "LoadLibraryW");
      EXPECT_GE(loads, 2) << "every call tries again";
      EXPECT_EQ(std::ssize(lines), 5 * loads)
          << "two activations, two deactivations and an attempt for each call, and nothing else";
      platform.answers.clear();
      EXPECT_EQ(CountOf(UseIcons(platform), "LoadLibraryW"), 1);
    });
  }
}

TEST_F(Activation, CountOfAnEmptyListKeepsTheErrorThatItLeft) {
  Alone([&](ScriptedPlatform& platform) {
    UseIcons(platform);
    platform.answers["ImageList_GetImageCount"] = {SOME_ERROR};
    EXPECT_TRUE(view->UseSystemImageList());
    const Lines lines = {"Activate 0", "ImageList_GetImageCount", "Deactivate",
                         "Activate 0", "ImageList_Remove",        "Deactivate",
                         "Activate 0", "ImageList_SetBkColor",    "Deactivate"};
    EXPECT_EQ(platform.Take(), lines);
    EXPECT_EQ(platform.errorsAt["Activate 0"][1], SOME_ERROR);
  });
}

TEST_F(Activation, FailedImageKeepsItsErrorAndAnOrdinaryResultDoesNot) {
  // 0 is the place of the first image, no failure.
  for (const int result : {-1, 0}) {
    Alone([&](ScriptedPlatform& platform) {
      platform.answers["ImageList_ReplaceIcon"] = {SOME_ERROR, result};
      const Lines lines = UseIcons(platform);
      ASSERT_GE(CountOf(lines, "ImageList_ReplaceIcon"), 1);
      const std::vector<DWORD> errors(
          static_cast<std::size_t>(CountOf(lines, "ImageList_ReplaceIcon")),
          result == 0 ? ScriptedPlatform::ERROR_OF_DEACTIVATION : SOME_ERROR);
      EXPECT_EQ(platform.errorsAt["DestroyIcon"], errors);
    });
  }
}

}  // namespace
