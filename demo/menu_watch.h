// Reads the open popup menu.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace demo {

// A line for each command of the menu, the highlighted one marked by "> ", the others by "  ".
// Nothing if no menu is open.
std::optional<std::vector<std::string>> OpenMenu();

}  // namespace demo
