// Icons.
#pragma once

#include "graphics/image.h"

namespace winsim {

HICON AddIcon(Image image);

// The image of an icon, or null.
const Image* IconImage(HICON icon);

}  // namespace winsim
