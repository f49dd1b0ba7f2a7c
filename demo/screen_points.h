// Finds points of the window for scripts that use the mouse.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "browser_window.h"

namespace demo {

// The visible item of that relative name, -1 for none.
ItemHandle ItemNamed(BrowserWindow& window, const std::string& name);

// The middle of a part in screen pixels. The parts are those of the command `point` in
// docs/demo.md; `name` is the item, the column or the button. An item is scrolled into view.
std::optional<POINT> FindPoint(BrowserWindow& window, const std::string& part,
                               const std::string& name);

}  // namespace demo
