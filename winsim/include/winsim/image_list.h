// Image lists. The library looks these functions up by name in the module of the common controls.
#pragma once

#include "../windows.h"

struct _IMAGELIST;
using HIMAGELIST = _IMAGELIST*;

#define ILC_MASK 0x00000001
#define ILC_COLOR16 0x00000010
#define ILC_COLOR32 0x00000020
#define ILD_NORMAL 0x00000000

#define INDEXTOSTATEIMAGEMASK(index) ((index) << 12)

WINSIM_API HIMAGELIST WINAPI ImageList_Create(int width, int height, UINT flags, int initial,
                                              int grow);
WINSIM_API BOOL WINAPI ImageList_Destroy(HIMAGELIST list);
WINSIM_API int WINAPI ImageList_GetImageCount(HIMAGELIST list);
WINSIM_API int WINAPI ImageList_ReplaceIcon(HIMAGELIST list, int index, HICON icon);
WINSIM_API COLORREF WINAPI ImageList_SetBkColor(HIMAGELIST list, COLORREF color);
WINSIM_API COLORREF WINAPI ImageList_GetBkColor(HIMAGELIST list);
WINSIM_API BOOL WINAPI ImageList_Remove(HIMAGELIST list, int index);
WINSIM_API HICON WINAPI ImageList_GetIcon(HIMAGELIST list, int index, UINT flags);
WINSIM_API BOOL WINAPI ImageList_GetIconSize(HIMAGELIST list, int* width, int* height);
