#include "window/menu.h"

#include <map>

namespace winsim {
namespace {

// The number of entries of each menu.
std::map<HMENU, int>& Menus() {
  static std::map<HMENU, int> menus;
  return menus;
}

}  // namespace

int CountMenus() { return static_cast<int>(Menus().size()); }

void AddMenuEntries(HMENU menu, int count) {
  if (Menus().contains(menu)) Menus()[menu] += count;
}

}  // namespace winsim

using namespace winsim;

HMENU WINAPI CreatePopupMenu() {
  static ULONG_PTR last = 0x30000;
  last += 2;
  const auto menu = reinterpret_cast<HMENU>(last);
  Menus()[menu] = 0;
  return menu;
}

BOOL WINAPI DestroyMenu(HMENU menu) { return Menus().erase(menu) != 0; }

int WINAPI GetMenuItemCount(HMENU menu) { return Menus().contains(menu) ? Menus()[menu] : -1; }

// Opens the menu for the owner and dismisses it without a choice.
BOOL WINAPI TrackPopupMenu(HMENU menu, UINT, int, int, int, HWND owner, const RECT*) {
  if (Menus().contains(menu)) {
    SendMessageW(owner, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), 0);
  }
  return FALSE;
}
