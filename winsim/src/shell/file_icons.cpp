// The shell's list of small icons. It begins with two and gets one more for each new file type.
#include <shellapi.h>

#include <map>
#include <string>

#include "graphics/icon.h"
#include "graphics/image_list.h"
#include "shell/shell_files.h"
#include "system/text.h"

namespace winsim {
namespace {

constexpr int kIconSize = 16;

// Each icon has its own colours and a transparent corner.
Image DrawIcon(int number) {
  Image image;
  image.width = kIconSize;
  image.height = kIconSize;
  for (int y = 0; y < kIconSize; ++y) {
    for (int x = 0; x < kIconSize; ++x) {
      image.pixels.push_back(RGB(40 + number * 37, x * 16, y * 16));
      image.shown.push_back(x + y >= 4);
    }
  }
  return image;
}

void AppendIcon(HIMAGELIST list) {
  const HICON icon = AddIcon(DrawIcon(ImageList_GetImageCount(list)));
  ImageList_ReplaceIcon(list, -1, icon);
  DestroyIcon(icon);
}

HIMAGELIST SystemList() {
  static const HIMAGELIST list = [] {
    const HIMAGELIST made = MakePermanentList(kIconSize, kIconSize);
    AppendIcon(made);
    AppendIcon(made);
    return made;
  }();
  return list;
}

std::u16string ExtensionOf(const std::u16string& name) {
  const std::size_t slash = name.find_last_of(u"/\\");
  const std::size_t dot = name.rfind(u'.');
  const bool inName = dot != std::u16string::npos && (slash == std::u16string::npos || dot > slash);
  return inName ? ToLower(name.substr(dot)) : u"";
}

// Files without an extension share the first icon.
int IconFor(const std::u16string& name) {
  static std::map<std::u16string, int> known = {{u"", 0}};
  const auto [entry, added] = known.emplace(ExtensionOf(name), 0);
  if (added) {
    entry->second = ImageList_GetImageCount(SystemList());
    AppendIcon(SystemList());
  }
  return entry->second;
}

}  // namespace
}  // namespace winsim

using namespace winsim;

DWORD_PTR WINAPI SHGetFileInfoW(LPCWSTR path, DWORD, SHFILEINFOW* info, UINT, UINT flags) {
  if (!path || !info) return 0;
  if (!(flags & SHGFI_USEFILEATTRIBUTES) && !ShellFileExists(path)) return 0;
  *info = {};
  if (flags & SHGFI_SYSICONINDEX) info->iIcon = IconFor(path);
  return (flags & SHGFI_SYSICONINDEX) ? reinterpret_cast<DWORD_PTR>(SystemList()) : 1;
}
