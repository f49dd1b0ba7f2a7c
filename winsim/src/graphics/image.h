// The pixels of icons, bitmaps and image lists.
#pragma once

#include <vector>

#include <windows.h>

namespace winsim {

struct Image {
  int width = 0;
  int height = 0;
  std::vector<COLORREF> pixels;  // 0x00BBGGRR, row by row
  std::vector<bool> shown;       // false: the pixel is transparent
};

}  // namespace winsim
