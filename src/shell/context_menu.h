// The shell's own context menu for a list of files.
#pragma once

#include "core/qvl.h"
#include "platform/com_ptr.h"
#include "shell/child_ids.h"

#include <shlobj.h>

// One run of the menu. It lives on the stack of the operation that shows the menu. Everything that
// a run acquires is released before ShowForFiles returns.
class QVLShellContextMenu {
 public:
  QVLShellContextMenu() = default;
  QVLShellContextMenu(const QVLShellContextMenu&) = delete;
  QVLShellContextMenu& operator=(const QVLShellContextMenu&) = delete;
  virtual ~QVLShellContextMenu() = default;

  // Asks the folder of the first name for the menu of all names, shows it at the screen position
  // x, y and runs the command that the user picks. The window `owner` gets the menu's messages. A
  // name ends at its first null. True if the first name's folder was found, whether or not a menu
  // was shown. Does not use the view, which may have ended afterwards.
  bool ShowForFiles(HWND owner, int x, int y, FileNameList* names) noexcept;

  // Passes a message of the owner window to the shell, which draws and fills some menu entries
  // itself. Does nothing while no menu is shown.
  void ForwardMenuMessage(UINT message, WPARAM wParam, LPARAM lParam) noexcept;

 private:
  void ShowMenuOf(IShellFolder& folder, const ChildIds& ids, int x, int y);
  ComPtr<IContextMenu> MenuObjectOf(IShellFolder& folder, const ChildIds& ids) const;
  int Track(IContextMenu& object, HMENU popup, int x, int y);
  void Invoke(IContextMenu& object, int command) const;

  HWND ownerWindow = nullptr;
  FileNameList* fileNames = nullptr;
  // Set only while the menu is tracked.
  ComPtr<IContextMenu2> menu2;
};
