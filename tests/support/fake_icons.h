#pragma once

#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "support/import_patch.h"

// What the library asks the shell about an icon.
struct IconQuestion {
  std::basic_string<WCHAR> name;
  DWORD attributes;
  UINT size;
  UINT flags;
};

// Answers SHGetFileInfoW in the shell's place, for the life of the object: with a list of small
// icons that grows and shrinks as the test says. One at a time.
class FakeIcons {
 public:
  FakeIcons();
  ~FakeIcons();

  // Adds an icon of one colour at the end of the list; different seeds give different colours.
  void Add(std::uint32_t seed);

  HIMAGELIST list = nullptr;
  // What every question is answered with, unless it is refused.
  int index = 0;
  bool refuses = false;

  std::vector<IconQuestion> questions;
  // Called at each question, before the answer.
  std::function<void()> onQuestion;

 private:
  static DWORD_PTR WINAPI Answer(LPCWSTR name, DWORD attributes, SHFILEINFOW* info, UINT size,
                                 UINT flags);

  ImportPatch patch;
};

// Whether image `index` of the two lists shows the same, as far as the first is opaque and sixteen
// bits of colour can tell.
bool SameImage(HIMAGELIST first, HIMAGELIST second, int index);

// Whether the second list holds the images of the first, one by one.
bool SameImages(HIMAGELIST first, HIMAGELIST second);
