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

// Replaces SHGetFileInfoW for the life of the object, with a list of small icons that the test
// changes. Checks that the library asks by name alone. One at a time.
class FakeIcons {
 public:
  static constexpr int kSide = 16;
  using Pixels = std::array<std::uint32_t, std::size_t{kSide} * kSide>;

  FakeIcons() { current = this; }
  ~FakeIcons() { ImageList_Destroy(list); }

  // Adds icons of one colour each at the end of the list, no two alike.
  void Add(int count = 1) {
    while (count-- > 0) {
      Pixels pixels;
      pixels.fill(0xFF000000 | (++made * 0x305070 & 0xFFFFFF));
      const Pixels mask = {};
      ICONINFO parts = {};
      parts.fIcon = TRUE;
      parts.hbmColor = CreateBitmap(kSide, kSide, 1, 32, pixels.data());
      parts.hbmMask = CreateBitmap(kSide, kSide, 1, 1, mask.data());
      Append(list, CreateIconIndirect(&parts));
      DeleteObject(parts.hbmColor);
      DeleteObject(parts.hbmMask);
    }
  }

  // Adds an icon to any list and destroys it.
  static void Append(HIMAGELIST to, HICON icon) {
    ImageList_ReplaceIcon(to, -1, icon);
    DestroyIcon(icon);
  }

  HIMAGELIST list = ImageList_Create(kSide, kSide, ILC_COLOR32 | ILC_MASK, 4, 4);
  // The answer to every question.
  int index = 0;
  bool refuses = false;

  // The names of the questions.
  std::vector<std::basic_string<WCHAR>> asked;
  // Called at each question, before the answer.
  std::function<void()> onQuestion = [] {};

 private:
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
