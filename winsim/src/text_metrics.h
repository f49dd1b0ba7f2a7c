// How wide a text shows in the controls' font.
#pragma once

#include <string>

namespace winsim {

int TextWidth(const std::u16string& text, bool bold = false);

}  // namespace winsim
