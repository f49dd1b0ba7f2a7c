// The platform calls that must run inside the library's activation context, so that window classes
// and the common controls are resolved there: the two that make windows and window classes, and
// the image-list functions.
//
// Each takes the arguments and gives the result of the platform function of its name. One that
// can't call that function at all gives the value by which the function itself tells a failure,
// and the last error is then the one of the step that failed. After a failure of the function
// itself the last error is the function's own. No context stays active across a return.
//
// The image-list functions are not imported but looked up in the common controls module, each at
// its first call that finds it.
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
