#pragma once

#include "image_list.h"

namespace winsim {

HBITMAP MakeBitmap(Image image);
const Image* BitmapImage(HBITMAP bitmap);

}  // namespace winsim
