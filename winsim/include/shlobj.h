// The shell's folders and context menus.
#pragma once

#include "ole2.h"
#include "shellapi.h"

#pragma pack(push, 1)
struct SHITEMID {
  USHORT cb;
  BYTE abID[1];
};

struct ITEMIDLIST {
  SHITEMID mkid;
};

struct DROPFILES {
  DWORD pFiles;
  POINT pt;
  BOOL fNC;
  BOOL fWide;
};
#pragma pack(pop)

using LPITEMIDLIST = ITEMIDLIST*;
using LPCITEMIDLIST = const ITEMIDLIST*;
using PIDLIST_RELATIVE = ITEMIDLIST*;
using PITEMID_CHILD = ITEMIDLIST*;
using PCIDLIST_ABSOLUTE = const ITEMIDLIST*;
using PCUIDLIST_RELATIVE = const ITEMIDLIST*;
using PCUITEMID_CHILD = const ITEMIDLIST*;
using PCUITEMID_CHILD_ARRAY = const PCUITEMID_CHILD*;

static_assert(sizeof(DROPFILES) == 20 && sizeof(SHITEMID) == 3);

#define CMF_NORMAL 0x00000000

struct CMINVOKECOMMANDINFO {
  DWORD cbSize;
  DWORD fMask;
  HWND hwnd;
  LPCSTR lpVerb;
  LPCSTR lpParameters;
  LPCSTR lpDirectory;
  int nShow;
  DWORD dwHotKey;
  HANDLE hIcon;
};
static_assert(sizeof(CMINVOKECOMMANDINFO) == 56);

struct STRRET {
  UINT uType;
  union {
    LPWSTR pOleStr;
    UINT uOffset;
    char cStr[MAX_PATH];
  };
};

using SFGAOF = ULONG;
using SHGDNF = DWORD;
using SHCONTF = DWORD;
struct IEnumIDList;

struct IShellFolder : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE ParseDisplayName(HWND window, IBindCtx* context, LPWSTR name,
                                                     ULONG* eaten, PIDLIST_RELATIVE* id,
                                                     ULONG* attributes) = 0;
  virtual HRESULT STDMETHODCALLTYPE EnumObjects(HWND window, SHCONTF flags, IEnumIDList** ids) = 0;
  virtual HRESULT STDMETHODCALLTYPE BindToObject(PCUIDLIST_RELATIVE id, IBindCtx* context,
                                                 REFIID riid, void** object) = 0;
  virtual HRESULT STDMETHODCALLTYPE BindToStorage(PCUIDLIST_RELATIVE id, IBindCtx* context,
                                                  REFIID riid, void** object) = 0;
  virtual HRESULT STDMETHODCALLTYPE CompareIDs(LPARAM rule, PCUIDLIST_RELATIVE a,
                                               PCUIDLIST_RELATIVE b) = 0;
  virtual HRESULT STDMETHODCALLTYPE CreateViewObject(HWND window, REFIID riid, void** object) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetAttributesOf(UINT count, PCUITEMID_CHILD_ARRAY ids,
                                                    SFGAOF* attributes) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetUIObjectOf(HWND window, UINT count,
                                                  PCUITEMID_CHILD_ARRAY ids, REFIID riid,
                                                  UINT* reserved, void** object) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetDisplayNameOf(PCUITEMID_CHILD id, SHGDNF flags,
                                                     STRRET* name) = 0;
  virtual HRESULT STDMETHODCALLTYPE SetNameOf(HWND window, PCUITEMID_CHILD id, LPCWSTR name,
                                              SHGDNF flags, PITEMID_CHILD* result) = 0;
};

struct IContextMenu : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE QueryContextMenu(HMENU menu, UINT position, UINT first,
                                                     UINT last, UINT flags) = 0;
  virtual HRESULT STDMETHODCALLTYPE InvokeCommand(CMINVOKECOMMANDINFO* info) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetCommandString(UINT_PTR command, UINT type, UINT* reserved,
                                                     LPSTR name, UINT size) = 0;
};

struct IContextMenu2 : IContextMenu {
  virtual HRESULT STDMETHODCALLTYPE HandleMenuMsg(UINT message, WPARAM wParam, LPARAM lParam) = 0;
};

WINSIM_API const IID IID_IShellFolder;
WINSIM_API const IID IID_IContextMenu;
WINSIM_API const IID IID_IContextMenu2;

WINSIM_API HRESULT WINAPI SHGetMalloc(IMalloc** allocator);
WINSIM_API HRESULT WINAPI SHGetDesktopFolder(IShellFolder** folder);
WINSIM_API HRESULT WINAPI SHBindToParent(PCIDLIST_ABSOLUTE id, REFIID riid, void** folder,
                                         PCUITEMID_CHILD* last);
