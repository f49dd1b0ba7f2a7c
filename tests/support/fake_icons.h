#pragma once

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>
#include <shellapi.h>

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include "support/import_patch.h"

// Answers SHGetFileInfoW in the shell's place, for the life of the object: with a list of small
// icons that grows and shrinks as the test says. Whether the library asks by name alone is checked
// here. One at a time.
class FakeIcons {
 public:
  static constexpr int SIDE = 16;
  using Pixels = std::array<std::uint32_t, 256>;

  FakeIcons() { current = this; }
  ~FakeIcons() {
    current = nullptr;
    ImageList_Destroy(list);
  }

  // Adds icons of one colour each at the end of the list, no two alike.
  void Add(int count = 1) {
    while (count-- > 0) Append(list, MakeIcon(++made * 0x305070 & 0xFFFFFF));
  }

  // Adds an icon to any list, and ends it.
  static void Append(HIMAGELIST to, HICON icon) {
    ImageList_ReplaceIcon(to, -1, icon);
    DestroyIcon(icon);
  }

  HIMAGELIST list = ImageList_Create(SIDE, SIDE, ILC_COLOR32 | ILC_MASK, 4, 4);
  // What every question is answered with, unless it is refused.
  int index = 0;
  bool refuses = false;

  // The names that were asked for.
  std::vector<std::basic_string<WCHAR>> asked;
  // Called at each question, before the answer.
  std::function<void()> onQuestion = [] {};

 private:
  static HICON MakeIcon(std::uint32_t color) {
    Pixels pixels;
    pixels.fill(0xFF000000 | color);
    const Pixels shown = {};
    ICONINFO parts = {};
    parts.fIcon = TRUE;
    parts.hbmColor = CreateBitmap(SIDE, SIDE, 1, 32, pixels.data());
    parts.hbmMask = CreateBitmap(SIDE, SIDE, 1, 1, shown.data());
    const HICON icon = CreateIconIndirect(&parts);
    DeleteObject(parts.hbmColor);
    DeleteObject(parts.hbmMask);
    return icon;
  }

  static DWORD_PTR WINAPI Answer(LPCWSTR name, DWORD attributes, SHFILEINFOW* info, UINT size,
                                 UINT flags) {
    EXPECT_EQ(std::tuple(attributes, size, flags), std::tuple(128u, sizeof *info, 0x4011u));
    current->asked.emplace_back(name);
    current->onQuestion();
    info->iIcon = current->index;
    return current->refuses ? 0 : reinterpret_cast<DWORD_PTR>(current->list);
  }

  static inline FakeIcons* current = nullptr;
  std::uint32_t made = 0;
  const ImportPatch patch{"SHGetFileInfoW", &Answer};
};
