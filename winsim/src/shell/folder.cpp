// The shell's folders. An id list has one id for each part of a path.
#include <shlobj.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "shell/context_menu.h"
#include "shell/shell_files.h"
#include "shell/shell_object.h"
#include "system/memory.h"

namespace winsim {
namespace {

using Path = std::vector<std::u16string>;

Path SplitPath(const std::u16string& name) {
  Path parts;
  std::size_t begin = 0;
  while (begin < name.size()) {
    const std::size_t end = std::min(name.find_first_of(u"/\\", begin), name.size());
    if (end > begin) parts.push_back(name.substr(begin, end - begin));
    begin = end + 1;
  }
  return parts;
}

// For each part two bytes with the size of its id, then the text; two zero bytes end the list.
ITEMIDLIST* MakeIdList(const Path& parts) {
  std::vector<BYTE> bytes;
  for (const std::u16string& part : parts) {
    const std::size_t size = sizeof(USHORT) + part.size() * sizeof(WCHAR);
    const std::size_t start = bytes.size();
    bytes.resize(start + size);
    const auto stored = static_cast<USHORT>(size);
    std::memcpy(&bytes[start], &stored, sizeof stored);
    std::memcpy(&bytes[start + sizeof stored], part.data(), part.size() * sizeof(WCHAR));
  }
  bytes.resize(bytes.size() + sizeof(USHORT));
  void* block = AllocateTaskBlock(bytes.size());
  if (block) std::memcpy(block, bytes.data(), bytes.size());
  return static_cast<ITEMIDLIST*>(block);
}

USHORT SizeOfId(const BYTE* id) {
  USHORT size = 0;
  std::memcpy(&size, id, sizeof size);
  return size;
}

class Folder final : public ShellObject<IShellFolder> {
 public:
  HRESULT STDMETHODCALLTYPE ParseDisplayName(HWND, IBindCtx*, LPWSTR name, ULONG*, ITEMIDLIST** id,
                                             ULONG*) override {
    *id = nullptr;
    const Path parts = SplitPath(name);
    if (parts.empty() || !ShellFileExists(name)) return HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);
    *id = MakeIdList(parts);
    return *id ? S_OK : E_OUTOFMEMORY;
  }

  HRESULT STDMETHODCALLTYPE GetUIObjectOf(HWND, UINT count, PCUITEMID_CHILD_ARRAY ids, REFIID riid,
                                          UINT*, void** object) override {
    *object = nullptr;
    if (riid != IID_IContextMenu || count == 0 ||
        std::find(ids, ids + count, nullptr) != ids + count) {
      return E_FAIL;
    }
    *object = MakeShellMenu();
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE EnumObjects(HWND, SHCONTF, IEnumIDList**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE BindToObject(PCUIDLIST_RELATIVE, IBindCtx*, REFIID, void**) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE BindToStorage(PCUIDLIST_RELATIVE, IBindCtx*, REFIID, void**) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE CompareIDs(LPARAM, PCUIDLIST_RELATIVE, PCUIDLIST_RELATIVE) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE CreateViewObject(HWND, REFIID, void**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetAttributesOf(UINT, PCUITEMID_CHILD_ARRAY, SFGAOF*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetDisplayNameOf(PCUITEMID_CHILD, SHGDNF, STRRET*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetNameOf(HWND, PCUITEMID_CHILD, LPCWSTR, SHGDNF,
                                      PITEMID_CHILD*) override {
    return E_NOTIMPL;
  }

 private:
  bool Is(REFIID riid) const override { return riid == IID_IShellFolder; }
};

}  // namespace
}  // namespace winsim

using namespace winsim;

HRESULT WINAPI SHGetDesktopFolder(IShellFolder** folder) {
  *folder = new Folder;
  return S_OK;
}

HRESULT WINAPI SHBindToParent(PCIDLIST_ABSOLUTE id, REFIID riid, void** folder,
                              PCUITEMID_CHILD* last) {
  *folder = nullptr;
  if (last) *last = nullptr;
  if (!id || riid != IID_IShellFolder) return E_INVALIDARG;
  const auto* place = reinterpret_cast<const BYTE*>(id);
  while (SizeOfId(place) && SizeOfId(place + SizeOfId(place))) place += SizeOfId(place);
  *folder = new Folder;
  if (last) *last = reinterpret_cast<PCUITEMID_CHILD>(place);
  return S_OK;
}
