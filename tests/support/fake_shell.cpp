#include "support/fake_shell.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

#include "support/import_patch.h"

namespace {

FakeShell* shell = nullptr;

const HMENU MENU = reinterpret_cast<HMENU>(0x4D454E55);
constexpr WCHAR SEPARATOR = '\\';

// Short names as they are, long ones as their length.
std::string Narrow(const Name& name) {
  if (name.size() > 60) return std::to_string(name.size()) + " characters";
  std::string text;
  for (const WCHAR character : name) text += character < 0x80 ? static_cast<char>(character) : '?';
  return text;
}

// One level of an id list: its size in bytes, and the text. A size of 0 ends the list.
Name Id(const Name& text) {
  return Name(1, static_cast<WCHAR>((text.size() + 1) * sizeof(WCHAR))) + text;
}

Name TextOf(LPCITEMIDLIST id) {
  const std::size_t length = id->mkid.cb / sizeof(WCHAR);
  return length == 0 ? Name() : Name(reinterpret_cast<const WCHAR*>(id) + 1, length - 1);
}

LPCITEMIDLIST Behind(LPCITEMIDLIST id) {
  return reinterpret_cast<LPCITEMIDLIST>(reinterpret_cast<const BYTE*>(id) + id->mkid.cb);
}

bool IsLast(LPCITEMIDLIST id) { return Behind(id)->mkid.cb == 0; }

// The folder and what stands in it; the root of a drive has the desktop for its folder.
Name IdsOf(const Name& name) {
  const std::size_t child = name.rfind(SEPARATOR) + 1;
  const Name end(1, WCHAR());
  if (child == name.size()) return Id(name) + end;
  return Id(name.substr(0, child - 1)) + Id(name.substr(child)) + end;
}

// An interface that counts its references and says when the last one goes.
template <class Interface>
class Counted : public Interface {
 public:
  explicit Counted(std::string what) : name(std::move(what)) { ++shell->held; }
  virtual ~Counted() { --shell->held; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

  HRESULT QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
  ULONG AddRef() override { return ++references; }
  ULONG Release() override {
    if (--references != 0) return references;
    shell->lines.push_back("Release " + name);
    delete this;
    return 0;
  }

 protected:
  std::string name;
  ULONG references = 1;
};

class FakeAllocator final : public Counted<IMalloc> {
 public:
  using Counted::Counted;

  void* Alloc(SIZE_T size) override {
    const bool given = shell->Succeeds("Alloc " + std::to_string(size));
    return given ? shell->Allocate(nullptr, size, "array") : nullptr;
  }
  void Free(void* block) override {
    const auto held = shell->blocks.extract(block);
    ASSERT_FALSE(held.empty()) << "a block is freed that the allocator does not hold";
    shell->lines.push_back("Free " + held.mapped());
    std::free(block);
  }
  void* Realloc(void*, SIZE_T) override { return nullptr; }
  SIZE_T GetSize(void*) override { return 0; }
  int DidAlloc(void*) override { return -1; }
  void HeapMinimize() override {}
};

// A menu object, or its second interface.
class FakeMenu final : public Counted<IContextMenu2> {
 public:
  using Counted::Counted;

  HRESULT QueryInterface(REFIID riid, void** object) override {
    EXPECT_TRUE(IsEqualIID(riid, IID_IContextMenu2));
    if (!shell->Succeeds("QueryInterface")) return E_NOINTERFACE;
    *object = new FakeMenu("menu 2");
    return S_OK;
  }
  HRESULT QueryContextMenu(HMENU menu, UINT position, UINT first, UINT last, UINT flags) override {
    EXPECT_TRUE(menu == MENU && position == 0 && first == 1 && last == 0x7FFF && flags == 0);
    return shell->Succeeds("QueryContextMenu") ? S_OK : E_FAIL;
  }
  HRESULT InvokeCommand(CMINVOKECOMMANDINFO* info) override {
    shell->Succeeds("Invoke " + std::to_string(reinterpret_cast<ULONG_PTR>(info->lpVerb)));
    EXPECT_EQ(info->hwnd, shell->window);
    EXPECT_TRUE(info->cbSize == 56 && info->fMask == 0 && info->nShow == 1 && info->dwHotKey == 0);
    EXPECT_TRUE(!info->lpParameters && !info->lpDirectory && !info->hIcon);
    return E_FAIL;
  }
  HRESULT HandleMenuMsg(UINT message, WPARAM wParam, LPARAM lParam) override {
    char line[80];
    std::snprintf(line, sizeof line, "HandleMenuMsg 0x%X %d %d", message, static_cast<int>(wParam),
                  static_cast<int>(lParam));
    EXPECT_EQ(name, "menu 2");
    shell->lines.push_back(line);
    return E_FAIL;
  }
  HRESULT GetCommandString(UINT_PTR, UINT, UINT*, CHAR*, UINT) override { return E_NOTIMPL; }
};

class FakeFolder final : public Counted<IShellFolder> {
 public:
  using Counted::Counted;
  using IdList = LPCITEMIDLIST;

  HRESULT ParseDisplayName(HWND window, IBindCtx* context, LPWSTR text, ULONG* eaten,
                           LPITEMIDLIST* ids, ULONG* attributes) override {
    EXPECT_EQ(name, "desktop");
    EXPECT_TRUE(!window && !context && !eaten && !attributes && !*ids);
    const Name fileName = text;
    shell->parsed.push_back(fileName);
    // The text is the shell's to write to.
    std::fill_n(text, fileName.size(), WCHAR('!'));
    const bool known = fileName.find(SEPARATOR) != Name::npos && fileName != shell->unknown;
    if (!shell->Succeeds("Parse " + Narrow(fileName)) || !known) return E_FAIL;
    const Name content = IdsOf(fileName);
    *ids = static_cast<LPITEMIDLIST>(
        shell->Allocate(content.data(), content.size() * sizeof(WCHAR), "ids"));
    return S_OK;
  }
  HRESULT GetUIObjectOf(HWND window, UINT count, PCUITEMID_CHILD_ARRAY ids, REFIID riid,
                        UINT* reserved, void** object) override {
    std::string line = "GetUIObjectOf " + name + ":";
    for (UINT i = 0; i < count; ++i) {
      line += ids[i] ? " " + Narrow(TextOf(ids[i])) : std::string(" null");
      EXPECT_TRUE(!ids[i] || IsLast(ids[i]));
    }
    shell->window = window;
    EXPECT_TRUE(IsEqualIID(riid, IID_IContextMenu) && !reserved);
    if (!shell->Succeeds(line)) return E_FAIL;
    *object = static_cast<IContextMenu*>(new FakeMenu("menu"));
    return S_OK;
  }

  HRESULT EnumObjects(HWND, SHCONTF, IEnumIDList**) override { return E_NOTIMPL; }
  HRESULT BindToObject(IdList, IBindCtx*, REFIID, void**) override { return E_NOTIMPL; }
  HRESULT BindToStorage(IdList, IBindCtx*, REFIID, void**) override { return E_NOTIMPL; }
  HRESULT CompareIDs(LPARAM, IdList, IdList) override { return E_NOTIMPL; }
  HRESULT CreateViewObject(HWND, REFIID, void**) override { return E_NOTIMPL; }
  HRESULT GetAttributesOf(UINT, PCUITEMID_CHILD_ARRAY, SFGAOF*) override { return E_NOTIMPL; }
  HRESULT GetDisplayNameOf(IdList, SHGDNF, STRRET*) override { return E_NOTIMPL; }
  HRESULT SetNameOf(HWND, IdList, LPCWSTR, SHGDNF, LPITEMIDLIST*) override { return E_NOTIMPL; }
};

HRESULT WINAPI GetMalloc(IMalloc** allocator) {
  EXPECT_EQ(*allocator, nullptr);
  if (!shell->Succeeds("SHGetMalloc")) return E_FAIL;
  *allocator = new FakeAllocator("allocator");
  return S_OK;
}

HRESULT WINAPI GetDesktop(IShellFolder** desktop) {
  EXPECT_EQ(*desktop, nullptr);
  if (!shell->Succeeds("SHGetDesktopFolder")) return E_FAIL;
  *desktop = new FakeFolder("desktop");
  return S_OK;
}

HRESULT WINAPI BindToParent(LPCITEMIDLIST ids, REFIID riid, void** folder, LPCITEMIDLIST* last) {
  EXPECT_TRUE(IsEqualIID(riid, IID_IShellFolder) && !*folder);
  const bool root = ids && IsLast(ids);
  const std::string parent = !ids ? "nothing" : root ? "drives" : Narrow(TextOf(ids));
  shell->lines.push_back("Bind " + parent);
  if (!ids) return E_INVALIDARG;
  *folder = static_cast<IShellFolder*>(new FakeFolder(parent));
  if (last) {
    *last = root ? ids : Behind(ids);
    shell->nextCopyFails = shell->failing == "child id of " + Narrow(TextOf(*last));
  }
  return S_OK;
}

HMENU WINAPI CreatePopup() {
  if (!shell->Succeeds("CreatePopupMenu")) return nullptr;
  ++shell->held;
  return MENU;
}

BOOL WINAPI DestroyTheMenu(HMENU menu) {
  shell->lines.push_back("DestroyMenu");
  EXPECT_EQ(menu, MENU);
  --shell->held;
  return TRUE;
}

BOOL WINAPI Track(HMENU menu, UINT flags, int x, int y, int reserved, HWND window,
                  const RECT* area) {
  shell->lines.push_back("Track " + std::to_string(x) + "," + std::to_string(y));
  EXPECT_EQ(window, shell->window);
  EXPECT_TRUE(menu == MENU && flags == 0x102 && reserved == 0 && !area);
  return std::function<int()>(shell->onTrack)();
}

// The allocation that the library makes for the copy of a child id.
#ifdef _WIN32
constexpr const char* COPY = "malloc";
void* AllocateCopy(std::size_t size) {
  return std::exchange(shell->nextCopyFails, false) ? nullptr : std::malloc(size);
}
#else
constexpr const char* COPY = "_ZnamRKSt9nothrow_t";
void* AllocateCopy(std::size_t size, const std::nothrow_t& tag) {
  return std::exchange(shell->nextCopyFails, false) ? nullptr : operator new[](size, tag);
}
#endif

}  // namespace

struct FakeShell::Patches {
  ImportPatch getMalloc{"SHGetMalloc", &GetMalloc};
  ImportPatch getDesktop{"SHGetDesktopFolder", &GetDesktop};
  ImportPatch bindToParent{"SHBindToParent", &BindToParent};
  ImportPatch createPopup{"CreatePopupMenu", &CreatePopup};
  ImportPatch destroyMenu{"DestroyMenu", &DestroyTheMenu};
  ImportPatch track{"TrackPopupMenu", &Track};
  ImportPatch copy{COPY, &AllocateCopy};
};

FakeShell::FakeShell() : patches(std::make_unique<Patches>()) { shell = this; }

FakeShell::~FakeShell() { shell = nullptr; }

bool FakeShell::Succeeds(const std::string& line) {
  lines.push_back(line);
  return failing != line.substr(0, line.find(' '));
}

void* FakeShell::Allocate(const void* content, SIZE_T size, const char* what) {
  void* block = std::malloc(size);
  std::memset(block, 0xCD, size);
  if (content) std::memcpy(block, content, size);
  blocks[block] = what;
  return block;
}
