// Popup menus.
#pragma once

#include <windows.h>

namespace winsim {

int CountMenus();
void AddMenuEntries(HMENU menu, int count);

}  // namespace winsim
