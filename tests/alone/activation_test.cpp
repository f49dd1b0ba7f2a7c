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

using Lines = std::vector<std::string>;

// Errors that belong to no call of these cases.
constexpr DWORD SOME_ERROR = 14001;
constexpr DWORD OTHER_ERROR = 1450;

Lines operator+(Lines first, const Lines& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

const Lines QUERY = {"QueryActCtxW"};
const Lines SEARCH = {"QueryActCtxW", "GetModuleHandleExW", "GetModuleFileNameW", "CreateActCtxW"};

// Whether the common controls are redirected is asked within the context.
Lines Resident(const std::string& activate) { return {activate, "Find", "Deactivate"}; }

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
  // Runs the rest of a case in a process of its own and takes over its failures.
  void Alone(const std::function<void(ScriptedPlatform&)>& rest) {
    EXPECT_EXIT(RunAndExit(rest), testing::ExitedWithCode(EXIT_SUCCESS), "");
  }

  // The same with a tree whose first use of the system's icons is still to come.
  void AloneWithATree(const std::function<void(ScriptedPlatform&)>& rest) {
    Alone([&](ScriptedPlatform& platform) {
      CreateQuietly(platform);
      rest(platform);
    });
  }

  void CreateQuietly(ScriptedPlatform& platform) {
    ASSERT_NE(CreateView(), nullptr);
    platform.Take();
    platform.errorsAtActivation.clear();
  }

  // Creates a view that is to fail, and gives the last error of that.
  DWORD ErrorOfCreate() {
    SetLastError(OTHER_ERROR);
    const HWND control = CreateView();
    const DWORD error = GetLastError();
    EXPECT_EQ(control, nullptr);
    return error;
  }

  // The lines that a use of the system's icons leaves.
  Lines UseIcons(ScriptedPlatform& platform) {
    platform.Take();
    platform.errorsAtActivation.clear();
    platform.errorsAtDestroyIcon.clear();
    EXPECT_TRUE(view->UseSystemImageList());
    return platform.Take();
  }

 private:
  static void RunAndExit(const std::function<void(ScriptedPlatform&)>& rest) {
    {
      ScriptedPlatform platform;
      rest(platform);
      EXPECT_TRUE(platform.active.empty()) << "a context stayed active";
    }
    const auto& result = *testing::UnitTest::GetInstance()->current_test_info()->result();
    for (int i = 0; i < result.total_part_count(); ++i) {
      const testing::TestPartResult& part = result.GetTestPartResult(i);
      if (part.failed()) std::cerr << part.line_number() << ": " << part.message() << '\n';
    }
    std::exit(result.Failed() ? EXIT_FAILURE : EXIT_SUCCESS);
  }
};

TEST_F(Activation, ContextIsFoundOnceAndUsedForEveryWindow) {
  const HANDLE fake = ScriptedPlatform::FakeContext();
  const struct {
    const char* what;
    std::function<void(ScriptedPlatform&)> script;
    Lines search;
    const char* activate;
  } cases[] = {
      {"no manifest", [](auto&) {}, SEARCH + Resident("Activate 0"), "Activate 0"},
      {"redirected controls are made resident", [](auto& platform) { platform.redirects = true; },
       SEARCH + Lines{"Activate 0", "Find", "LoadLibraryW", "Deactivate"}, "Activate 0"},
      {"made from the manifest", [=](auto& platform) { platform.createdContext = fake; },
       SEARCH + Resident("Activate fake"), "Activate fake"},
      {"the platform's", [=](auto& platform) { platform.moduleContext = fake; },
       QUERY + Resident("Activate fake"), "Activate fake"},
  };
  for (const auto& test : cases) {
    Alone([&](ScriptedPlatform& platform) {
      SCOPED_TRACE(test.what);
      test.script(platform);
      EXPECT_NE(CreateView(), nullptr);
      EXPECT_EQ(platform.Take(), test.search + Windows(test.activate));
      EXPECT_NE(CreateView(), nullptr);
      EXPECT_EQ(platform.Take(), Windows(test.activate));
    });
  }
}

TEST_F(Activation, SomeErrorsMeanThatThereIsNoSuchManifest) {
  for (const DWORD error : {2u, 3u, 1812u, 1813u, 1814u, 1815u}) {
    Alone([&](ScriptedPlatform& platform) {
      platform.failures["CreateActCtxW"] = error;
      EXPECT_NE(CreateView(), nullptr) << error;
      EXPECT_EQ(platform.Take(), SEARCH + Resident("Activate 0") + Windows("Activate 0"));
    });
  }
}

TEST_F(Activation, FailedSearchMakesNoWindowTellsItsErrorAndIsTriedAgain) {
  const struct {
    const char* call;
    DWORD error;
    DWORD pathLength;
    std::ptrdiff_t calls;
  } cases[] = {
      {"QueryActCtxW", SOME_ERROR, 0, 1},
      {"GetModuleHandleExW", SOME_ERROR, 0, 2},
      {"GetModuleFileNameW", SOME_ERROR, 0, 3},
      {"CreateActCtxW", SOME_ERROR, 0, 4},
      {"CreateActCtxW", 1, 0, 4},
      {"CreateActCtxW", 4, 0, 4},
      {"CreateActCtxW", 1811, 0, 4},
      {"CreateActCtxW", 1816, 0, 4},
      {nullptr, ERROR_BUFFER_OVERFLOW, 261, 3},
      {nullptr, ERROR_BUFFER_OVERFLOW, 262, 3},
  };
  for (const auto& test : cases) {
    Alone([&](ScriptedPlatform& platform) {
      if (test.call) platform.failures[test.call] = test.error;
      platform.pathLength = test.pathLength;
      EXPECT_EQ(ErrorOfCreate(), test.error);
      const Lines search(SEARCH.begin(), SEARCH.begin() + test.calls);
      EXPECT_EQ(platform.Take(), search + search) << "class and window try";

      platform.failures.clear();
      platform.pathLength = test.pathLength ? 260 : 0;
      EXPECT_NE(CreateView(), nullptr);
      EXPECT_EQ(platform.Take(), SEARCH + Resident("Activate 0") + Windows("Activate 0"));
    });
  }
}

TEST_F(Activation, PathThatDoesNotFitFillsItsBuffer) {
  WCHAR path[4] = {};
  EXPECT_EQ(GetModuleFileNameW(nullptr, path, 4), 4u);
}

TEST_F(Activation, ContextThatCannotBeActivatedIsSettledAllTheSame) {
  Alone([&](ScriptedPlatform& platform) {
    platform.failures["Activate 0"] = SOME_ERROR;
    EXPECT_EQ(ErrorOfCreate(), SOME_ERROR);
    // One to make the common controls resident, then class and window.
    const Lines attempts = {"Activate 0", "Activate 0", "Activate 0"};
    EXPECT_EQ(platform.Take(), SEARCH + attempts);

    platform.failures.clear();
    EXPECT_NE(CreateView(), nullptr);
    EXPECT_EQ(platform.Take(), Windows("Activate 0"));
  });
}

TEST_F(Activation, FailedWindowKeepsItsErrorPastTheDeactivation) {
  Alone([&](ScriptedPlatform& platform) {
    platform.failures["RegisterClassW"] = OTHER_ERROR;
    platform.failures["CreateWindowExW"] = SOME_ERROR;
    EXPECT_EQ(ErrorOfCreate(), SOME_ERROR);
    ASSERT_EQ(platform.errorsAtActivation.size(), 3u);
    EXPECT_EQ(platform.errorsAtActivation[2], OTHER_ERROR) << "after the class, before the window";
  });
}

TEST_F(Activation, EachImageFunctionIsLookedUpOnce) {
  AloneWithATree([&](ScriptedPlatform& platform) {
    Lines lines = UseIcons(platform);
    EXPECT_EQ(CountOf(lines, "LoadLibraryW"), 1);
    for (const char* name :
         {"ImageList_Create", "ImageList_GetIcon", "ImageList_GetIconSize",
          "ImageList_GetImageCount", "ImageList_ReplaceIcon", "ImageList_SetBkColor"}) {
      EXPECT_EQ(CountOf(lines, std::string("Lookup ") + name), 1) << name;
      EXPECT_GE(CountOf(lines, name), 1) << name;
    }
    EXPECT_EQ(CountOf(lines, "Activate 0"), CountOf(lines, "Deactivate"));

    // The second use, by a view that knows nothing of the first, empties and fills the list again.
    CreateQuietly(platform);
    lines = UseIcons(platform);
    EXPECT_EQ(CountOf(lines, "LoadLibraryW"), 0);
    EXPECT_EQ(CountOf(lines, "Lookup ImageList_ReplaceIcon"), 0);
    EXPECT_GE(CountOf(lines, "ImageList_ReplaceIcon"), 1);
  });
}

TEST_F(Activation, MissingFunctionIsLookedUpUntilItIsThere) {
  AloneWithATree([&](ScriptedPlatform& platform) {
    platform.failures["Lookup ImageList_SetBkColor"] = 127;
    EXPECT_EQ(CountOf(UseIcons(platform), "Lookup ImageList_SetBkColor"), 1);

    platform.failures.clear();
    EXPECT_TRUE(view->SetBkColor(RGB(1, 2, 3)));
    EXPECT_EQ(platform.Take(), (Lines{"Activate 0", "Activate 0", "Lookup ImageList_SetBkColor",
                                      "Deactivate", "ImageList_SetBkColor", "Deactivate"}));
    EXPECT_TRUE(view->SetBkColor(RGB(3, 2, 1)));
    EXPECT_EQ(platform.Take(), (Lines{"Activate 0", "ImageList_SetBkColor", "Deactivate"}));
  });
}

// The call's activation, the lookup's, and the next call's.
TEST_F(Activation, FailedLookupLeavesItsError) {
  for (const char* failing : {"Lookup ImageList_GetIconSize", "LoadLibraryW"}) {
    AloneWithATree([&](ScriptedPlatform& platform) {
      platform.failures[failing] = SOME_ERROR;
      const Lines lines = UseIcons(platform);
      ASSERT_GE(platform.errorsAtActivation.size(), 3u);
      EXPECT_EQ(platform.errorsAtActivation[2], SOME_ERROR);
      const auto loads = CountOf(lines, "LoadLibraryW");
      if (failing != std::string("LoadLibraryW")) return;
      EXPECT_GE(loads, 2) << "every call tries again";
      EXPECT_EQ(lines.size(), static_cast<std::size_t>(5 * loads))
          << "two activations, two deactivations and an attempt for each call, and nothing else";
      platform.failures.clear();
      EXPECT_EQ(CountOf(UseIcons(platform), "LoadLibraryW"), 1);
    });
  }
}

TEST_F(Activation, CountOfAnEmptyListKeepsTheErrorThatItLeft) {
  AloneWithATree([&](ScriptedPlatform& platform) {
    UseIcons(platform);
    platform.failures["ImageList_GetImageCount"] = SOME_ERROR;
    const Lines lines = {"Activate 0", "ImageList_GetImageCount", "Deactivate",
                         "Activate 0", "ImageList_Remove",        "Deactivate",
                         "Activate 0", "ImageList_SetBkColor",    "Deactivate"};
    EXPECT_EQ(UseIcons(platform), lines);
    ASSERT_EQ(platform.errorsAtActivation.size(), 3u);
    EXPECT_EQ(platform.errorsAtActivation[1], SOME_ERROR);
  });
}

TEST_F(Activation, FailedImageKeepsItsErrorAndAnOrdinaryResultDoesNot) {
  // 0 is the place of the first image, no failure.
  for (const int result : {-1, 0}) {
    AloneWithATree([&](ScriptedPlatform& platform) {
      platform.failures["ImageList_ReplaceIcon"] = SOME_ERROR;
      platform.results["ImageList_ReplaceIcon"] = result;
      const auto images = CountOf(UseIcons(platform), "ImageList_ReplaceIcon");
      EXPECT_GE(images, 1);
      const DWORD error = result == 0 ? ScriptedPlatform::ERROR_OF_DEACTIVATION : SOME_ERROR;
      EXPECT_EQ(platform.errorsAtDestroyIcon,
                std::vector<DWORD>(static_cast<std::size_t>(images), error));
    });
  }
}

}  // namespace
