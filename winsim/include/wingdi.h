// Bitmaps, as far as image lists and icons need them.
#pragma once

#include "windef.h"

#define CLR_NONE 0xFFFFFFFF

struct ICONINFO {
  BOOL fIcon;
  DWORD xHotspot;
  DWORD yHotspot;
  HBITMAP hbmMask;
  HBITMAP hbmColor;
};

WINSIM_API HBITMAP WINAPI CreateBitmap(int width, int height, UINT planes, UINT bitCount,
                                       const void* bits);
WINSIM_API LONG WINAPI GetBitmapBits(HBITMAP bitmap, LONG bytes, LPVOID bits);
WINSIM_API BOOL WINAPI DeleteObject(HGDIOBJ object);
