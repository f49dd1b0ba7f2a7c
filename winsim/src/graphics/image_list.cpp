#include "graphics/image_list.h"

#include <map>
#include <memory>
#include <utility>

#include "graphics/icon.h"

struct _IMAGELIST {
  int width = 0;
  int height = 0;
  bool masked = false;
  bool permanent = false;
  COLORREF backColor = CLR_NONE;
  std::vector<winsim::Image> images;
};

namespace winsim {
namespace {

std::map<HIMAGELIST, std::unique_ptr<_IMAGELIST>>& Lists() {
  static std::map<HIMAGELIST, std::unique_ptr<_IMAGELIST>> lists;
  return lists;
}

_IMAGELIST* Find(HIMAGELIST list) { return Lists().contains(list) ? list : nullptr; }

// The image cut or padded to the list's size. Without a mask, transparent pixels take the current
// background colour of the list.
Image Fit(const _IMAGELIST& list, const Image& source) {
  Image image;
  image.width = list.width;
  image.height = list.height;
  const COLORREF back = list.backColor == CLR_NONE ? RGB(0, 0, 0) : list.backColor;
  for (int y = 0; y < list.height; ++y) {
    for (int x = 0; x < list.width; ++x) {
      const auto place = static_cast<std::size_t>(y) * static_cast<std::size_t>(source.width) +
                         static_cast<std::size_t>(x);
      const bool inside = x < source.width && y < source.height;
      const bool shown = inside && source.shown[place];
      image.pixels.push_back(shown || (inside && list.masked) ? source.pixels[place] : back);
      image.shown.push_back(shown || !list.masked);
    }
  }
  return image;
}

}  // namespace

HIMAGELIST MakePermanentList(int width, int height) {
  const HIMAGELIST list = ImageList_Create(width, height, ILC_COLOR32 | ILC_MASK, 0, 1);
  list->permanent = true;
  return list;
}

HIMAGELIST MakeBlankList(int width, int height, int count) {
  const HIMAGELIST list = ImageList_Create(width, height, ILC_MASK, count, 0);
  if (list) list->images.resize(static_cast<std::size_t>(count), Fit(*list, Image{}));
  return list;
}

SIZE ImageSize(HIMAGELIST list) {
  int width = 0;
  int height = 0;
  ImageList_GetIconSize(list, &width, &height);
  return {width, height};
}

}  // namespace winsim

using namespace winsim;

HIMAGELIST WINAPI ImageList_Create(int width, int height, UINT flags, int, int) {
  if (width <= 0 || height <= 0) return nullptr;
  auto list = std::make_unique<_IMAGELIST>();
  list->width = width;
  list->height = height;
  list->masked = (flags & ILC_MASK) != 0;
  const HIMAGELIST handle = list.get();
  Lists().emplace(handle, std::move(list));
  return handle;
}

BOOL WINAPI ImageList_Destroy(HIMAGELIST handle) {
  const _IMAGELIST* list = Find(handle);
  return list && !list->permanent && Lists().erase(handle) != 0;
}

int WINAPI ImageList_GetImageCount(HIMAGELIST handle) {
  const _IMAGELIST* list = Find(handle);
  return list ? static_cast<int>(list->images.size()) : 0;
}

int WINAPI ImageList_ReplaceIcon(HIMAGELIST handle, int index, HICON icon) {
  _IMAGELIST* list = Find(handle);
  const Image* image = IconImage(icon);
  const int count = ImageList_GetImageCount(handle);
  if (!list || !image || index < -1 || index >= count) return -1;
  if (index == -1) {
    list->images.push_back(Fit(*list, *image));
    return count;
  }
  list->images[static_cast<std::size_t>(index)] = Fit(*list, *image);
  return index;
}

COLORREF WINAPI ImageList_SetBkColor(HIMAGELIST handle, COLORREF color) {
  _IMAGELIST* list = Find(handle);
  return list ? std::exchange(list->backColor, color) : CLR_NONE;
}

COLORREF WINAPI ImageList_GetBkColor(HIMAGELIST handle) {
  const _IMAGELIST* list = Find(handle);
  return list ? list->backColor : CLR_NONE;
}

BOOL WINAPI ImageList_Remove(HIMAGELIST handle, int index) {
  _IMAGELIST* list = Find(handle);
  if (!list || index < -1 || index >= ImageList_GetImageCount(handle)) return FALSE;
  if (index == -1) {
    list->images.clear();
  } else {
    list->images.erase(list->images.begin() + index);
  }
  return TRUE;
}

HICON WINAPI ImageList_GetIcon(HIMAGELIST handle, int index, UINT) {
  const _IMAGELIST* list = Find(handle);
  if (!list || index < 0 || index >= ImageList_GetImageCount(handle)) return nullptr;
  return AddIcon(list->images[static_cast<std::size_t>(index)]);
}

BOOL WINAPI ImageList_GetIconSize(HIMAGELIST handle, int* width, int* height) {
  const _IMAGELIST* list = Find(handle);
  if (!list) return FALSE;
  *width = list->width;
  *height = list->height;
  return TRUE;
}
