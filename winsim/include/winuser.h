// Windows, messages, input and menus.
#pragma once

#include "wingdi.h"
#include "winsim/user_constants.h"

struct WNDCLASSW {
  UINT style;
  WNDPROC lpfnWndProc;
  int cbClsExtra;
  int cbWndExtra;
  HINSTANCE hInstance;
  HICON hIcon;
  HCURSOR hCursor;
  HBRUSH hbrBackground;
  LPCWSTR lpszMenuName;
  LPCWSTR lpszClassName;
};

struct MSG {
  HWND hwnd;
  UINT message;
  WPARAM wParam;
  LPARAM lParam;
  DWORD time;
  POINT pt;
};

struct NMHDR {
  HWND hwndFrom;
  UINT_PTR idFrom;
  UINT code;
};

struct STYLESTRUCT {
  DWORD styleOld;
  DWORD styleNew;
};

struct SCROLLINFO {
  UINT cbSize;
  UINT fMask;
  int nMin;
  int nMax;
  UINT nPage;
  int nPos;
  int nTrackPos;
};

static_assert(sizeof(SCROLLINFO) == 28);
static_assert(sizeof(WNDCLASSW) == 72);
static_assert(sizeof(MSG) == 48 && sizeof(NMHDR) == 24);

WINSIM_API ATOM WINAPI RegisterClassW(const WNDCLASSW* windowClass);
WINSIM_API int WINAPI GetClassNameW(HWND window, LPWSTR name, int size);

WINSIM_API HWND WINAPI CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style,
                                       int x, int y, int width, int height, HWND parent, HMENU menu,
                                       HINSTANCE module, LPVOID parameter);
WINSIM_API BOOL WINAPI DestroyWindow(HWND window);
WINSIM_API BOOL WINAPI IsWindow(HWND window);
WINSIM_API BOOL WINAPI IsWindowVisible(HWND window);
WINSIM_API BOOL WINAPI IsWindowUnicode(HWND window);
WINSIM_API BOOL WINAPI ShowWindow(HWND window, int command);
WINSIM_API BOOL WINAPI MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
WINSIM_API HWND WINAPI GetParent(HWND window);
WINSIM_API HWND WINAPI GetWindow(HWND window, UINT command);
WINSIM_API int WINAPI GetDlgCtrlID(HWND window);
WINSIM_API LONG_PTR WINAPI GetWindowLongPtrW(HWND window, int index);
WINSIM_API LONG_PTR WINAPI SetWindowLongPtrW(HWND window, int index, LONG_PTR value);
WINSIM_API ULONG_PTR WINAPI GetClassLongPtrW(HWND window, int index);
WINSIM_API BOOL WINAPI GetClientRect(HWND window, RECT* rect);
WINSIM_API BOOL WINAPI ClientToScreen(HWND window, POINT* point);
WINSIM_API BOOL WINAPI ScreenToClient(HWND window, POINT* point);

WINSIM_API BOOL WINAPI InvalidateRect(HWND window, const RECT* rect, BOOL erase);
WINSIM_API BOOL WINAPI RedrawWindow(HWND window, const RECT* rect, HRGN region, UINT flags);
WINSIM_API BOOL WINAPI ValidateRect(HWND window, const RECT* rect);
WINSIM_API BOOL WINAPI GetUpdateRect(HWND window, RECT* rect, BOOL erase);
WINSIM_API BOOL WINAPI UpdateWindow(HWND window);

WINSIM_API LRESULT WINAPI DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
WINSIM_API LRESULT WINAPI CallWindowProcW(WNDPROC procedure, HWND window, UINT message,
                                          WPARAM wParam, LPARAM lParam);
WINSIM_API LRESULT WINAPI SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
WINSIM_API BOOL WINAPI PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
WINSIM_API BOOL WINAPI PeekMessageW(MSG* message, HWND window, UINT first, UINT last, UINT remove);
WINSIM_API BOOL WINAPI TranslateMessage(const MSG* message);
WINSIM_API LRESULT WINAPI DispatchMessageW(const MSG* message);
WINSIM_API DWORD WINAPI GetMessagePos();

WINSIM_API HWND WINAPI SetFocus(HWND window);
WINSIM_API HWND WINAPI GetFocus();
WINSIM_API SHORT WINAPI GetKeyState(int key);
WINSIM_API BOOL WINAPI SetKeyboardState(BYTE* keys);

WINSIM_API BOOL WINAPI GetScrollInfo(HWND window, int bar, SCROLLINFO* info);
WINSIM_API int WINAPI SetScrollInfo(HWND window, int bar, const SCROLLINFO* info, BOOL redraw);

WINSIM_API HMENU WINAPI CreatePopupMenu();
WINSIM_API BOOL WINAPI DestroyMenu(HMENU menu);
WINSIM_API int WINAPI GetMenuItemCount(HMENU menu);
WINSIM_API BOOL WINAPI TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int reserved,
                                      HWND owner, const RECT* rect);

WINSIM_API HCURSOR WINAPI LoadCursorW(HINSTANCE module, LPCWSTR name);
WINSIM_API HICON WINAPI CreateIconIndirect(ICONINFO* info);
WINSIM_API BOOL WINAPI GetIconInfo(HICON icon, ICONINFO* info);
WINSIM_API BOOL WINAPI DestroyIcon(HICON icon);
