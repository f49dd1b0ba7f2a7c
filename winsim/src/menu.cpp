// Popup menus. Nothing shows: a script stands for the user.
#include "menu.h"

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

#include "window.h"

namespace winsim {
namespace {

struct MenuItem {
  UINT flags = 0;
  UINT_PTR id = 0;
  std::u16string text;
};

std::map<HMENU, std::vector<MenuItem>>& Menus() {
  static std::map<HMENU, std::vector<MenuItem>> menus;
  return menus;
}

MenuScript& Script() {
  static MenuScript script;
  return script;
}

std::vector<MenuItem>* Find(HMENU menu) {
  const auto found = Menus().find(menu);
  if (found == Menus().end()) {
    SetLastError(ERROR_INVALID_MENU_HANDLE);
    return nullptr;
  }
  return &found->second;
}

void TellOwner(HWND owner, UINT message, WPARAM wParam, LPARAM lParam) {
  if (owner) {
    SendMessageW(owner, message, wParam, lParam);
  }
}

}  // namespace

int CountMenus() { return static_cast<int>(Menus().size()); }

void SetMenuScript(MenuScript script) { Script() = std::move(script); }

void ForgetMenuScript() { Script() = nullptr; }

}  // namespace winsim

using namespace winsim;

HMENU WINAPI CreatePopupMenu() {
  static ULONG_PTR last = 0x30000;
  last += 2;
  const auto menu = reinterpret_cast<HMENU>(last);
  Menus()[menu] = {};
  return menu;
}

BOOL WINAPI DestroyMenu(HMENU menu) { return Find(menu) && Menus().erase(menu) != 0; }

BOOL WINAPI IsMenu(HMENU menu) { return Menus().contains(menu); }

BOOL WINAPI InsertMenuW(HMENU menu, UINT position, UINT flags, UINT_PTR id, LPCWSTR text) {
  auto* items = Find(menu);
  if (!items) {
    return FALSE;
  }
  MenuItem item;
  item.flags = flags & ~static_cast<UINT>(MF_BYPOSITION);
  item.id = id;
  item.text = text ? text : u"";
  const auto place = std::min(static_cast<std::size_t>(position), items->size());
  items->insert(items->begin() + static_cast<std::ptrdiff_t>(place), std::move(item));
  return TRUE;
}

BOOL WINAPI AppendMenuW(HMENU menu, UINT flags, UINT_PTR id, LPCWSTR text) {
  return InsertMenuW(menu, 0xFFFFFFFF, flags, id, text);
}

int WINAPI GetMenuItemCount(HMENU menu) {
  const auto* items = Find(menu);
  return items ? static_cast<int>(items->size()) : -1;
}

UINT WINAPI GetMenuItemID(HMENU menu, int position) {
  const auto* items = Find(menu);
  const bool known = items && position >= 0 && position < static_cast<int>(items->size());
  return known ? static_cast<UINT>((*items)[static_cast<std::size_t>(position)].id)
               : static_cast<UINT>(-1);
}

int WINAPI GetMenuStringW(HMENU menu, UINT item, LPWSTR text, int size, UINT flags) {
  const auto* items = Find(menu);
  if (!items || size <= 0) {
    return 0;
  }
  auto found = items->end();
  if (!(flags & MF_BYPOSITION)) {
    found = std::find_if(items->begin(), items->end(),
                         [item](const MenuItem& entry) { return entry.id == item; });
  } else if (item < items->size()) {
    found = items->begin() + item;
  }
  if (found == items->end()) {
    return 0;
  }
  const std::size_t length = found->text.copy(text, static_cast<std::size_t>(size - 1));
  text[length] = 0;
  return static_cast<int>(length);
}

// The owner hears what it hears of a real menu; then the script picks.
BOOL WINAPI TrackPopupMenu(HMENU menu, UINT flags, int, int, int, HWND owner, const RECT*) {
  if (!Find(menu) || !FindWindow(owner)) {
    SetLastError(IsMenu(menu) ? ERROR_INVALID_WINDOW_HANDLE : ERROR_INVALID_MENU_HANDLE);
    return FALSE;
  }
  const auto handle = reinterpret_cast<WPARAM>(menu);
  if (!(flags & TPM_NONOTIFY)) {
    TellOwner(owner, WM_ENTERMENULOOP, TRUE, 0);
    TellOwner(owner, WM_INITMENUPOPUP, handle, 0);
  }
  const MenuScript script = Script();
  const UINT command = script ? script(menu, owner) : 0;
  if (!(flags & TPM_NONOTIFY)) {
    TellOwner(owner, WM_UNINITMENUPOPUP, handle, 0);
    TellOwner(owner, WM_EXITMENULOOP, TRUE, 0);
  }
  if (flags & TPM_RETURNCMD) {
    return static_cast<BOOL>(command);
  }
  if (command) {
    PostMessageW(owner, WM_COMMAND, command, 0);
  }
  return TRUE;
}

BOOL WINAPI EndMenu() { return TRUE; }
