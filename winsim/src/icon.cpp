// Icons and bitmaps: pixels with a handle.
#include <algorithm>
#include <cstring>
#include <map>
#include <utility>

#include "bitmap.h"
#include "image_list.h"

namespace winsim {
namespace {

template <typename Handle>
class Store {
 public:
  Handle Add(Image image) {
    last_ += 4;
    const auto handle = reinterpret_cast<Handle>(last_);
    images_.emplace(handle, std::move(image));
    return handle;
  }

  const Image* Find(Handle handle) const {
    const auto found = images_.find(handle);
    return found == images_.end() ? nullptr : &found->second;
  }

  bool Remove(Handle handle) { return images_.erase(handle) != 0; }

 private:
  std::map<Handle, Image> images_;
  ULONG_PTR last_ = 0x50000;
};

Store<HICON>& Icons() {
  static Store<HICON> icons;
  return icons;
}

Store<HBITMAP>& Bitmaps() {
  static Store<HBITMAP> bitmaps;
  return bitmaps;
}

}  // namespace

HICON MakeIcon(Image image) { return Icons().Add(std::move(image)); }

const Image* IconImage(HICON icon) { return Icons().Find(icon); }

HBITMAP MakeBitmap(Image image) { return Bitmaps().Add(std::move(image)); }

const Image* BitmapImage(HBITMAP bitmap) { return Bitmaps().Find(bitmap); }

}  // namespace winsim

using namespace winsim;

HBITMAP WINAPI CreateBitmap(int width, int height, UINT, UINT bitCount, const void* bits) {
  Image image;
  image.width = width;
  image.height = height;
  const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  image.pixels.resize(count);
  image.shown.assign(count, true);
  if (bits && bitCount == 32) {
    std::memcpy(image.pixels.data(), bits, count * sizeof(COLORREF));
  }
  return MakeBitmap(std::move(image));
}

LONG WINAPI GetBitmapBits(HBITMAP bitmap, LONG bytes, LPVOID bits) {
  const Image* image = BitmapImage(bitmap);
  if (!image || bytes < 0) {
    return 0;
  }
  const std::size_t size =
      std::min(image->pixels.size() * sizeof(COLORREF), static_cast<std::size_t>(bytes));
  std::memcpy(bits, image->pixels.data(), size);
  return static_cast<LONG>(size);
}

BOOL WINAPI DeleteObject(HGDIOBJ object) {
  return Bitmaps().Remove(reinterpret_cast<HBITMAP>(object));
}

HICON WINAPI CreateIconIndirect(ICONINFO* info) {
  const Image* color = BitmapImage(info->hbmColor);
  return color ? MakeIcon(*color) : nullptr;
}

BOOL WINAPI GetIconInfo(HICON icon, ICONINFO* info) {
  const Image* image = IconImage(icon);
  if (!image) {
    return FALSE;
  }
  Image mask = *image;
  for (std::size_t i = 0; i < mask.pixels.size(); ++i) {
    mask.pixels[i] = mask.shown[i] ? RGB(0, 0, 0) : RGB(255, 255, 255);
  }
  *info = {TRUE, 0, 0, MakeBitmap(std::move(mask)), MakeBitmap(*image)};
  return TRUE;
}

BOOL WINAPI DestroyIcon(HICON icon) { return Icons().Remove(icon); }

HCURSOR WINAPI LoadCursorW(HINSTANCE, LPCWSTR name) {
  return reinterpret_cast<HCURSOR>(const_cast<WCHAR*>(name));
}
