#pragma once

#include <windows.h>

#include <shlobj.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "support/recording_client.h"

using Name = std::basic_string<WCHAR>;

// A shell that the library talks to instead of the real one for the life of the object. It knows
// every name with a backslash in it, takes what stands before the last one for the folder, and
// writes down a line for each call:
//
//   SHGetMalloc               SHGetDesktopFolder          Alloc 8
//   Parse C:\a\x              Bind C:\a                   Bind nothing
//   GetUIObjectOf C:\a: x y   CreatePopupMenu             QueryContextMenu
//   QueryInterface            Track 10,20                 HandleMenuMsg 0x117 0 0
//   Invoke 4                  DestroyMenu                 Free ids | Free array
//   Release menu | menu 2 | desktop | allocator | C:\a
//
// Arguments that are always the same are checked here. HoldsNothing tells whether every interface
// was released, every block freed and every menu destroyed.
class FakeShell {
 public:
  FakeShell();
  ~FakeShell();

  // The lines since the last Take, oldest first.
  Lines Take() { return std::exchange(lines, {}); }
  bool HoldsNothing() const { return held == 0 && blocks.empty(); }

  // One call that fails, by its first word in the lines, or "child id of x" for the copy of that
  // id.
  std::string failing;
  // A name that the shell does not know in spite of its backslash.
  Name unknown;
  // What happens while the menu is up; the result is the command picked.
  std::function<int()> onTrack = [] { return 0; };

  // What the library passed: the names, and the one window of all calls.
  std::vector<Name> parsed;
  HWND window = nullptr;

  // Used by the stand-ins.
  bool Succeeds(const std::string& line);  // writes it down
  void* Allocate(const void* content, SIZE_T size, const char* what);
  Lines lines;
  std::map<void*, std::string> blocks;
  int held = 0;  // interfaces and menus
  bool nextCopyFails = false;

 private:
  struct Patches;
  std::unique_ptr<Patches> patches;
};
