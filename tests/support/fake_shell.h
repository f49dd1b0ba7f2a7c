#pragma once

#include <windows.h>

#include <shlobj.h>

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "support/import_patch.h"
#include "support/recording_client.h"

using Name = std::basic_string<WCHAR>;

// A shell that the library talks to instead of the real one for the life of the object. It knows
// every name with a backslash in it, takes what stands before the last one for the folder, and
// writes down a line for each call:
//
//   SHGetMalloc               SHGetDesktopFolder          Alloc 8
//   Parse C:\a\x              Bind C:\a                   Bind nothing
//   GetUIObjectOf C:\a: x y   CreatePopupMenu             QueryContextMenu
//   QueryInterface            Track 10,20                 HandleMenuMsg 0x117
//   Invoke 4                  DestroyMenu                 Free ids | Free array
//   Release menu | menu 2 | desktop | allocator | C:\a
//
// Arguments that are always the same are checked here. ExpectNothingHeld tells whether every
// interface was released and every block freed.
class FakeShell {
 public:
  FakeShell();
  ~FakeShell();

  // The lines since the last Take, oldest first.
  Lines Take();
  void Log(std::string line) { lines.push_back(std::move(line)); }
  void ExpectNothingHeld() const;

  // One call that fails, by its word in the lines; "IContextMenu2" for a menu without one.
  std::string failing;
  // Names that the shell does not know in spite of their backslash.
  std::set<Name> unknown;
  // Number of the child id, from 0, for which there is no memory; -1 for none.
  int childIdWithoutMemory = -1;
  // What happens while the menu is up; the result is the command picked.
  std::function<int()> onTrack = [] { return 0; };

  // What the library passed.
  std::vector<Name> parsed;
  HWND trackWindow = nullptr;
  HWND objectWindow = nullptr;
  CMINVOKECOMMANDINFO invoked = {};

  // Used by the stand-ins.
  bool Fails(const char* call) const { return failing == call; }
  void* Allocate(SIZE_T size, std::string what);
  void Free(void* block);
  bool NextAllocationFails();
  int interfaces = 0;

 private:
  static HRESULT WINAPI GetMalloc(IMalloc** allocator);
  static HRESULT WINAPI GetDesktop(IShellFolder** desktop);
  static HRESULT WINAPI BindToParent(LPCITEMIDLIST ids, REFIID riid, void** folder,
                                     LPCITEMIDLIST* last);
  static HMENU WINAPI CreateMenu();
  static BOOL WINAPI DestroyTheMenu(HMENU menu);
  static BOOL WINAPI Track(HMENU menu, UINT flags, int x, int y, int reserved, HWND window,
                           const RECT* area);

  Lines lines;
  std::map<void*, std::string> blocks;
  int menus = 0;
  int childIds = 0;
  bool nextAllocationFails = false;
  std::vector<std::unique_ptr<ImportPatch>> patches;
};
