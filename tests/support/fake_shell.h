#pragma once

#include <windows.h>

#include <functional>
#include <list>
#include <map>
#include <string>
#include <utility>

#include "support/import_patch.h"

// Replaces the shell for the life of the object. Every name with a backslash exists, in the folder
// that the text up to the last backslash names. The log has an entry for each call, with a bar at
// its end:
//
//   SHGetMalloc               SHGetDesktopFolder          Alloc 8
//   Parse C:\a\x              Bind C:\a\                  Bind nothing
//   GetUIObjectOf C:\a\: x y  CreatePopupMenu             QueryContextMenu
//   QueryInterface            Track 10,20                 HandleMenuMsg 279 0 0
//   Invoke 4                  DestroyMenu                 Free ids | Free array
//   Release menu | menu 2 | desktop | allocator | C:\a\ .
//
// Names have the low halves of their characters. Arguments that are always the same are checked
// here. One at a time.
class FakeShell {
 public:
  FakeShell();
  ~FakeShell();

  // The log since the last Take.
  std::string Take() { return std::exchange(log, {}); }
  // Whether every interface is released, every block freed and every menu destroyed.
  bool HoldsNothing() const { return held.empty(); }

  // The call that fails, by its first word in the log, or "id x" for the copy of the id of x.
  std::string failing;
  // Called while the menu is shown. The result is the command that the user picks.
  std::function<int()> onTrack = [] { return 0; };
  // The window of the calls.
  HWND window = nullptr;

  // For the replaced calls: log a call, or the release of an object.
  bool Succeeds(const std::string& call);
  void Drop(const void* object);
  std::multimap<const void*, std::string> held;  // with the entry for the release
  bool nextCopyFails = false;

 private:
  std::string log;
  std::list<ImportPatch> patches;
};
