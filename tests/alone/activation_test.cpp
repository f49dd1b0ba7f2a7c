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

constexpr DWORD NO_MANIFEST = ERROR_RESOURCE_TYPE_NOT_FOUND;

Lines operator+(Lines first, const Lines& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

const Lines SEARCH = {"Query", "Module", "Path", "Context"};
const Lines RESIDENT = {"Activate 0", "Find", "Deactivate"};
const Lines WINDOWS = {"Activate 0", "RegisterClassW",  "Deactivate",  //
                       "Activate 0", "CreateWindowExW", "Deactivate",  //
                       "Activate 0", "CreateWindowExW", "Deactivate"};

std::ptrdiff_t CountOf(const Lines& lines, const std::string& line) {
  return std::count(lines.begin(), lines.end(), line);
}

class Activation : public HostTest {
 protected:
  // Runs the rest of a case in a process of its own and takes over its failures.
  void Alone(const std::function<void(ScriptedPlatform&)>& rest) {
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

  // A tree whose first use of the system's icons is still to come.
  void CreateQuietly(ScriptedPlatform& platform) {
    ASSERT_NE(CreateView(), nullptr);
    platform.Take();
    platform.errorsAtActivation.clear();
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

TEST_F(Activation, LibraryWithoutThatManifestRunsUnderTheNullContext) {
  Alone([&](ScriptedPlatform& platform) {
    EXPECT_NE(CreateView(), nullptr);
    EXPECT_EQ(platform.Take(), SEARCH + RESIDENT + WINDOWS);
    EXPECT_NE(CreateView(), nullptr);
    EXPECT_EQ(platform.Take(), WINDOWS) << "the context is settled once";
  });
}

TEST_F(Activation, RedirectedCommonControlsAreMadeResident) {
  Alone([&](ScriptedPlatform& platform) {
    platform.redirects = true;
    EXPECT_NE(CreateView(), nullptr);
    const Lines resident = {"Activate 0", "Find", "Load", "Deactivate"};
    EXPECT_EQ(platform.Take(), SEARCH + resident + WINDOWS);
  });
}

TEST_F(Activation, ContextMadeFromTheManifestIsUsed) {
  Alone([&](ScriptedPlatform& platform) {
    platform.createdContext = ScriptedPlatform::FakeContext();
    EXPECT_NE(CreateView(), nullptr);
    const Lines lines = platform.Take();
    EXPECT_EQ(CountOf(lines, "Activate fake"), 4);
    EXPECT_EQ(CountOf(lines, "Activate 0"), 0);
  });
}

TEST_F(Activation, ContextThatThePlatformHasForTheLibraryIsUsed) {
  Alone([&](ScriptedPlatform& platform) {
    platform.moduleContext = ScriptedPlatform::FakeContext();
    EXPECT_NE(CreateView(), nullptr);
    const Lines lines = platform.Take();
    EXPECT_EQ(CountOf(lines, "Query"), 1);
    EXPECT_EQ(CountOf(lines, "Module") + CountOf(lines, "Path") + CountOf(lines, "Context"), 0);
    EXPECT_EQ(CountOf(lines, "Activate fake"), 4);
  });
}

class ToleratedError : public Activation, public testing::WithParamInterface<DWORD> {};

TEST_P(ToleratedError, MeansThatThereIsNoSuchManifest) {
  Alone([&](ScriptedPlatform& platform) {
    platform.failures["CreateActCtxW"] = GetParam();
    EXPECT_NE(CreateView(), nullptr);
    EXPECT_EQ(platform.Take(), SEARCH + RESIDENT + WINDOWS);
  });
}

INSTANTIATE_TEST_SUITE_P(Each, ToleratedError, testing::Values(2, 3, 1812, 1813, 1814, 1815),
                         testing::PrintToStringParamName());

// A step of the search that fails: the calls up to it, and the error that it leaves.
struct FailingStep {
  const char* call;
  Lines lines;
};

class FailedSearch : public Activation, public testing::WithParamInterface<FailingStep> {};

TEST_P(FailedSearch, MakesNoWindowTellsItsErrorAndIsTriedAgain) {
  Alone([&](ScriptedPlatform& platform) {
    platform.failures[GetParam().call] = SOME_ERROR;
    EXPECT_EQ(ErrorOfCreate(), SOME_ERROR);
    EXPECT_EQ(platform.Take(), GetParam().lines + GetParam().lines) << "class and window try";

    platform.failures.clear();
    EXPECT_NE(CreateView(), nullptr);
    EXPECT_EQ(platform.Take(), SEARCH + RESIDENT + WINDOWS);
  });
}

INSTANTIATE_TEST_SUITE_P(
    At, FailedSearch,
    testing::Values(FailingStep{"QueryActCtxW", {"Query"}},
                    FailingStep{"GetModuleHandleExW", {"Query", "Module"}},
                    FailingStep{"GetModuleFileNameW", {"Query", "Module", "Path"}},
                    FailingStep{"CreateActCtxW", {"Query", "Module", "Path", "Context"}}),
    [](const auto& step) { return std::string(step.param.call); });

TEST_F(Activation, ErrorsBesideTheToleratedOnesAreNotTolerated) {
  Alone([&](ScriptedPlatform& platform) {
    for (const DWORD error : {1u, 4u, 1811u, 1816u}) {
      platform.failures["CreateActCtxW"] = error;
      EXPECT_EQ(ErrorOfCreate(), error);
    }
  });
}

TEST_F(Activation, PathOf261CharactersIsTooLong) {
  Alone([&](ScriptedPlatform& platform) {
    platform.failures["CreateActCtxW"] = NO_MANIFEST;
    for (const DWORD length : {261u, 262u}) {
      platform.pathLength = length;
      EXPECT_EQ(ErrorOfCreate(), 111u);
      EXPECT_EQ(CountOf(platform.Take(), "Context"), 0);
    }
    platform.pathLength = 260;
    EXPECT_NE(CreateView(), nullptr);
  });
}

TEST_F(Activation, ContextThatCannotBeActivatedIsSettledAllTheSame) {
  Alone([&](ScriptedPlatform& platform) {
    platform.failures["ActivateActCtx"] = SOME_ERROR;
    EXPECT_EQ(ErrorOfCreate(), SOME_ERROR);
    // One to make the common controls resident, then class and window.
    const Lines attempts = {"Activate 0", "Activate 0", "Activate 0"};
    EXPECT_EQ(platform.Take(), SEARCH + attempts);

    platform.failures.clear();
    EXPECT_NE(CreateView(), nullptr);
    EXPECT_EQ(platform.Take(), WINDOWS);
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
  Alone([&](ScriptedPlatform& platform) {
    CreateQuietly(platform);
    EXPECT_TRUE(view->UseSystemImageList());
    Lines lines = platform.Take();
    EXPECT_EQ(CountOf(lines, "Load"), 1);
    for (const char* name :
         {"ImageList_Create", "ImageList_GetIcon", "ImageList_GetIconSize",
          "ImageList_GetImageCount", "ImageList_ReplaceIcon", "ImageList_SetBkColor"}) {
      EXPECT_EQ(CountOf(lines, std::string("Lookup ") + name), 1) << name;
      EXPECT_GE(CountOf(lines, name), 1) << name;
    }
    EXPECT_EQ(CountOf(lines, "Activate 0"), CountOf(lines, "Deactivate"));

    // The second use, by a view that knows nothing of the first, empties and fills the list again.
    CreateQuietly(platform);
    EXPECT_TRUE(view->UseSystemImageList());
    lines = platform.Take();
    const auto isSearch = [](const std::string& line) {
      return line == "Load" || line.rfind("Lookup ", 0) == 0;
    };
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(), isSearch), 0);
    EXPECT_GE(CountOf(lines, "ImageList_ReplaceIcon"), 1);
  });
}

TEST_F(Activation, MissingFunctionIsLookedUpUntilItIsThere) {
  Alone([&](ScriptedPlatform& platform) {
    CreateQuietly(platform);
    platform.missing["ImageList_SetBkColor"] = 127;
    EXPECT_TRUE(view->UseSystemImageList());
    EXPECT_EQ(CountOf(platform.Take(), "Lookup ImageList_SetBkColor"), 1);

    const Lines found = {"Activate 0", "Activate 0",           "Lookup ImageList_SetBkColor",
                         "Deactivate", "ImageList_SetBkColor", "Deactivate"};
    platform.missing.clear();
    EXPECT_TRUE(view->SetBkColor(RGB(1, 2, 3)));
    EXPECT_EQ(platform.Take(), found);

    const Lines again = {"Activate 0", "ImageList_SetBkColor", "Deactivate"};
    EXPECT_TRUE(view->SetBkColor(RGB(3, 2, 1)));
    EXPECT_EQ(platform.Take(), again);
  });
}

TEST_F(Activation, MissingFunctionLeavesTheErrorOfTheLookup) {
  Alone([&](ScriptedPlatform& platform) {
    CreateQuietly(platform);
    platform.missing["ImageList_GetIconSize"] = SOME_ERROR;
    EXPECT_TRUE(view->UseSystemImageList());
    // The call's activation, the lookup's, and the next call's.
    ASSERT_GE(platform.errorsAtActivation.size(), 3u);
    EXPECT_EQ(platform.errorsAtActivation[2], SOME_ERROR);
  });
}

TEST_F(Activation, WithoutTheCommonControlsNothingIsLookedUp) {
  Alone([&](ScriptedPlatform& platform) {
    CreateQuietly(platform);
    platform.failures["LoadLibraryW"] = SOME_ERROR;
    EXPECT_TRUE(view->UseSystemImageList());
    const Lines lines = platform.Take();
    EXPECT_GE(CountOf(lines, "Load"), 2) << "every call tries again";
    EXPECT_EQ(lines.size(), static_cast<std::size_t>(5 * CountOf(lines, "Load")))
        << "two activations, two deactivations and an attempt for each call, and nothing else";
    ASSERT_GE(platform.errorsAtActivation.size(), 3u);
    EXPECT_EQ(platform.errorsAtActivation[2], SOME_ERROR);

    platform.failures.clear();
    EXPECT_TRUE(view->UseSystemImageList());
    EXPECT_EQ(CountOf(platform.Take(), "Load"), 1);
  });
}

TEST_F(Activation, CountOfAnEmptyListKeepsTheErrorThatItLeft) {
  Alone([&](ScriptedPlatform& platform) {
    CreateQuietly(platform);
    EXPECT_TRUE(view->UseSystemImageList());
    platform.Take();
    platform.errorsAtActivation.clear();
    platform.failures["ImageList_GetImageCount"] = SOME_ERROR;
    EXPECT_TRUE(view->UseSystemImageList());
    const Lines lines = {"Activate 0", "ImageList_GetImageCount", "Deactivate",
                         "Activate 0", "ImageList_Remove",        "Deactivate",
                         "Activate 0", "ImageList_SetBkColor",    "Deactivate"};
    EXPECT_EQ(platform.Take(), lines);
    ASSERT_EQ(platform.errorsAtActivation.size(), 3u);
    EXPECT_EQ(platform.errorsAtActivation[1], SOME_ERROR);
  });
}

TEST_F(Activation, FailedImageKeepsItsErrorAndAnOrdinaryResultDoesNot) {
  Alone([&](ScriptedPlatform& platform) {
    CreateQuietly(platform);
    platform.failures["ImageList_ReplaceIcon"] = SOME_ERROR;
    platform.results["ImageList_ReplaceIcon"] = -1;
    EXPECT_TRUE(view->UseSystemImageList());
    const auto images = static_cast<std::size_t>(CountOf(platform.Take(), "ImageList_ReplaceIcon"));
    EXPECT_GE(images, 1u);
    EXPECT_EQ(platform.errorsAtDestroyIcon, std::vector<DWORD>(images, SOME_ERROR));

    // 0 is the place of the first image, no failure.
    CreateQuietly(platform);
    platform.errorsAtDestroyIcon.clear();
    platform.results["ImageList_ReplaceIcon"] = 0;
    EXPECT_TRUE(view->UseSystemImageList());
    EXPECT_EQ(platform.errorsAtDestroyIcon,
              std::vector<DWORD>(images, ScriptedPlatform::ERROR_OF_DEACTIVATION));
  });
}

}  // namespace
