#pragma once

#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "support/import_patch.h"

// Answers SHGetFileInfoW in the shell's place, for the life of the object: with a list of small
// icons that grows and shrinks as the test says. Whether the library asks by name alone is checked
// here. One at a time.
class FakeIcons {
 public:
  FakeIcons();
  ~FakeIcons();

  // Adds icons of one colour each at the end of the list, no two alike.
  void Add(int count = 1);

  HIMAGELIST list = nullptr;
  // What every question is answered with, unless it is refused.
  int index = 0;
  bool refuses = false;

  // The names that were asked for.
  std::vector<std::basic_string<WCHAR>> asked;
  // Called at each question, before the answer.
  std::function<void()> onQuestion = [] {};

 private:
  static DWORD_PTR WINAPI Answer(LPCWSTR name, DWORD attributes, SHFILEINFOW* info, UINT size,
                                 UINT flags);

  std::uint32_t made = 0;
  ImportPatch patch;
};

// Whether the list holds, one by one, what the images of the other one become in sixteen bits of
// colour, on the list's present background.
bool HoldsCopies(HIMAGELIST list, HIMAGELIST of);
