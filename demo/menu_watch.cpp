#include "menu_watch.h"

#include <windows.h>

#include "text.h"

namespace demo {
namespace {

constexpr wchar_t kPopupClass[] = L"#32768";
constexpr UINT kGetMenu = 0x01E1;  // MN_GETHMENU

std::string MenuLine(HMENU menu, UINT place) {
  wchar_t text[128] = L"";
  const int length = GetMenuStringW(menu, place, text, 128, MF_BYPOSITION);
  const bool lit = (GetMenuState(menu, place, MF_BYPOSITION) & MF_HILITE) != 0;
  return (lit ? "> " : "  ") + Utf8({text, static_cast<std::size_t>(length)});
}

}  // namespace

std::optional<std::vector<std::string>> OpenMenu() {
  const HWND popup = FindWindowW(kPopupClass, nullptr);
  if (!popup || !IsWindowVisible(popup)) return std::nullopt;
  const auto menu = reinterpret_cast<HMENU>(SendMessageW(popup, kGetMenu, 0, 0));
  if (!menu) return std::nullopt;
  std::vector<std::string> lines;
  const int count = GetMenuItemCount(menu);
  for (int place = 0; place < count; ++place) {
    const auto at = static_cast<UINT>(place);
    if ((GetMenuState(menu, at, MF_BYPOSITION) & MF_SEPARATOR) == 0) {
      lines.push_back(MenuLine(menu, at));
    }
  }
  return lines;
}

}  // namespace demo
