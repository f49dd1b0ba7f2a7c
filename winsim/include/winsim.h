// Steers the stand-in from native tests, and tells what it counted. The platform has none of this.
#pragma once

#include <functional>
#include <string>

#include "commctrl.h"
#include "ole2.h"
#include "shlobj.h"

namespace winsim {

#define WINSIM_CONTROL __attribute__((visibility("default")))

// What is alive now. A test compares the counts before and after.
struct Counts {
  int windows;
  int menus;
  int icons;
  int imageLists;
  int globalBlocks;
  int taskBlocks;  // of IMalloc
  int interfaces;  // folders and menu objects of the stand-in's shell
  int activeContexts;
};
WINSIM_CONTROL Counts CountLive();

// How often a window was invalidated and painted since it was made.
WINSIM_CONTROL int CountInvalidations(HWND window);

// Answers every TrackPopupMenu from now on: runs while the menu is up, gives the command picked.
// An empty function dismisses every menu, as at the start.
using MenuScript = std::function<UINT(HMENU menu, HWND owner)>;
WINSIM_CONTROL void SetMenuScript(MenuScript script);

// What the shell's menu objects do.
struct ShellMenuBehaviour {
  bool offersContextMenu2 = true;
  bool failsToMakeObject = false;
  bool failsToFillMenu = false;
};
WINSIM_CONTROL void SetShellMenuBehaviour(const ShellMenuBehaviour& behaviour);

// What reached the shell's menu objects since the last reset.
struct ShellMenuLog {
  int objects = 0;
  UINT itemCount = 0;  // ids that the last object was made for
  int menuMessages = 0;
  UINT lastMenuMessage = 0;
  int invocations = 0;
  CMINVOKECOMMANDINFO lastInvocation = {};
};
WINSIM_CONTROL ShellMenuLog& ShellMenus();

// Names that exist for the shell beside the files on disk.
WINSIM_CONTROL void AddShellFile(const std::u16string& path);
WINSIM_CONTROL void ClearShellFiles();

// Where the next drags go. Without a target they are cancelled by Escape; with one the mouse enters
// the target's window, moves once more and lets go of the button.
WINSIM_CONTROL void SetDragTarget(IDropTarget* target);
// Replaces the whole of DoDragDrop; an empty function gives it back.
using DragScript = std::function<HRESULT(IDataObject*, IDropSource*, DWORD, DWORD*)>;
WINSIM_CONTROL void SetDragScript(DragScript script);

// Asks a control's tool tip for the text of an item, as a resting mouse does; empty without a tip.
WINSIM_CONTROL std::u16string AskTreeInfoTip(HWND tree, HTREEITEM item);
WINSIM_CONTROL std::u16string AskListInfoTip(HWND list, int row);

// Puts the window back to how a fresh process finds it: no scripts, keys up, an empty queue.
WINSIM_CONTROL void Reset();

}  // namespace winsim
