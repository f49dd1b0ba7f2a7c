// Image lists.
#pragma once

#include <commctrl.h>

namespace winsim {

// A list that programs cannot destroy, for the shell.
HIMAGELIST MakePermanentList(int width, int height);

// A list with that many blank images.
HIMAGELIST MakeBlankList(int width, int height, int count);

// The size of the list's images; zero without a list.
SIZE ImageSize(HIMAGELIST list);

}  // namespace winsim
