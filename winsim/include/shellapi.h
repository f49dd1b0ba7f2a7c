// File icons and dropped files.
#pragma once

#include "windows.h"

#define SHGFI_ICON 0x000000100
#define SHGFI_DISPLAYNAME 0x000000200
#define SHGFI_TYPENAME 0x000000400
#define SHGFI_SYSICONINDEX 0x000004000
#define SHGFI_LARGEICON 0x000000000
#define SHGFI_SMALLICON 0x000000001
#define SHGFI_USEFILEATTRIBUTES 0x000000010

DECLARE_HANDLE(HDROP);

struct SHFILEINFOW {
  HICON hIcon;
  int iIcon;
  DWORD dwAttributes;
  WCHAR szDisplayName[MAX_PATH];
  WCHAR szTypeName[80];
};
static_assert(sizeof(SHFILEINFOW) == 696);

WINSIM_API DWORD_PTR WINAPI SHGetFileInfoW(LPCWSTR path, DWORD attributes, SHFILEINFOW* info,
                                           UINT size, UINT flags);
WINSIM_API UINT WINAPI DragQueryFileW(HDROP drop, UINT index, LPWSTR name, UINT size);
WINSIM_API BOOL WINAPI DragQueryPoint(HDROP drop, POINT* point);
WINSIM_API void WINAPI DragFinish(HDROP drop);
WINSIM_API LPWSTR* WINAPI CommandLineToArgvW(LPCWSTR commandLine, int* count);
