#include "support/fake_shell.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

namespace {

FakeShell* shell = nullptr;

const HMENU MENU = reinterpret_cast<HMENU>(0x4D454E55);
constexpr const WCHAR SEPARATOR = '\\';

// Short names as they are, long ones as their length.
std::string Narrow(const Name& name) {
  if (name.size() > 60) return std::to_string(name.size()) + " characters";
  std::string text;
  for (const WCHAR character : name) text += character < 0x80 ? static_cast<char>(character) : '?';
  return text;
}

// An interface that counts its references and says when the last one goes.
template <class Interface>
class Counted : public Interface {
 public:
  explicit Counted(std::string what) : name(std::move(what)) { ++shell->interfaces; }
  virtual ~Counted() { --shell->interfaces; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override {
    if (--references != 0) return references;
    shell->Log("Release " + name);
    delete this;
    return 0;
  }

 protected:
  std::string name;
  ULONG references = 1;
};

class FakeAllocator final : public Counted<IMalloc> {
 public:
  FakeAllocator() : Counted("allocator") {}

  void* STDMETHODCALLTYPE Alloc(SIZE_T size) override {
    shell->Log("Alloc " + std::to_string(size));
    return shell->Fails("Alloc") ? nullptr : shell->Allocate(size, "array");
  }
  void* STDMETHODCALLTYPE Realloc(void*, SIZE_T) override { return nullptr; }
  void STDMETHODCALLTYPE Free(void* block) override { shell->Free(block); }
  SIZE_T STDMETHODCALLTYPE GetSize(void*) override { return 0; }
  int STDMETHODCALLTYPE DidAlloc(void*) override { return -1; }
  void STDMETHODCALLTYPE HeapMinimize() override {}
};

// A menu object, or its second interface.
class FakeMenu final : public Counted<IContextMenu2> {
 public:
  using Counted::Counted;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override {
    shell->Log("QueryInterface");
    EXPECT_TRUE(IsEqualIID(riid, IID_IContextMenu2));
    if (shell->Fails("IContextMenu2")) return E_NOINTERFACE;
    *object = new FakeMenu("menu 2");
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE QueryContextMenu(HMENU menu, UINT position, UINT first, UINT last,
                                             UINT flags) override {
    shell->Log("QueryContextMenu");
    EXPECT_EQ(menu, MENU);
    EXPECT_EQ(position, 0u);
    EXPECT_EQ(first, 1u);
    EXPECT_EQ(last, 0x7FFFu);
    EXPECT_EQ(flags, 0u);
    return shell->Fails("QueryContextMenu") ? E_FAIL : S_OK;
  }
  HRESULT STDMETHODCALLTYPE InvokeCommand(CMINVOKECOMMANDINFO* info) override {
    shell->Log("Invoke " + std::to_string(reinterpret_cast<ULONG_PTR>(info->lpVerb)));
    EXPECT_EQ(info->cbSize, 56u);
    EXPECT_EQ(info->fMask, 0u);
    EXPECT_EQ(info->hwnd, shell->window);
    EXPECT_TRUE(!info->lpParameters && !info->lpDirectory && !info->hIcon);
    EXPECT_EQ(info->nShow, 1);
    EXPECT_EQ(info->dwHotKey, 0u);
    return E_FAIL;
  }
  HRESULT STDMETHODCALLTYPE GetCommandString(UINT_PTR, UINT, UINT*, CHAR*, UINT) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE HandleMenuMsg(UINT message, WPARAM wParam, LPARAM lParam) override {
    char line[80];
    std::snprintf(line, sizeof line, "HandleMenuMsg 0x%X %d %d", message, static_cast<int>(wParam),
                  static_cast<int>(lParam));
    EXPECT_EQ(name, "menu 2");
    shell->Log(line);
    return E_FAIL;
  }
};

// One level of an id list: the size and the characters. A terminator of size 0 ends the list.
void AppendId(std::vector<BYTE>* ids, const Name& text) {
  const std::size_t bytes = text.size() * sizeof(WCHAR);
  const auto size = static_cast<USHORT>(sizeof(USHORT) + bytes);
  const std::size_t start = ids->size();
  ids->resize(start + size);
  std::memcpy(ids->data() + start, &size, sizeof size);
  std::memcpy(ids->data() + start + sizeof size, text.data(), bytes);
}

USHORT SizeAt(const BYTE* id) {
  USHORT size = 0;
  std::memcpy(&size, id, sizeof size);
  return size;
}

Name TextOf(LPCITEMIDLIST list) {
  const auto* id = reinterpret_cast<const BYTE*>(list);
  const USHORT size = SizeAt(id);
  Name text(size == 0 ? 0 : (size - sizeof size) / sizeof(WCHAR), WCHAR());
  std::memcpy(text.data(), id + sizeof size, text.size() * sizeof(WCHAR));
  return text;
}

// The folder and what stands in it; the root of a drive has the desktop for its folder.
std::vector<BYTE> IdsOf(const Name& name) {
  const std::size_t separator = name.rfind(SEPARATOR);
  const bool root = separator + 1 == name.size();
  std::vector<BYTE> ids;
  if (!root) AppendId(&ids, name.substr(0, separator));
  AppendId(&ids, root ? name : name.substr(separator + 1));
  ids.resize(ids.size() + sizeof(USHORT));
  return ids;
}

class FakeFolder final : public Counted<IShellFolder> {
 public:
  using Counted::Counted;

  HRESULT STDMETHODCALLTYPE ParseDisplayName(HWND window, IBindCtx* context, LPWSTR text,
                                             ULONG* eaten, LPITEMIDLIST* ids,
                                             ULONG* attributes) override {
    EXPECT_EQ(name, "desktop");
    EXPECT_TRUE(!window && !context && !eaten && !attributes);
    EXPECT_EQ(*ids, nullptr);
    const Name fileName = text;
    shell->Log("Parse " + Narrow(fileName));
    shell->parsed.push_back(fileName);
    // The text is the shell's to write to.
    std::fill(text, text + fileName.size(), WCHAR('!'));
    const bool known = fileName.find(SEPARATOR) != Name::npos && fileName != shell->unknown;
    if (!known || shell->Fails("Parse")) return E_FAIL;
    const std::vector<BYTE> bytes = IdsOf(fileName);
    *ids = static_cast<LPITEMIDLIST>(shell->Allocate(bytes.size(), "ids"));
    std::memcpy(*ids, bytes.data(), bytes.size());
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetUIObjectOf(HWND window, UINT count, PCUITEMID_CHILD_ARRAY ids,
                                          REFIID riid, UINT* reserved, void** object) override {
    std::string line = "GetUIObjectOf " + name + ":";
    for (UINT i = 0; i < count; ++i) {
      line += ids[i] ? " " + Narrow(TextOf(ids[i])) : std::string(" null");
      EXPECT_TRUE(!ids[i] || SizeAt(reinterpret_cast<const BYTE*>(ids[i]) +
                                    SizeAt(reinterpret_cast<const BYTE*>(ids[i]))) == 0);
    }
    shell->Log(line);
    shell->window = window;
    EXPECT_TRUE(IsEqualIID(riid, IID_IContextMenu));
    EXPECT_EQ(reserved, nullptr);
    if (shell->Fails("GetUIObjectOf")) return E_FAIL;
    *object = static_cast<IContextMenu*>(new FakeMenu("menu"));
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE EnumObjects(HWND, SHCONTF, IEnumIDList**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE BindToObject(LPCITEMIDLIST, IBindCtx*, REFIID, void**) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE BindToStorage(LPCITEMIDLIST, IBindCtx*, REFIID, void**) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE CompareIDs(LPARAM, LPCITEMIDLIST, LPCITEMIDLIST) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE CreateViewObject(HWND, REFIID, void**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetAttributesOf(UINT, PCUITEMID_CHILD_ARRAY, SFGAOF*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetDisplayNameOf(LPCITEMIDLIST, SHGDNF, STRRET*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetNameOf(HWND, LPCITEMIDLIST, LPCWSTR, SHGDNF,
                                      LPITEMIDLIST*) override {
    return E_NOTIMPL;
  }
};

HRESULT WINAPI GetMalloc(IMalloc** allocator) {
  shell->Log("SHGetMalloc");
  EXPECT_EQ(*allocator, nullptr);
  if (shell->Fails("SHGetMalloc")) return E_FAIL;
  *allocator = new FakeAllocator();
  return S_OK;
}

HRESULT WINAPI GetDesktop(IShellFolder** desktop) {
  shell->Log("SHGetDesktopFolder");
  EXPECT_EQ(*desktop, nullptr);
  if (shell->Fails("SHGetDesktopFolder")) return E_FAIL;
  *desktop = new FakeFolder("desktop");
  return S_OK;
}

HRESULT WINAPI BindToParent(LPCITEMIDLIST ids, REFIID riid, void** folder, LPCITEMIDLIST* last) {
  EXPECT_TRUE(IsEqualIID(riid, IID_IShellFolder));
  EXPECT_EQ(*folder, nullptr);
  if (!ids) {
    shell->Log("Bind nothing");
    return E_INVALIDARG;
  }
  const auto* id = reinterpret_cast<const BYTE*>(ids);
  const bool root = SizeAt(id + SizeAt(id)) == 0;
  const std::string parent = root ? "drives" : Narrow(TextOf(ids));
  shell->Log("Bind " + parent);
  *folder = static_cast<IShellFolder*>(new FakeFolder(parent));
  if (last) {
    *last = root ? ids : reinterpret_cast<LPCITEMIDLIST>(id + SizeAt(id));
    shell->nextAllocationFails = shell->Fails("child id of " + Narrow(TextOf(*last)));
  }
  return S_OK;
}

HMENU WINAPI CreatePopup() {
  shell->Log("CreatePopupMenu");
  if (shell->Fails("CreatePopupMenu")) return nullptr;
  ++shell->menus;
  return MENU;
}

BOOL WINAPI DestroyTheMenu(HMENU menu) {
  shell->Log("DestroyMenu");
  EXPECT_EQ(menu, MENU);
  --shell->menus;
  return TRUE;
}

BOOL WINAPI Track(HMENU menu, UINT flags, int x, int y, int reserved, HWND window,
                  const RECT* area) {
  shell->Log("Track " + std::to_string(x) + "," + std::to_string(y));
  EXPECT_EQ(menu, MENU);
  EXPECT_EQ(flags, 0x102u);
  EXPECT_EQ(reserved, 0);
  EXPECT_EQ(window, shell->window);
  EXPECT_EQ(area, nullptr);
  return std::function<int()>(shell->onTrack)();
}

// The allocation that the library makes for the copy of a child id.
#ifdef _WIN32
constexpr const char* ALLOCATION = "malloc";
void* Allocation(std::size_t size) {
  return std::exchange(shell->nextAllocationFails, false) ? nullptr : std::malloc(size);
}
#else
constexpr const char* ALLOCATION = "_ZnamRKSt9nothrow_t";
void* Allocation(std::size_t size, const std::nothrow_t& tag) {
  return std::exchange(shell->nextAllocationFails, false) ? nullptr : operator new[](size, tag);
}
#endif

}  // namespace

FakeShell::FakeShell() {
  shell = this;
  const auto replace = [this](const char* name, auto* function) {
    patches.push_back(std::make_unique<ImportPatch>(name, function));
  };
  replace("SHGetMalloc", &GetMalloc);
  replace("SHGetDesktopFolder", &GetDesktop);
  replace("SHBindToParent", &BindToParent);
  replace("CreatePopupMenu", &CreatePopup);
  replace("DestroyMenu", &DestroyTheMenu);
  replace("TrackPopupMenu", &Track);
  replace(ALLOCATION, &Allocation);
}

FakeShell::~FakeShell() {
  while (!patches.empty()) patches.pop_back();
  shell = nullptr;
}

Lines FakeShell::Take() { return std::exchange(lines, {}); }

void FakeShell::ExpectNothingHeld() const {
  EXPECT_EQ(interfaces, 0);
  EXPECT_EQ(blocks.size(), 0u);
  EXPECT_EQ(menus, 0);
}

void* FakeShell::Allocate(SIZE_T size, std::string what) {
  void* block = std::malloc(size);
  std::memset(block, 0xCD, size);
  blocks[block] = std::move(what);
  return block;
}

void FakeShell::Free(void* block) {
  const auto found = blocks.find(block);
  if (found == blocks.end()) {
    ADD_FAILURE() << "a block is freed that the allocator does not hold";
    return;
  }
  Log("Free " + found->second);
  blocks.erase(found);
  std::free(block);
}
