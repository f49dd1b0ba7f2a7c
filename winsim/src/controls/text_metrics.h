// The width of a text in the font of the controls, in pixels.
#pragma once

#include <string>

namespace winsim {

int TextWidth(const std::u16string& text, bool bold = false);

}  // namespace winsim
