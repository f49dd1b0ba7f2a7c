#include "shell/context_menu.h"

#include "platform/owners.h"
#include "vornutil.h"

#include <string>

namespace {

using VornSDK::Util::WStr;
using IdList = TaskMemory<ITEMIDLIST>;

constexpr UINT FIRST_COMMAND = 1;
constexpr UINT LAST_COMMAND = 0x7FFF;

// What one run takes from the shell, released from the last field to the first.
struct ShellRun {
  // Holds the name that is being parsed: the shell wants one that it may write to.
  WStr name;
  ComPtr<IMalloc> allocator;
  ChildIds ids;
  ComPtr<IShellFolder> desktop;
  ComPtr<IShellFolder> firstFolder;
};

ComPtr<IMalloc> TakeAllocator() {
  IMalloc* allocator = nullptr;
  SHGetMalloc(&allocator);
  return ComPtr<IMalloc>(allocator);
}

ComPtr<IShellFolder> TakeDesktop() {
  IShellFolder* desktop = nullptr;
  SHGetDesktopFolder(&desktop);
  return ComPtr<IShellFolder>(desktop);
}

// The id list of a name, null if the shell does not know it or there is no memory to ask.
IdList Parse(ShellRun& run, const std::basic_string<WCHAR>& fileName) {
  run.name = WStr::FromVCHAR(fileName.c_str(), -1);
  LPITEMIDLIST id = nullptr;
  if (WCHAR* text = run.name.dataForWrite(-1)) {
    run.desktop->ParseDisplayName(nullptr, nullptr, text, nullptr, &id, nullptr);
  }
  return IdList(id, TaskFreer{run.allocator.get()});
}

// The folder that holds `id`; `lastId`, if asked for, points into `id`. The platform answers a
// null id with null for both.
ComPtr<IShellFolder> ParentOf(const IdList& id, LPCITEMIDLIST* lastId) {
  IShellFolder* folder = nullptr;
  SHBindToParent(id.get(), IID_IShellFolder, reinterpret_cast<void**>(&folder), lastId);
  return ComPtr<IShellFolder>(folder);
}

void AddChildId(ShellRun& run, std::size_t index, const std::basic_string<WCHAR>& fileName) {
  // Declared first: the folder is released after the id list.
  ComPtr<IShellFolder> folder;
  const IdList id = Parse(run, fileName);
  LPCITEMIDLIST lastId = nullptr;
  folder = ParentOf(id, &lastId);
  run.ids.SetCopy(index, lastId);
}

// Takes what the menu of `names` needs. False if there is none to show.
bool Prepare(ShellRun& run, const FileNameList& names) {
  run.allocator = TakeAllocator();
  if (!run.allocator || !run.ids.Allocate(*run.allocator, names.size())) return false;
  run.desktop = TakeDesktop();
  if (!run.desktop) return false;

  run.firstFolder = ParentOf(Parse(run, names.front()), nullptr);
  if (!run.firstFolder) {
    // Empty by now, the array goes before the desktop folder.
    run.ids.Free();
    return false;
  }
  for (std::size_t i = 0; i < names.size(); ++i) AddChildId(run, i, names[i]);
  return true;
}

}  // namespace

bool QVLShellContextMenu::ShowForFiles(HWND owner, int x, int y, FileNameList* names) noexcept {
  ownerWindow = owner;
  fileNames = names;
  if (fileNames->empty()) return false;

  ShellRun run;
  if (!Prepare(run, *fileNames)) return false;
  if (run.ids.Data()[0]) ShowMenuOf(*run.firstFolder, run.ids, x, y);
  return true;
}

void QVLShellContextMenu::ForwardMenuMessage(UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  if (menu2) menu2->HandleMenuMsg(message, wParam, lParam);
}

void QVLShellContextMenu::ShowMenuOf(IShellFolder& folder, const ChildIds& ids, int x, int y) {
  const ComPtr<IContextMenu> object = MenuObjectOf(folder, ids);
  if (!object) return;
  const MenuOwner popup(CreatePopupMenu());
  if (!popup) return;
  if (FAILED(object->QueryContextMenu(popup.get(), 0, FIRST_COMMAND, LAST_COMMAND, CMF_NORMAL))) {
    return;
  }
  const int command = Track(*object, popup.get(), x, y);
  if (command != 0) Invoke(*object, command);
}

ComPtr<IContextMenu> QVLShellContextMenu::MenuObjectOf(IShellFolder& folder,
                                                       const ChildIds& ids) const {
  void* object = nullptr;
  const HRESULT result = folder.GetUIObjectOf(ownerWindow, static_cast<UINT>(ids.Count()),
                                              ids.Data(), IID_IContextMenu, nullptr, &object);
  return ComPtr<IContextMenu>(SUCCEEDED(result) ? static_cast<IContextMenu*>(object) : nullptr);
}

int QVLShellContextMenu::Track(IContextMenu& object, HMENU popup, int x, int y) {
  void* second = nullptr;
  object.QueryInterface(IID_IContextMenu2, &second);
  menu2.reset(static_cast<IContextMenu2*>(second));
  const int command =
      TrackPopupMenu(popup, TPM_RETURNCMD | TPM_RIGHTBUTTON, x, y, 0, ownerWindow, nullptr);
  menu2.reset();
  return command;
}

void QVLShellContextMenu::Invoke(IContextMenu& object, int command) const {
  CMINVOKECOMMANDINFO info = {};
  info.cbSize = sizeof(info);
  info.hwnd = ownerWindow;
  // A number in the pointer's place picks the command by its distance from the first.
  info.lpVerb = reinterpret_cast<LPCSTR>(static_cast<ULONG_PTR>(command) - FIRST_COMMAND);
  info.nShow = SW_SHOWNORMAL;
  object.InvokeCommand(&info);
}
