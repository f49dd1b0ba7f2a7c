#include "shell/context_menu.h"

#include "platform/owners.h"
#include "vornutil.h"

#include <memory>
#include <new>
#include <string>

namespace {

using VornSDK::Util::WStr;
using IdList = TaskMemory<ITEMIDLIST>;

constexpr UINT kFirstCommand = 1;
constexpr UINT kLastCommand = 0x7FFF;

// What one run acquires from the shell. Released from the last field to the first.
struct ShellRun {
  // The name that is being parsed: the shell needs a text that it may write to.
  std::unique_ptr<WStr> name;
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

// Parses the run's name. Null if the shell does not know it, or without memory.
IdList Parse(ShellRun& run) {
  LPITEMIDLIST id = nullptr;
  if (WCHAR* text = run.name->dataForWrite(-1)) {
    run.desktop->ParseDisplayName(nullptr, nullptr, text, nullptr, &id, nullptr);
  }
  return IdList(id, TaskFreer{run.allocator.get()});
}

// Gets the folder of `id`. `lastId` may be null; otherwise it gets a pointer into `id`. For a null
// id the platform returns null for both.
ComPtr<IShellFolder> ParentOf(const IdList& id, LPCITEMIDLIST* lastId) {
  IShellFolder* folder = nullptr;
  SHBindToParent(id.get(), IID_IShellFolder, reinterpret_cast<void**>(&folder), lastId);
  return ComPtr<IShellFolder>(folder);
}

void AddChildId(ShellRun& run, std::size_t index, const std::basic_string<WCHAR>& fileName) {
  // Declared first, because the folder is released after the id list.
  ComPtr<IShellFolder> folder;
  *run.name = WStr::FromVCHAR(fileName.c_str(), -1);
  const IdList id = Parse(run);
  LPCITEMIDLIST lastId = nullptr;
  folder = ParentOf(id, &lastId);
  run.ids.SetCopy(index, lastId);
}

// Acquires what the menu of `names` needs. False if there is no menu to show.
bool Prepare(ShellRun& run, const FileNameList& names) {
  run.allocator = TakeAllocator();
  if (!run.allocator || !run.ids.Allocate(*run.allocator, names.size())) return false;
  run.desktop = TakeDesktop();
  if (!run.desktop) return false;

  run.name.reset(new (std::nothrow) WStr(WStr::FromVCHAR(names.front().c_str(), -1)));
  if (run.name) run.firstFolder = ParentOf(Parse(run), nullptr);
  if (!run.firstFolder) {
    // The empty array is freed before the desktop folder.
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
  if (FAILED(object->QueryContextMenu(popup.get(), 0, kFirstCommand, kLastCommand, CMF_NORMAL))) {
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
  // A number in place of the pointer is the command's distance from the first.
  info.lpVerb = reinterpret_cast<LPCSTR>(static_cast<ULONG_PTR>(command) - kFirstCommand);
  info.nShow = SW_SHOWNORMAL;
  object.InvokeCommand(&info);
}
