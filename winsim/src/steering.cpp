// What tests ask of the stand-in as a whole.
#include <winsim.h>

#include "image_list.h"
#include "keyboard.h"
#include "memory.h"
#include "menu.h"
#include "messages.h"
#include "ole.h"
#include "shell.h"
#include "window.h"

namespace winsim {

Counts CountLive() {
  Counts counts = {};
  counts.windows = CountWindows();
  counts.menus = CountMenus();
  counts.imageLists = CountImageLists();
  counts.globalBlocks = CountGlobalBlocks();
  counts.taskBlocks = CountTaskBlocks();
  counts.interfaces = CountInterfaces();
  return counts;
}

void Reset() {
  ForgetDragScript();
  ForgetShellFiles();
  ForgetAllMessages();
  ResetInput();
}

}  // namespace winsim
