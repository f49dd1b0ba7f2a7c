#include "support/fake_icons.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace {

FakeIcons* current = nullptr;

constexpr int SIDE = 16;
constexpr std::size_t AREA = std::size_t{SIDE} * SIDE;

using Pixels = std::vector<std::uint32_t>;

HICON MakeIcon(std::uint32_t color) {
  const Pixels pixels(AREA, 0xFF000000 | color);
  const std::vector<BYTE> shown(AREA / 8, 0);
  ICONINFO parts = {};
  parts.fIcon = TRUE;
  parts.hbmColor = CreateBitmap(SIDE, SIDE, 1, 32, pixels.data());
  parts.hbmMask = CreateBitmap(SIDE, SIDE, 1, 1, shown.data());
  const HICON icon = CreateIconIndirect(&parts);
  DeleteObject(parts.hbmColor);
  DeleteObject(parts.hbmMask);
  return icon;
}

constexpr auto BYTES = static_cast<LONG>(AREA * sizeof(std::uint32_t));

// The mask comes with one bit for each pixel, in rows of two bytes, or with as many as a colour.
bool IsMasked(const Pixels& mask, LONG bytes, std::size_t pixel) {
  if (bytes == BYTES) return mask[pixel] != 0;
  return (reinterpret_cast<const BYTE*>(mask.data())[pixel / 8] & (0x80 >> (pixel % 8))) != 0;
}

// The colours of an image, with all of alpha where it is opaque and none elsewhere.
Pixels Read(HIMAGELIST list, int index) {
  Pixels pixels(AREA);
  const HICON icon = ImageList_GetIcon(list, index, ILD_NORMAL);
  ICONINFO parts = {};
  if (GetIconInfo(icon, &parts)) {
    Pixels mask(AREA);
    GetBitmapBits(parts.hbmColor, BYTES, pixels.data());
    const LONG bytes = GetBitmapBits(parts.hbmMask, BYTES, mask.data());
    const bool alpha =
        std::any_of(pixels.begin(), pixels.end(), [](auto color) { return color >> 24; });
    for (std::size_t i = 0; i < pixels.size(); ++i) {
      const bool opaque = !IsMasked(mask, bytes, i) && (!alpha || pixels[i] >> 24 == 0xFF);
      pixels[i] = (pixels[i] & 0xFFFFFF) | (opaque ? 0xFF000000 : 0);
    }
    DeleteObject(parts.hbmColor);
    DeleteObject(parts.hbmMask);
  }
  DestroyIcon(icon);
  return pixels;
}

bool SameColor(std::uint32_t first, std::uint32_t second) {
  for (const int shift : {0, 8, 16}) {
    const auto part = [shift](std::uint32_t color) {
      return static_cast<int>(color >> shift & 0xFF);
    };
    if (std::abs(part(first) - part(second)) > 8) return false;
  }
  return true;
}

bool SameImage(HIMAGELIST first, HIMAGELIST second, int index) {
  const Pixels wanted = Read(first, index);
  const Pixels found = Read(second, index);
  bool compared = false;
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    if (wanted[i] >> 24 == 0) continue;
    compared = true;
    if (!SameColor(wanted[i], found[i])) return false;
  }
  return compared;
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
  for (int i = 0; i < count; ++i) {
    const HICON icon = MakeIcon(++made * 0x305070 & 0xFFFFFF);
    ImageList_ReplaceIcon(list, -1, icon);
    DestroyIcon(icon);
  }
}

DWORD_PTR WINAPI FakeIcons::Answer(LPCWSTR name, DWORD attributes, SHFILEINFOW* info, UINT size,
                                   UINT flags) {
  EXPECT_EQ(attributes, 128u);
  EXPECT_EQ(size, sizeof(SHFILEINFOW));
  EXPECT_EQ(flags, 0x4011u);
  current->asked.emplace_back(name);
  current->onQuestion();
  info->iIcon = current->index;
  return current->refuses ? 0 : reinterpret_cast<DWORD_PTR>(current->list);
}

bool SameImages(HIMAGELIST first, HIMAGELIST second) {
  const int count = ImageList_GetImageCount(first);
  if (ImageList_GetImageCount(second) != count) return false;
  for (int i = 0; i < count; ++i) {
    if (!SameImage(first, second, i)) return false;
  }
  return true;
}
