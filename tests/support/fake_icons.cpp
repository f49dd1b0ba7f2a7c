#include "support/fake_icons.h"

#include <cstddef>
#include <cstdlib>

namespace {

FakeIcons* current = nullptr;

constexpr int SIDE = 16;
constexpr std::size_t PIXELS = SIDE * SIDE;

HICON MakeIcon(std::uint32_t color) {
  const std::vector<std::uint32_t> pixels(PIXELS, 0xFF000000 | color);
  const std::vector<BYTE> shown(PIXELS / 8, 0);
  ICONINFO parts = {};
  parts.fIcon = TRUE;
  parts.hbmColor = CreateBitmap(SIDE, SIDE, 1, 32, pixels.data());
  parts.hbmMask = CreateBitmap(SIDE, SIDE, 1, 1, shown.data());
  const HICON icon = CreateIconIndirect(&parts);
  DeleteObject(parts.hbmColor);
  DeleteObject(parts.hbmMask);
  return icon;
}

// The pixels of one image, and which of them are opaque.
struct Pixels {
  std::vector<std::uint32_t> colors = std::vector<std::uint32_t>(PIXELS);
  std::vector<bool> opaque = std::vector<bool>(PIXELS, true);
};

// The mask comes with one bit for each pixel, in rows of two bytes, or with as many as a colour.
bool IsMasked(const std::vector<std::uint32_t>& mask, LONG bytes, std::size_t pixel) {
  if (static_cast<std::size_t>(bytes) == PIXELS * sizeof mask[0]) return mask[pixel] != 0;
  const auto* rows = reinterpret_cast<const BYTE*>(mask.data());
  return (rows[pixel / 8] & (0x80 >> (pixel % 8))) != 0;
}

Pixels Read(HIMAGELIST list, int index) {
  Pixels pixels;
  const HICON icon = ImageList_GetIcon(list, index, ILD_NORMAL);
  ICONINFO parts = {};
  if (GetIconInfo(icon, &parts)) {
    constexpr auto SIZE = static_cast<LONG>(PIXELS * sizeof(std::uint32_t));
    GetBitmapBits(parts.hbmColor, SIZE, pixels.colors.data());
    std::vector<std::uint32_t> mask(PIXELS);
    const LONG bytes = GetBitmapBits(parts.hbmMask, SIZE, mask.data());
    bool alpha = false;
    for (const std::uint32_t color : pixels.colors) alpha = alpha || color >> 24;
    for (std::size_t i = 0; i < PIXELS; ++i) {
      pixels.opaque[i] = !IsMasked(mask, bytes, i) && (!alpha || pixels.colors[i] >> 24 == 0xFF);
    }
    DeleteObject(parts.hbmColor);
    DeleteObject(parts.hbmMask);
  }
  DestroyIcon(icon);
  return pixels;
}

bool SameColor(std::uint32_t first, std::uint32_t second) {
  for (const int shift : {0, 8, 16}) {
    const auto difference = static_cast<int>(first >> shift & 0xFF) -  //
                            static_cast<int>(second >> shift & 0xFF);
    if (std::abs(difference) > 8) return false;
  }
  return true;
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

void FakeIcons::Add(std::uint32_t seed) {
  const HICON icon = MakeIcon(seed * 0x305070 & 0xFFFFFF);
  ImageList_ReplaceIcon(list, -1, icon);
  DestroyIcon(icon);
}

DWORD_PTR WINAPI FakeIcons::Answer(LPCWSTR name, DWORD attributes, SHFILEINFOW* info, UINT size,
                                   UINT flags) {
  current->questions.push_back({name, attributes, size, flags});
  if (current->onQuestion) current->onQuestion();
  info->iIcon = current->index;
  if (current->refuses) return 0;
  return reinterpret_cast<DWORD_PTR>(current->list);
}

bool SameImage(HIMAGELIST first, HIMAGELIST second, int index) {
  const Pixels wanted = Read(first, index);
  const Pixels found = Read(second, index);
  std::size_t compared = 0;
  for (std::size_t i = 0; i < PIXELS; ++i) {
    if (!wanted.opaque[i]) continue;
    ++compared;
    if (!SameColor(wanted.colors[i], found.colors[i])) return false;
  }
  return compared > 0;
}

bool SameImages(HIMAGELIST first, HIMAGELIST second) {
  const int count = ImageList_GetImageCount(first);
  if (ImageList_GetImageCount(second) != count) return false;
  for (int i = 0; i < count; ++i) {
    if (!SameImage(first, second, i)) return false;
  }
  return true;
}
