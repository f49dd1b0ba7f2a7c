#include "support/fake_icons.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

FakeIcons* current = nullptr;

constexpr int SIDE = 16;

using Pixels = std::vector<std::uint32_t>;

HICON MakeIcon(std::uint32_t color) {
  const Pixels pixels(SIDE * SIDE, 0xFF000000 | color);
  const Pixels shown(SIDE * SIDE, 0);
  ICONINFO parts = {};
  parts.fIcon = TRUE;
  parts.hbmColor = CreateBitmap(SIDE, SIDE, 1, 32, pixels.data());
  parts.hbmMask = CreateBitmap(SIDE, SIDE, 1, 1, shown.data());
  const HICON icon = CreateIconIndirect(&parts);
  DeleteObject(parts.hbmColor);
  DeleteObject(parts.hbmMask);
  return icon;
}

void Append(HIMAGELIST list, HICON icon) {
  ImageList_ReplaceIcon(list, -1, icon);
  DestroyIcon(icon);
}

Pixels PixelsOf(HIMAGELIST list, int index) {
  const HICON icon = ImageList_GetIcon(list, index, ILD_NORMAL);
  ICONINFO parts = {};
  EXPECT_TRUE(GetIconInfo(icon, &parts));
  Pixels pixels(SIDE * SIDE);
  GetBitmapBits(parts.hbmColor, static_cast<LONG>(pixels.size() * sizeof pixels[0]), pixels.data());
  DeleteObject(parts.hbmColor);
  DeleteObject(parts.hbmMask);
  DestroyIcon(icon);
  return pixels;
}

}  // namespace

FakeIcons::FakeIcons()
    : list(ImageList_Create(SIDE, SIDE, ILC_COLOR32 | ILC_MASK, 4, 4)),
      patch("SHGetFileInfoW", &Answer) {
  current = this;
}

FakeIcons::~FakeIcons() {
  current = nullptr;
  ImageList_Destroy(list);
}

void FakeIcons::Add(int count) {
  while (count-- > 0) Append(list, MakeIcon(++made * 0x305070 & 0xFFFFFF));
}

DWORD_PTR WINAPI FakeIcons::Answer(LPCWSTR name, DWORD attributes, SHFILEINFOW* info, UINT size,
                                   UINT flags) {
  EXPECT_EQ(std::tuple(attributes, size, flags), std::tuple(128u, sizeof *info, 0x4011u));
  current->asked.emplace_back(name);
  current->onQuestion();
  info->iIcon = current->index;
  return current->refuses ? 0 : reinterpret_cast<DWORD_PTR>(current->list);
}

bool HoldsCopies(HIMAGELIST list, HIMAGELIST of) {
  const HIMAGELIST copies = ImageList_Create(SIDE, SIDE, ILC_COLOR16, 0, 1);
  ImageList_SetBkColor(copies, ImageList_GetBkColor(list));
  const int count = ImageList_GetImageCount(of);
  bool same = ImageList_GetImageCount(list) == count;
  for (int i = 0; same && i < count; ++i) {
    Append(copies, ImageList_GetIcon(of, i, ILD_NORMAL));
    same = PixelsOf(list, i) == PixelsOf(copies, i);
  }
  ImageList_Destroy(copies);
  return same;
}
