// The shell's own context menu for a list of files.
#pragma once

#include "core/qvl.h"
#include "platform/com_ptr.h"
#include "shell/child_ids.h"

#include <shlobj.h>

// One run of the menu, on the stack of the operation that shows it. All that a run takes is
// released before ShowForFiles returns.
class QVLShellContextMenu {
 public:
  QVLShellContextMenu() = default;
  QVLShellContextMenu(const QVLShellContextMenu&) = delete;
  QVLShellContextMenu& operator=(const QVLShellContextMenu&) = delete;
  virtual ~QVLShellContextMenu() = default;

  // Asks the folder of the first of `names` for the menu of all of them, shows it at the screen
  // position x, y and runs the command picked. The messages of the menu go to the window `owner`.
  // A name counts up to its first null. True once the first name's folder is found, whether or
  // not a menu came up. Does not touch the view, which may be gone afterwards.
  bool ShowForFiles(HWND owner, int x, int y, FileNameList* names) noexcept;

  // Hands a message that the owner window got while the menu is up to the shell, which draws and
  // fills some entries itself. At any other time nothing happens.
  void ForwardMenuMessage(UINT message, WPARAM wParam, LPARAM lParam) noexcept;

 private:
  void ShowMenuOf(IShellFolder& folder, const ChildIds& ids, int x, int y);
  ComPtr<IContextMenu> MenuObjectOf(IShellFolder& folder, const ChildIds& ids) const;
  int Track(IContextMenu& object, HMENU popup, int x, int y);
  void Invoke(IContextMenu& object, int command) const;

  HWND ownerWindow = nullptr;
  FileNameList* fileNames = nullptr;
  // Held only while the menu is tracked.
  ComPtr<IContextMenu2> menu2;
};
