#include "support/fake_shell.h"

#include <gtest/gtest.h>
#include <shlobj.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

using Name = std::basic_string<WCHAR>;

FakeShell* shell = nullptr;
const HMENU kMenu = reinterpret_cast<HMENU>(0x4D454E55);

// The function that allocates the copy of a child id.
#ifdef _WIN32
constexpr const char* kAllocateCopy = "malloc";
#else
constexpr const char* kAllocateCopy = "_ZnamRKSt9nothrow_t";
#endif

// The low halves of the characters.
std::string Narrow(const Name& name) { return {name.begin(), name.end()}; }

// One level of an id list: its size in bytes, and the text. A size of 0 ends the list.
Name Level(const Name& text) {
  return Name(1, static_cast<WCHAR>((text.size() + 1) * sizeof(WCHAR))) + text;
}

std::string TextOf(LPCITEMIDLIST id) {
  const std::size_t length = id->mkid.cb / sizeof(WCHAR);
  return Narrow(Name(reinterpret_cast<const WCHAR*>(id), length).substr(length > 0));
}

LPCITEMIDLIST NextLevel(LPCITEMIDLIST id) {
  return reinterpret_cast<LPCITEMIDLIST>(reinterpret_cast<const BYTE*>(id) + id->mkid.cb);
}

void* Allocate(std::size_t size, const std::string& what) {
  void* block = std::malloc(size);
  shell->held.emplace(block, "Free " + what);
  return std::memset(block, 0xCD, size);
}

template <class Interface>
HRESULT Give(const std::string& call, const std::string& what, void** object);

// Every object of the shell.
class Object final : public IMalloc, public IShellFolder, public IContextMenu2 {
 public:
  explicit Object(const std::string& what) : name(what) {
    shell->held.emplace(this, "Release " + what);
  }

  HRESULT QueryInterface(REFIID riid, void** object) override {
    EXPECT_TRUE(IsEqualIID(riid, IID_IContextMenu2));
    return Give<IContextMenu2>("QueryInterface", "menu 2", object);
  }
  ULONG AddRef() override { return ++references; }
  ULONG Release() override {
    if (--references != 0) return references;
    shell->Drop(this);
    delete this;
    return 0;
  }

  void* Alloc(SIZE_T size) override {
    return shell->Succeeds("Alloc " + std::to_string(size)) ? Allocate(size, "array") : nullptr;
  }
  void Free(void* block) override {
    shell->Drop(block);
    std::free(block);
  }

  HRESULT ParseDisplayName(HWND window, IBindCtx* context, LPWSTR text, ULONG* eaten,
                           LPITEMIDLIST* ids, ULONG* attributes) override {
    EXPECT_TRUE(name == "desktop" && !window && !context && !eaten && !attributes && !*ids);
    const Name file = text;
    // The shell may write to the text.
    std::fill_n(text, file.size(), WCHAR('!'));
    const std::size_t child = file.rfind(WCHAR('\\')) + 1;
    if (!shell->Succeeds("Parse " + Narrow(file)) || child == 0) return E_FAIL;
    const Name list = Level(file.substr(0, child)) + Level(file.substr(child));
    const std::size_t size = (list.size() + 1) * sizeof(WCHAR);
    *ids = static_cast<LPITEMIDLIST>(Allocate(size, "ids"));
    std::memcpy(*ids, list.c_str(), size);
    return S_OK;
  }
  HRESULT GetUIObjectOf(HWND window, UINT count, PCUITEMID_CHILD_ARRAY ids, REFIID riid,
                        UINT* reserved, void** object) override {
    std::string call = "GetUIObjectOf " + name + ":";
    for (UINT i = 0; i < count; ++i) {
      call += " " + (ids[i] ? TextOf(ids[i]) : "null");
      EXPECT_TRUE(!ids[i] || NextLevel(ids[i])->mkid.cb == 0);
    }
    shell->window = window;
    EXPECT_TRUE(IsEqualIID(riid, IID_IContextMenu) && !reserved);
    return Give<IContextMenu>(call, "menu", object);
  }

  HRESULT QueryContextMenu(HMENU menu, UINT position, UINT first, UINT last, UINT flags) override {
    EXPECT_TRUE(menu == kMenu && position == 0 && first == 1 && last == 0x7FFF && flags == 0);
    return shell->Succeeds("QueryContextMenu") ? S_OK : E_FAIL;
  }
  HRESULT InvokeCommand(CMINVOKECOMMANDINFO* info) override {
    shell->Succeeds("Invoke " + std::to_string(reinterpret_cast<ULONG_PTR>(info->lpVerb)));
    EXPECT_TRUE(info->cbSize == 56 && info->hwnd == shell->window && info->nShow == 1);
    EXPECT_TRUE(!info->fMask && !info->lpParameters && !info->lpDirectory && !info->dwHotKey &&
                !info->hIcon);
    return E_FAIL;
  }
  HRESULT HandleMenuMsg(UINT message, WPARAM wParam, LPARAM lParam) override {
    EXPECT_EQ(name, "menu 2");
    shell->Succeeds("HandleMenuMsg " + std::to_string(message) + " " + std::to_string(wParam) +
                    " " + std::to_string(lParam));
    return E_FAIL;
  }

  // What the library has no use for.
  using Id = LPCITEMIDLIST;
  void* Realloc(void*, SIZE_T) override { return nullptr; }
  SIZE_T GetSize(void*) override { return 0; }
  int DidAlloc(void*) override { return -1; }
  void HeapMinimize() override {}
  HRESULT EnumObjects(HWND, SHCONTF, IEnumIDList**) override { return E_NOTIMPL; }
  HRESULT BindToObject(Id, IBindCtx*, REFIID, void**) override { return E_NOTIMPL; }
  HRESULT BindToStorage(Id, IBindCtx*, REFIID, void**) override { return E_NOTIMPL; }
  HRESULT CompareIDs(LPARAM, Id, Id) override { return E_NOTIMPL; }
  HRESULT CreateViewObject(HWND, REFIID, void**) override { return E_NOTIMPL; }
  HRESULT GetAttributesOf(UINT, PCUITEMID_CHILD_ARRAY, SFGAOF*) override { return E_NOTIMPL; }
  HRESULT GetDisplayNameOf(Id, SHGDNF, STRRET*) override { return E_NOTIMPL; }
  HRESULT SetNameOf(HWND, Id, LPCWSTR, SHGDNF, LPITEMIDLIST*) override { return E_NOTIMPL; }
  HRESULT GetCommandString(UINT_PTR, UINT, UINT*, CHAR*, UINT) override { return E_NOTIMPL; }

 private:
  std::string name;
  ULONG references = 1;
};

template <class Interface>
HRESULT Give(const std::string& call, const std::string& what, void** object) {
  EXPECT_EQ(*object, nullptr);
  if (!shell->Succeeds(call)) return E_FAIL;
  *object = static_cast<Interface*>(new Object(what));
  return S_OK;
}

HRESULT WINAPI BindToParent(LPCITEMIDLIST ids, REFIID riid, void** folder, LPCITEMIDLIST* last) {
  EXPECT_TRUE(IsEqualIID(riid, IID_IShellFolder));
  const std::string parent = ids ? TextOf(ids) : "nothing";
  if (!ids) return shell->Succeeds("Bind nothing") ? E_INVALIDARG : E_FAIL;
  if (last) {
    *last = NextLevel(ids);
    shell->nextCopyFails = shell->failing == "id " + TextOf(*last);
  }
  return Give<IShellFolder>("Bind " + parent, parent, folder);
}

BOOL WINAPI Track(HMENU menu, UINT flags, int x, int y, int reserved, HWND window,
                  const RECT* area) {
  shell->Succeeds("Track " + std::to_string(x) + "," + std::to_string(y));
  EXPECT_TRUE(menu == kMenu && flags == 0x102 && reserved == 0 && window == shell->window && !area);
  return shell->onTrack();
}

HRESULT WINAPI GetMalloc(void** object) {
  return Give<IMalloc>("SHGetMalloc", "allocator", object);
}

HRESULT WINAPI GetDesktop(void** object) {
  return Give<IShellFolder>("SHGetDesktopFolder", "desktop", object);
}

HMENU WINAPI CreatePopup() {
  if (!shell->Succeeds("CreatePopupMenu")) return nullptr;
  shell->held.emplace(kMenu, "DestroyMenu");
  return kMenu;
}

BOOL WINAPI DestroyPopup(HMENU menu) {
  shell->Drop(menu);
  return TRUE;
}

void* AllocateCopy(std::size_t size) {
  const bool fails = std::exchange(shell->nextCopyFails, false);
  return fails ? nullptr : new (std::nothrow) BYTE[size];
}

}  // namespace

FakeShell::FakeShell() {
  shell = this;
  patches.emplace_back("SHBindToParent", &BindToParent);
  patches.emplace_back("TrackPopupMenu", &Track);
  patches.emplace_back("SHGetMalloc", &GetMalloc);
  patches.emplace_back("SHGetDesktopFolder", &GetDesktop);
  patches.emplace_back("CreatePopupMenu", &CreatePopup);
  patches.emplace_back("DestroyMenu", &DestroyPopup);
  patches.emplace_back(kAllocateCopy, &AllocateCopy);
}

FakeShell::~FakeShell() { shell = nullptr; }

bool FakeShell::Succeeds(const std::string& call) {
  log += call + "|";
  return failing != call.substr(0, call.find(' '));
}

void FakeShell::Drop(const void* object) {
  const auto dropped = held.extract(object);
  ASSERT_FALSE(dropped.empty()) << "the library does not hold this";
  log += dropped.mapped() + "|";
}
