// Controls the stand-in from tests of the linux build. The platform has none of these functions.
#pragma once

#include <functional>
#include <string>

#include "ole2.h"

namespace winsim {

#define WINSIM_CONTROL __attribute__((visibility("default")))

// How many objects exist. A test compares the counts before and after.
struct Counts {
  int windows;
  int menus;
  int globalBlocks;
  int taskBlocks;  // of IMalloc
  int interfaces;  // shell folders and menu objects
};
WINSIM_CONTROL Counts CountLive();

// Adds a name to the files that exist for the shell.
WINSIM_CONTROL void AddShellFile(const std::u16string& path);

// Replaces DoDragDrop, which otherwise cancels every drag. An empty function restores it.
using DragScript = std::function<HRESULT(IDataObject*, IDropSource*, DWORD, DWORD*)>;
WINSIM_CONTROL void SetDragScript(DragScript script);

// Restores the state of a new process: no script, no added files, no focus, keys released, an empty
// message queue.
WINSIM_CONTROL void Reset();

}  // namespace winsim
