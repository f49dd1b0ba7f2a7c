// Looks at the popup menu that is up.
#ifndef DEMO_MENU_WATCH_H
#define DEMO_MENU_WATCH_H

#include <optional>
#include <string>
#include <vector>

namespace demo {

// A line for each command of the menu, the highlighted one marked by "> ", the others by "  ".
// Nothing while no menu is up.
std::optional<std::vector<std::string>> OpenMenu();

}  // namespace demo

#endif
