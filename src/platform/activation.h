// Platform calls that run inside the library's activation context, so that window classes and the
// common controls are resolved there: the two calls that create windows and window classes, and the
// image list functions.
//
// Each function has the arguments and the result of the platform function of its name. If that
// function cannot be called, the result is its failure value, and the last error is that of the
// step that failed. If the function itself fails, the last error is the function's. No context
// stays active after the return.
//
// The image list functions are not imported. Each is looked up in the common controls module until
// it is found.
#pragma once

#include <windows.h>

#include <commctrl.h>

namespace activated {

HWND CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style, int x, int y,
                     int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                     LPVOID parameter);
ATOM RegisterClassW(const WNDCLASSW* windowClass);

HIMAGELIST ImageList_Create(int width, int height, UINT flags, int initialSize, int growth);
BOOL ImageList_Destroy(HIMAGELIST list);
HICON ImageList_GetIcon(HIMAGELIST list, int index, UINT flags);
BOOL ImageList_GetIconSize(HIMAGELIST list, int* width, int* height);
int ImageList_GetImageCount(HIMAGELIST list);
BOOL ImageList_Remove(HIMAGELIST list, int index);
int ImageList_ReplaceIcon(HIMAGELIST list, int index, HICON icon);
COLORREF ImageList_SetBkColor(HIMAGELIST list, COLORREF color);

}  // namespace activated
