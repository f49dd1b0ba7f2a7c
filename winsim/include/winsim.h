// Steers the stand-in from native tests, and tells what it counted. The platform has none of this.
#pragma once

#include <functional>
#include <string>

#include "ole2.h"

namespace winsim {

#define WINSIM_CONTROL __attribute__((visibility("default")))

// What is alive now. A test compares the counts before and after.
struct Counts {
  int windows;
  int menus;
  int imageLists;
  int globalBlocks;
  int taskBlocks;  // of IMalloc
  int interfaces;  // folders and menu objects of the stand-in's shell
};
WINSIM_CONTROL Counts CountLive();

// Names that exist for the shell beside the files on disk.
WINSIM_CONTROL void AddShellFile(const std::u16string& path);

// Replaces the whole of DoDragDrop, which else cancels every drag; an empty function gives it back.
using DragScript = std::function<HRESULT(IDataObject*, IDropSource*, DWORD, DWORD*)>;
WINSIM_CONTROL void SetDragScript(DragScript script);

// Puts the stand-in back to how a fresh process finds it: no script, keys up, an empty queue.
WINSIM_CONTROL void Reset();

}  // namespace winsim
