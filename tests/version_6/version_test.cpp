// The other cases of this program mean something only if its manifest works: then the common
// controls come from the folder of side-by-side assemblies and not from the system's.
#include <windows.h>

#include <string>

#include <gtest/gtest.h>

TEST(Version6, IsWhatThisHostGets) {
  WCHAR path[MAX_PATH] = {};
  const HMODULE controls = GetModuleHandleW(L"comctl32.dll");
  ASSERT_NE(controls, nullptr);
  ASSERT_NE(GetModuleFileNameW(controls, path, MAX_PATH), 0u);
  CharLowerW(path);
  const std::wstring text = path;
  EXPECT_NE(text.find(L"\\winsxs\\"), std::wstring::npos) << testing::PrintToString(text);
  EXPECT_NE(text.find(L"common-controls_6595b64144ccf1df_6.0."), std::wstring::npos)
      << testing::PrintToString(text);
}
