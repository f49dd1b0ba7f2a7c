// How the library finds and activates its context, and looks up the image functions. What it finds
// is kept for the process, so each case runs in a process of its own.
#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qvl.h"
#include "support/host_window.h"
#include "support/scripted_platform.h"

namespace {

// Errors that belong to no call of these cases.
constexpr DWORD kSomeError = 14001;
constexpr DWORD kOtherError = 1450;

constexpr LONG_PTR kFailed = -1;  // the result of a call that finds or makes a context
constexpr LONG_PTR kFake = ScriptedPlatform::kFakeContext;

const std::string kSearch = "QueryActCtxW|GetModuleHandleExW|GetModuleFileNameW|CreateActCtxW|";
const std::string kFoundNone = kSearch + "Activate 0|Find|Deactivate|";

// The class, the parent window and the control.
std::string Windows(const std::string& activate) {
  const std::string window = activate + "CreateWindowExW|Deactivate|";
  return activate + "RegisterClassW|Deactivate|" + window + window;
}

std::ptrdiff_t CountOf(const Lines& lines, const std::string& line) {
  return std::count(lines.begin(), lines.end(), line);
}

class Activation : public HostTest {
 protected:
  // Runs a case in a process of its own, which exits with failure if the case fails.
  void Alone(const std::function<void()>& rest) {
    EXPECT_EXIT(RunAndExit(rest), testing::ExitedWithCode(EXIT_SUCCESS), "");
  }

  std::string Take() {
    std::string log;
    for (const std::string& line : platform->Take()) log += line + "|";
    return log;
  }

  // The calls of a creation that succeeds, or that fails with the error.
  std::string Create(DWORD error = 0) {
    SetLastError(0);
    EXPECT_EQ(CreateView() ? 0 : GetLastError(), error);
    return Take();
  }

  // The calls of a new tree's first use of the system's icons.
  Lines UseIcons() {
    Create();
    EXPECT_TRUE(view->UseSystemImageList());
    Lines lines = platform->Take();
    EXPECT_EQ(CountOf(lines, "Activate 0"), CountOf(lines, "Deactivate"));
    return lines;
  }

  std::optional<ScriptedPlatform> platform;

 private:
  void RunAndExit(const std::function<void()>& rest) {
    platform.emplace();
    rest();
    EXPECT_EQ(platform->active, 0u);
    platform.reset();
    const auto& result = *testing::UnitTest::GetInstance()->current_test_info()->result();
    for (int i = 0; i < result.total_part_count(); ++i) std::cerr << result.GetTestPartResult(i);
    std::exit(result.Failed() ? EXIT_FAILURE : EXIT_SUCCESS);
  }
};

TEST_F(Activation, ContextIsFoundOnceAndUsedForEveryWindow) {
  struct Row {
    const char* call;
    ScriptedPlatform::Answer answer;
    std::string search = kFoundNone;
    std::string activate = "Activate 0|";
  };
  const std::string found = "Activate fake|Find|Deactivate|";
  std::vector<Row> rows = {
      {"Find", {0, TRUE}, kSearch + "Activate 0|Find|LoadLibraryW|Deactivate|"},
      {"QueryActCtxW", {0, kFake}, "QueryActCtxW|" + found, "Activate fake|"},
      {"CreateActCtxW", {0, kFake}, kSearch + found, "Activate fake|"},
      {"GetModuleFileNameW", {0, 260}},
  };
  // These errors mean that there is no such manifest.
  for (const DWORD error : {2u, 3u, 1812u, 1813u, 1814u, 1815u}) {
    rows.push_back({"CreateActCtxW", {error, kFailed}});
  }
  for (const Row& row : rows) {
    Alone([&] {
      SCOPED_TRACE(row.call + std::to_string(row.answer.error));
      platform->answers[row.call] = row.answer;
      EXPECT_EQ(Create(), row.search + Windows(row.activate));
      EXPECT_EQ(Create(), Windows(row.activate));
    });
  }
}

TEST_F(Activation, FailedSearchMakesNoWindowAndIsRepeated) {
  struct Row {
    std::string call;
    ScriptedPlatform::Answer answer;
    DWORD error = answer.error;
  };
  std::vector<Row> rows = {
      {"QueryActCtxW", {kSomeError, kFailed}},
      {"GetModuleHandleExW", {kSomeError}},
      {"GetModuleFileNameW", {kSomeError}},
      {"GetModuleFileNameW", {0, 261}, ERROR_BUFFER_OVERFLOW},
      {"GetModuleFileNameW", {0, 262}, ERROR_BUFFER_OVERFLOW},
  };
  for (const DWORD error : {1u, 4u, 1811u, 1816u, 14001u}) {
    rows.push_back({"CreateActCtxW", {error, kFailed}});
  }
  WCHAR path[4] = {};
  EXPECT_EQ(GetModuleFileNameW(nullptr, path, 4), 4u)
      << "a path that does not fit fills its buffer";
  Alone([&] {
    for (const auto& row : rows) {
      SCOPED_TRACE(row.call + std::to_string(row.answer.error));
      platform->answers = {{row.call, row.answer}};
      const std::string search = kSearch.substr(0, kSearch.find(row.call)) + row.call + "|";
      EXPECT_EQ(Create(row.error), search + search) << "for the class and the window";
    }
    // A context that is found stays found if it cannot be activated. The first attempt is for the
    // common controls.
    platform->answers = {{"Activate 0", {kSomeError}}};
    EXPECT_EQ(Create(kSomeError), kSearch + "Activate 0|Activate 0|Activate 0|");
    platform->answers.clear();
    EXPECT_EQ(Create(), Windows("Activate 0|"));

    platform->answers = {{"RegisterClassW", {kOtherError}}, {"CreateWindowExW", {kSomeError}}};
    Create(kSomeError);
    EXPECT_EQ(platform->errorsAt["Activate 0"].at(1), kOtherError) << "that of the class";
  });
}

TEST_F(Activation, ImageFunctionsAreLookedUpUntilFound) {
  Alone([&] {
    // After the activations for the call and for the lookup, the third one is the next call's.
    platform->answers = {{"LoadLibraryW", {kSomeError}}};
    Lines lines = UseIcons();
    EXPECT_EQ(platform->errorsAt["Activate 0"].at(2), kSomeError);
    const auto loads = CountOf(lines, "LoadLibraryW");
    EXPECT_GE(loads, 2);
    EXPECT_EQ(std::ssize(lines), 5 * loads) << "two activations for each, and no other call";

    platform->answers = {{"Lookup ImageList_GetIconSize", {kSomeError}},
                         {"Lookup ImageList_Create", {kSomeError}}};
    EXPECT_EQ(CountOf(UseIcons(), "LoadLibraryW"), 1);
    platform->answers = {{"Lookup ImageList_GetIconSize", {kSomeError}},
                         {"ImageList_Create", {kSomeError}}};
    UseIcons();
    EXPECT_EQ(platform->errorsAt["Activate 0"].at(2), kSomeError);

    platform->answers = {{"Lookup ImageList_SetBkColor", {127}}};
    lines = UseIcons();
    for (const std::string name :
         {"ImageList_GetIcon", "ImageList_GetIconSize", "ImageList_GetImageCount",
          "ImageList_ReplaceIcon", "ImageList_SetBkColor"}) {
      EXPECT_EQ(CountOf(lines, "Lookup " + name), 1) << name;
      EXPECT_EQ(CountOf(lines, name) > 0, name != "ImageList_SetBkColor") << name;
    }
    EXPECT_EQ(CountOf(lines, "Lookup ImageList_Create"), 0);

    platform->answers.clear();
    EXPECT_TRUE(view->SetBkColor(RGB(1, 2, 3)));
    EXPECT_EQ(Take(),
              "Activate 0|Activate 0|Lookup ImageList_SetBkColor|Deactivate|"
              "ImageList_SetBkColor|Deactivate|");
    EXPECT_TRUE(view->SetBkColor(RGB(3, 2, 1)));
    EXPECT_EQ(Take(), "Activate 0|ImageList_SetBkColor|Deactivate|");
    EXPECT_EQ(CountOf(UseIcons(), "LoadLibraryW"), 0);
  });
}

TEST_F(Activation, FailedImageCallKeepsItsErrorAndAnOrdinaryResultDoesNot) {
  Alone([&] {
    // 0 is the index of the first image, no failure.
    for (const int result : {-1, 0}) {
      platform->answers = {{"ImageList_ReplaceIcon", {kSomeError, result}}};
      const auto copies = CountOf(UseIcons(), "ImageList_ReplaceIcon");
      EXPECT_GE(copies, 1);
      const std::vector<DWORD> errors(
          static_cast<std::size_t>(copies),
          result == 0 ? ScriptedPlatform::kErrorOfDeactivation : kSomeError);
      EXPECT_EQ(platform->errorsAt["DestroyIcon"], errors);
    }
    // An empty list counts as a failure.
    platform->answers = {{"ImageList_GetImageCount", {kSomeError}}};
    EXPECT_TRUE(view->UseSystemImageList());
    EXPECT_EQ(Take(),
              "Activate 0|ImageList_GetImageCount|Deactivate|"
              "Activate 0|ImageList_Remove|Deactivate|"
              "Activate 0|ImageList_SetBkColor|Deactivate|");
    EXPECT_EQ(platform->errorsAt["Activate 0"].at(1), kSomeError);
  });
}

}  // namespace
