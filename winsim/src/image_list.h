// Icons and image lists of the stand-in.
#pragma once

#include <memory>
#include <vector>

#include <commctrl.h>

namespace winsim {

// One image: a colour for each pixel, 0x00BBGGRR, and whether it shows.
struct Image {
  int width = 0;
  int height = 0;
  std::vector<COLORREF> pixels;
  std::vector<bool> shown;
};

HICON MakeIcon(Image image);
// The image behind an icon, or null.
const Image* IconImage(HICON icon);

// An image list of the shell's, which no program may destroy.
HIMAGELIST MakePermanentList(int width, int height);
int CountImageLists();

}  // namespace winsim
