// File icons.
#pragma once

#include "windows.h"

#define SHGFI_SYSICONINDEX 0x000004000
#define SHGFI_SMALLICON 0x000000001
#define SHGFI_USEFILEATTRIBUTES 0x000000010

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
