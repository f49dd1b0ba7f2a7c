// What the library relies on in windows, image lists, shell, drag and drop and modules.
#include "support/contract_host.h"

#include <ole2.h>
#include <shellapi.h>
#include <shlobj.h>

#include <string>
#include <vector>

namespace {

// Writes down the messages of a window's life.
struct Life {
  std::string seen;
  HWND child = nullptr;
} life;

LRESULT CALLBACK LifeProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const std::string name = window == life.child ? "child" : "parent";
  switch (message) {
    case WM_DESTROY:
      life.seen += name + " destroy,";
      break;
    case WM_NCDESTROY:
      life.seen += name + " gone,";
      break;
    case WM_SETFOCUS:
      life.seen += name + " focus,";
      break;
    case WM_KILLFOCUS:
      life.seen += name + " unfocus,";
      break;
    default:
      break;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

class WindowContract : public ContractTest {
 protected:
  void SetUp() override {
    ContractTest::SetUp();
    WNDCLASSW lifeClass = {};
    lifeClass.lpfnWndProc = &LifeProc;
    lifeClass.hInstance = GetModuleHandleW(nullptr);
    lifeClass.lpszClassName = TEXT("ContractLife");
    RegisterClassW(&lifeClass);
    life = {};
    parent = Make(host, WS_BORDER, 10, 20);
    life.child = Make(parent, 0, 3, 4);
    life.seen.clear();
  }

  static HWND Make(HWND above, DWORD style, int x, int y) {
    return CreateWindowExW(0, TEXT("ContractLife"), TEXT(""), WS_CHILD | WS_VISIBLE | style, x, y,
                           100, 80, above, nullptr, GetModuleHandleW(nullptr), nullptr);
  }

  HWND parent = nullptr;
};

TEST_F(WindowContract, AClassIsRegisteredOnce) {
  WNDCLASSW again = {};
  again.lpfnWndProc = &LifeProc;
  again.hInstance = GetModuleHandleW(nullptr);
  again.lpszClassName = TEXT("ContractLife");
  EXPECT_EQ(RegisterClassW(&again), 0);
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_CLASS_ALREADY_EXISTS));
  EXPECT_EQ(CreateWindowExW(0, TEXT("NoSuchClass"), TEXT(""), WS_CHILD, 0, 0, 1, 1, host, nullptr,
                            nullptr, nullptr),
            nullptr);
}

TEST_F(WindowContract, ChildrenEndWithTheirParentAndAreGoneFirst) {
  EXPECT_TRUE(DestroyWindow(parent));
  EXPECT_EQ(life.seen, "parent destroy,child destroy,child gone,parent gone,");
  EXPECT_FALSE(IsWindow(life.child));
  EXPECT_FALSE(DestroyWindow(parent));
}

TEST_F(WindowContract, AHiddenOrEndedWindowGivesTheFocusToItsParent) {
  SetFocus(life.child);
  ShowWindow(life.child, SW_HIDE);
  EXPECT_EQ(GetFocus(), parent);
  EXPECT_EQ(life.seen, "child focus,child unfocus,parent focus,");
  EXPECT_FALSE(IsWindowVisible(life.child));
  ShowWindow(life.child, SW_SHOW);
  EXPECT_TRUE(IsWindowVisible(life.child));
  ShowWindow(parent, SW_HIDE);
  EXPECT_FALSE(IsWindowVisible(life.child));
  SetFocus(life.child);
  DestroyWindow(life.child);
  EXPECT_NE(GetFocus(), life.child);
}

TEST_F(WindowContract, PlacesCountFromTheParentsInside) {
  POINT point = {0, 0};
  ClientToScreen(life.child, &point);
  EXPECT_EQ(point.x, 50 + 10 + 1 + 3);
  EXPECT_EQ(point.y, 50 + 20 + 1 + 4);
  ScreenToClient(life.child, &point);
  EXPECT_EQ(point.x, 0);
  MoveWindow(life.child, 5, 6, 40, 30, FALSE);
  RECT rect;
  GetClientRect(life.child, &rect);
  EXPECT_EQ(rect.right, 40);
  EXPECT_EQ(rect.bottom, 30);
  GetWindowRect(life.child, &rect);
  EXPECT_EQ(rect.left, 66);
}

TEST_F(WindowContract, AContextRequestPassesUpToWhoeverTakesIt) {
  SendMessageW(life.child, WM_CONTEXTMENU, 0, MAKELPARAM(70, 70));
  EXPECT_EQ(Heard(), "menu");
  SendMessageW(life.child, WM_RBUTTONUP, 0, MAKELPARAM(1, 1));
  EXPECT_EQ(Heard(), "menu");
}

TEST_F(WindowContract, AProcedureCanBeReplacedAndCalled) {
  const auto former = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(life.child, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&DefWindowProcW)));
  EXPECT_EQ(former, &LifeProc);
  SendMessageW(life.child, WM_SETFOCUS, 0, 0);
  EXPECT_EQ(life.seen, "");
  CallWindowProcW(former, life.child, WM_SETFOCUS, 0, 0);
  EXPECT_EQ(life.seen, "child focus,");
}

std::vector<COLORREF> Pixels(HIMAGELIST list, int index) {
  const HICON icon = ImageList_GetIcon(list, index, ILD_NORMAL);
  ICONINFO info = {};
  EXPECT_TRUE(GetIconInfo(icon, &info));
  std::vector<COLORREF> pixels(16 * 16);
  EXPECT_GT(GetBitmapBits(info.hbmColor, static_cast<LONG>(pixels.size() * sizeof(COLORREF)),
                          pixels.data()),
            0);
  DeleteObject(info.hbmColor);
  DeleteObject(info.hbmMask);
  DestroyIcon(icon);
  return pixels;
}

HIMAGELIST SystemList(const WCHAR* name, int* index) {
  SHFILEINFOW info = {};
  const DWORD_PTR list =
      SHGetFileInfoW(name, FILE_ATTRIBUTE_NORMAL, &info, sizeof info,
                     SHGFI_SYSICONINDEX | SHGFI_SMALLICON | SHGFI_USEFILEATTRIBUTES);
  *index = info.iIcon;
  return reinterpret_cast<HIMAGELIST>(list);
}

TEST(ShellContract, TheSystemListIsOneAndGrowsWithNewTypes) {
  int index = -1;
  const HIMAGELIST list = SystemList(TEXT("*.exe"), &index);
  ASSERT_NE(list, nullptr);
  int width = 0;
  int height = 0;
  EXPECT_TRUE(ImageList_GetIconSize(list, &width, &height));
  EXPECT_EQ(width, 16);
  EXPECT_EQ(height, 16);
  int first = -1;
  EXPECT_EQ(SystemList(TEXT("one.txt"), &first), list);
  int second = -1;
  SystemList(TEXT("no such folder\\two.TXT"), &second);
  EXPECT_EQ(first, second);
  EXPECT_LT(first, ImageList_GetImageCount(list));
}

TEST(ShellContract, AListWithoutMaskKeepsCopiesOfIcons) {
  int index = 0;
  const HIMAGELIST system = SystemList(TEXT("*.exe"), &index);
  const HIMAGELIST copy = ImageList_Create(16, 16, ILC_COLOR16, 0, 100);
  EXPECT_EQ(ImageList_GetImageCount(copy), 0);
  const HICON icon = ImageList_GetIcon(system, 0, 0);
  EXPECT_EQ(ImageList_ReplaceIcon(copy, -1, icon), 0);
  EXPECT_EQ(ImageList_ReplaceIcon(copy, -1, icon), 1);
  EXPECT_TRUE(DestroyIcon(icon));
  EXPECT_FALSE(DestroyIcon(icon));
  EXPECT_EQ(Pixels(copy, 0), Pixels(copy, 1));
  EXPECT_EQ(ImageList_SetBkColor(copy, RGB(1, 2, 3)), CLR_NONE);
  EXPECT_EQ(ImageList_SetBkColor(copy, RGB(4, 5, 6)), RGB(1, 2, 3));
  EXPECT_TRUE(ImageList_Remove(copy, -1));
  EXPECT_EQ(ImageList_GetImageCount(copy), 0);
  EXPECT_EQ(ImageList_ReplaceIcon(nullptr, -1, nullptr), -1);
  EXPECT_TRUE(ImageList_Destroy(copy));
}

TEST(ShellContract, MemoryOfBothKindsIsGivenAndTakenBack) {
  const HGLOBAL block = GlobalAlloc(GMEM_FIXED, 26);
  ASSERT_NE(block, nullptr);
  EXPECT_EQ(GlobalLock(block), block);
  EXPECT_GE(GlobalSize(block), 26U);
  GlobalUnlock(block);
  EXPECT_EQ(GlobalFree(block), nullptr);
  IMalloc* allocator = nullptr;
  SHGetMalloc(&allocator);
  ASSERT_NE(allocator, nullptr);
  void* memory = allocator->Alloc(8);
  EXPECT_NE(memory, nullptr);
  allocator->Free(memory);
  allocator->Release();
}

TEST(ShellContract, ANameThatIsNoFileGivesNoIdAndNoFolder) {
  IShellFolder* desktop = nullptr;
  SHGetDesktopFolder(&desktop);
  ASSERT_NE(desktop, nullptr);
  WCHAR name[] = TEXT("q:\\no\\such\\file.txt");
  ITEMIDLIST* id = nullptr;
  EXPECT_LT(desktop->ParseDisplayName(nullptr, nullptr, name, nullptr, &id, nullptr), 0);
  EXPECT_EQ(id, nullptr);
  void* folder = nullptr;
  EXPECT_LT(SHBindToParent(nullptr, IID_IShellFolder, &folder, nullptr), 0);
  EXPECT_EQ(folder, nullptr);
  desktop->Release();
}

TEST(ShellContract, TheProgramsOwnFileHasAMenuThatCanBeFilled) {
  WCHAR name[MAX_PATH] = {};
  ASSERT_GT(GetModuleFileNameW(nullptr, name, MAX_PATH), 0U);
  IMalloc* allocator = nullptr;
  SHGetMalloc(&allocator);
  IShellFolder* desktop = nullptr;
  SHGetDesktopFolder(&desktop);
  ITEMIDLIST* id = nullptr;
  ASSERT_EQ(desktop->ParseDisplayName(nullptr, nullptr, name, nullptr, &id, nullptr), S_OK);
  void* found = nullptr;
  const ITEMIDLIST* last = nullptr;
  ASSERT_EQ(SHBindToParent(id, IID_IShellFolder, &found, &last), S_OK);
  auto* folder = static_cast<IShellFolder*>(found);
  EXPECT_NE(last->mkid.cb, 0) << "the last id lies inside the list";
  const auto* after = reinterpret_cast<const BYTE*>(last) + last->mkid.cb;
  EXPECT_EQ(reinterpret_cast<const ITEMIDLIST*>(after)->mkid.cb, 0) << "and ends it";
  void* object = nullptr;
  ASSERT_EQ(folder->GetUIObjectOf(nullptr, 1, &last, IID_IContextMenu, nullptr, &object), S_OK);
  auto* menuObject = static_cast<IContextMenu*>(object);
  const HMENU menu = CreatePopupMenu();
  EXPECT_GE(menuObject->QueryContextMenu(menu, 0, 1, 0x7FFF, CMF_NORMAL), 0);
  EXPECT_GT(GetMenuItemCount(menu), 0);
  void* second = nullptr;
  EXPECT_EQ(menuObject->QueryInterface(IID_IContextMenu2, &second), S_OK);
  static_cast<IUnknown*>(second)->Release();
  EXPECT_TRUE(DestroyMenu(menu));
  EXPECT_FALSE(DestroyMenu(menu));
  menuObject->Release();
  folder->Release();
  allocator->Free(id);
  desktop->Release();
  allocator->Release();
}

TEST(ModuleContract, AnAddressLeadsToItsModuleAndTheModuleToItsPath) {
  static int inside = 0;
  HMODULE module = nullptr;
  EXPECT_TRUE(GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<LPCWSTR>(&inside), &module));
  EXPECT_EQ(module, GetModuleHandleW(nullptr));
  WCHAR path[4] = {};
  EXPECT_EQ(GetModuleFileNameW(module, path, 4), 4U) << "a short buffer is filled";
  const HMODULE controls = LoadLibraryW(TEXT("Comctl32.dll"));
  EXPECT_NE(GetProcAddress(controls, "ImageList_Create"), nullptr);
  EXPECT_EQ(GetProcAddress(controls, "ImageList_NoSuch"), nullptr);
  EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_PROC_NOT_FOUND));
}

TEST(ModuleContract, TheNullContextIsActivatedAndLeftInOrder) {
  ULONG_PTR outer = 0;
  ULONG_PTR inner = 0;
  EXPECT_TRUE(ActivateActCtx(nullptr, &outer));
  EXPECT_TRUE(ActivateActCtx(nullptr, &inner));
  EXPECT_NE(outer, inner);
  EXPECT_TRUE(DeactivateActCtx(0, inner));
  EXPECT_TRUE(DeactivateActCtx(0, outer));
}

TEST(ModuleContract, APathIsSplitAtItsLastSlashAndDot) {
  struct Case {
    const WCHAR* path;
    const WCHAR* name;
    const WCHAR* extension;
  };
  const Case cases[] = {
      {TEXT("c:\\a.b\\name.tar.gz"), TEXT("name.tar"), TEXT(".gz")},
      {TEXT("a.b/none"), TEXT("none"), TEXT("")},
      {TEXT("c:plain"), TEXT("plain"), TEXT("")},
      {TEXT("\\\\host\\share\\.hidden"), TEXT(""), TEXT(".hidden")},
      {TEXT("folder\\"), TEXT(""), TEXT("")},
      {TEXT(""), TEXT(""), TEXT("")},
  };
  for (const Case& split : cases) {
    WCHAR name[MAX_PATH];
    WCHAR extension[MAX_PATH];
    _wsplitpath(split.path, nullptr, nullptr, name, extension);
    EXPECT_EQ(std::basic_string<WCHAR>(name), split.name);
    EXPECT_EQ(std::basic_string<WCHAR>(extension), split.extension);
  }
}

TEST(OleContract, AnUnknownTargetOrWindowIsRefused) {
  EXPECT_GE(OleInitialize(nullptr), 0);
  EXPECT_EQ(RevokeDragDrop(nullptr), DRAGDROP_E_INVALIDHWND);
  DWORD effect = 0;
  EXPECT_EQ(DoDragDrop(nullptr, nullptr, DROPEFFECT_COPY, &effect), E_INVALIDARG);
  OleUninitialize();
}

}  // namespace
