// The little of the platform's graphics that image lists, icons and painting handlers need.
#pragma once

#include "windef.h"

#define CLR_NONE 0xFFFFFFFF
#define CLR_DEFAULT 0xFF000000
#define CLR_INVALID 0xFFFFFFFF

#define WHITE_BRUSH 0
#define LTGRAY_BRUSH 1
#define GRAY_BRUSH 2
#define BLACK_BRUSH 4
#define NULL_BRUSH 5
#define DEFAULT_GUI_FONT 17
#define TRANSPARENT 1
#define OPAQUE 2
#define BI_RGB 0
#define DIB_RGB_COLORS 0

struct PAINTSTRUCT {
  HDC hdc;
  BOOL fErase;
  RECT rcPaint;
  BOOL fRestore;
  BOOL fIncUpdate;
  BYTE rgbReserved[32];
};

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
WINSIM_API HGDIOBJ WINAPI GetStockObject(int index);
WINSIM_API HBRUSH WINAPI CreateSolidBrush(COLORREF color);
