// Counts and resets all of the stand-in for tests.
#include <winsim.h>

#include "shell/drag.h"
#include "shell/shell_files.h"
#include "shell/shell_object.h"
#include "system/memory.h"
#include "window/input.h"
#include "window/menu.h"
#include "window/message_queue.h"
#include "window/window.h"

namespace winsim {

Counts CountLive() {
  Counts counts = {};
  counts.windows = CountWindows();
  counts.menus = CountMenus();
  counts.globalBlocks = CountGlobalBlocks();
  counts.taskBlocks = CountTaskBlocks();
  counts.interfaces = LiveInterfaces();
  return counts;
}

void Reset() {
  ForgetDragScript();
  ForgetShellFiles();
  ForgetAllMessages();
  ResetInput();
}

}  // namespace winsim
