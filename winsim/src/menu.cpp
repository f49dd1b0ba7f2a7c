// Popup menus. Nothing shows, and every menu is dismissed.
#include "menu.h"

#include <map>

#include "window.h"

namespace winsim {
namespace {

// How many entries each live menu has.
std::map<HMENU, int>& Menus() {
  static std::map<HMENU, int> menus;
  return menus;
}

int* Find(HMENU menu) {
  const auto found = Menus().find(menu);
  if (found == Menus().end()) {
    SetLastError(ERROR_INVALID_MENU_HANDLE);
    return nullptr;
  }
  return &found->second;
}

}  // namespace

int CountMenus() { return static_cast<int>(Menus().size()); }

void AddMenuEntries(HMENU menu, int count) {
  if (int* entries = Find(menu)) {
    *entries += count;
  }
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

BOOL WINAPI DestroyMenu(HMENU menu) { return Find(menu) && Menus().erase(menu) != 0; }

int WINAPI GetMenuItemCount(HMENU menu) {
  const int* entries = Find(menu);
  return entries ? *entries : -1;
}

// The owner hears that the menu opens; then the user turns away from it.
BOOL WINAPI TrackPopupMenu(HMENU menu, UINT, int, int, int, HWND owner, const RECT*) {
  if (!Find(menu)) {
    return FALSE;
  }
  SendMessageW(owner, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), 0);
  return FALSE;
}
