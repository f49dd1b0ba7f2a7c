// Icons and the bitmaps that they are made of.
#include "graphics/icon.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <utility>

namespace winsim {
namespace {

template <typename Handle>
class ImageStore {
 public:
  Handle Add(Image image) {
    last += 4;
    const auto handle = reinterpret_cast<Handle>(last);
    images.emplace(handle, std::move(image));
    return handle;
  }

  const Image* Find(Handle handle) const {
    const auto found = images.find(handle);
    return found == images.end() ? nullptr : &found->second;
  }

  bool Remove(Handle handle) { return images.erase(handle) != 0; }

 private:
  std::map<Handle, Image> images;
  ULONG_PTR last = 0x50000;
};

ImageStore<HICON>& Icons() {
  static ImageStore<HICON> icons;
  return icons;
}

ImageStore<HBITMAP>& Bitmaps() {
  static ImageStore<HBITMAP> bitmaps;
  return bitmaps;
}

}  // namespace

HICON AddIcon(Image image) { return Icons().Add(std::move(image)); }

const Image* IconImage(HICON icon) { return Icons().Find(icon); }

}  // namespace winsim

using namespace winsim;

HBITMAP WINAPI CreateBitmap(int width, int height, UINT, UINT bitCount, const void* bits) {
  const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  Image image;
  image.width = width;
  image.height = height;
  image.pixels.resize(count);
  image.shown.assign(count, true);
  if (bits && bitCount == 32) std::memcpy(image.pixels.data(), bits, count * sizeof(COLORREF));
  return Bitmaps().Add(std::move(image));
}

LONG WINAPI GetBitmapBits(HBITMAP bitmap, LONG bytes, LPVOID bits) {
  const Image* image = Bitmaps().Find(bitmap);
  if (!image || bytes < 0) return 0;
  const std::size_t size =
      std::min(image->pixels.size() * sizeof(COLORREF), static_cast<std::size_t>(bytes));
  std::memcpy(bits, image->pixels.data(), size);
  return static_cast<LONG>(size);
}

BOOL WINAPI DeleteObject(HGDIOBJ object) {
  return Bitmaps().Remove(reinterpret_cast<HBITMAP>(object));
}

HICON WINAPI CreateIconIndirect(ICONINFO* info) {
  const Image* color = Bitmaps().Find(info->hbmColor);
  return color ? AddIcon(*color) : nullptr;
}

BOOL WINAPI GetIconInfo(HICON icon, ICONINFO* info) {
  const Image* image = IconImage(icon);
  if (!image) return FALSE;
  Image mask = *image;
  for (std::size_t i = 0; i < mask.pixels.size(); ++i) {
    mask.pixels[i] = mask.shown[i] ? RGB(0, 0, 0) : RGB(255, 255, 255);
  }
  *info = {TRUE, 0, 0, Bitmaps().Add(std::move(mask)), Bitmaps().Add(*image)};
  return TRUE;
}

BOOL WINAPI DestroyIcon(HICON icon) { return Icons().Remove(icon); }

HCURSOR WINAPI LoadCursorW(HINSTANCE, LPCWSTR name) {
  return reinterpret_cast<HCURSOR>(const_cast<WCHAR*>(name));
}
