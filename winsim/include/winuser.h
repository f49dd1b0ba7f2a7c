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

struct WNDCLASSEXW {
  UINT cbSize;
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
  HICON hIconSm;
};

struct CREATESTRUCTW {
  LPVOID lpCreateParams;
  HINSTANCE hInstance;
  HMENU hMenu;
  HWND hwndParent;
  int cy;
  int cx;
  int y;
  int x;
  LONG style;
  LPCWSTR lpszName;
  LPCWSTR lpszClass;
  DWORD dwExStyle;
};
using LPCREATESTRUCTW = CREATESTRUCTW*;

struct MSG {
  HWND hwnd;
  UINT message;
  WPARAM wParam;
  LPARAM lParam;
  DWORD time;
  POINT pt;
};
using LPMSG = MSG*;

struct NMHDR {
  HWND hwndFrom;
  UINT_PTR idFrom;
  UINT code;
};
using LPNMHDR = NMHDR*;

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
using LPSCROLLINFO = SCROLLINFO*;
using LPCSCROLLINFO = const SCROLLINFO*;

struct TPMPARAMS {
  UINT cbSize;
  RECT rcExclude;
};

static_assert(sizeof(SCROLLINFO) == 28);
static_assert(sizeof(WNDCLASSW) == 72 && sizeof(WNDCLASSEXW) == 80);
static_assert(sizeof(MSG) == 48 && sizeof(NMHDR) == 24 && sizeof(CREATESTRUCTW) == 80);

WINSIM_API ATOM WINAPI RegisterClassW(const WNDCLASSW* windowClass);
WINSIM_API ATOM WINAPI RegisterClassExW(const WNDCLASSEXW* windowClass);
WINSIM_API BOOL WINAPI UnregisterClassW(LPCWSTR name, HINSTANCE module);
WINSIM_API BOOL WINAPI GetClassInfoW(HINSTANCE module, LPCWSTR name, WNDCLASSW* windowClass);
WINSIM_API int WINAPI GetClassNameW(HWND window, LPWSTR name, int size);

WINSIM_API HWND WINAPI CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style,
                                       int x, int y, int width, int height, HWND parent, HMENU menu,
                                       HINSTANCE module, LPVOID parameter);
WINSIM_API BOOL WINAPI DestroyWindow(HWND window);
WINSIM_API BOOL WINAPI IsWindow(HWND window);
WINSIM_API BOOL WINAPI IsWindowVisible(HWND window);
WINSIM_API BOOL WINAPI IsWindowUnicode(HWND window);
WINSIM_API BOOL WINAPI IsChild(HWND parent, HWND window);
WINSIM_API BOOL WINAPI ShowWindow(HWND window, int command);
WINSIM_API BOOL WINAPI MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
WINSIM_API BOOL WINAPI SetWindowPos(HWND window, HWND after, int x, int y, int width, int height,
                                    UINT flags);
WINSIM_API HWND WINAPI GetParent(HWND window);
WINSIM_API HWND WINAPI SetParent(HWND window, HWND parent);
WINSIM_API HWND WINAPI GetWindow(HWND window, UINT command);
WINSIM_API HWND WINAPI FindWindowExW(HWND parent, HWND after, LPCWSTR className, LPCWSTR title);
WINSIM_API HWND WINAPI GetDlgItem(HWND window, int id);
WINSIM_API int WINAPI GetDlgCtrlID(HWND window);
WINSIM_API HWND WINAPI GetDesktopWindow();
WINSIM_API LONG_PTR WINAPI GetWindowLongPtrW(HWND window, int index);
WINSIM_API LONG_PTR WINAPI SetWindowLongPtrW(HWND window, int index, LONG_PTR value);
WINSIM_API LONG WINAPI GetWindowLongW(HWND window, int index);
WINSIM_API LONG WINAPI SetWindowLongW(HWND window, int index, LONG value);
WINSIM_API BOOL WINAPI GetWindowRect(HWND window, LPRECT rect);
WINSIM_API BOOL WINAPI GetClientRect(HWND window, LPRECT rect);
WINSIM_API BOOL WINAPI ClientToScreen(HWND window, LPPOINT point);
WINSIM_API BOOL WINAPI ScreenToClient(HWND window, LPPOINT point);
WINSIM_API int WINAPI MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count);
WINSIM_API int WINAPI GetWindowTextW(HWND window, LPWSTR text, int size);
WINSIM_API int WINAPI GetWindowTextLengthW(HWND window);
WINSIM_API BOOL WINAPI SetWindowTextW(HWND window, LPCWSTR text);
WINSIM_API BOOL WINAPI EnableWindow(HWND window, BOOL enable);
WINSIM_API BOOL WINAPI IsWindowEnabled(HWND window);
WINSIM_API DWORD WINAPI GetWindowThreadProcessId(HWND window, LPDWORD process);

WINSIM_API BOOL WINAPI InvalidateRect(HWND window, const RECT* rect, BOOL erase);
WINSIM_API BOOL WINAPI ValidateRect(HWND window, const RECT* rect);
WINSIM_API BOOL WINAPI GetUpdateRect(HWND window, LPRECT rect, BOOL erase);
WINSIM_API BOOL WINAPI UpdateWindow(HWND window);
WINSIM_API BOOL WINAPI RedrawWindow(HWND window, const RECT* rect, HRGN region, UINT flags);
WINSIM_API HDC WINAPI BeginPaint(HWND window, PAINTSTRUCT* paint);
WINSIM_API BOOL WINAPI EndPaint(HWND window, const PAINTSTRUCT* paint);
WINSIM_API DWORD WINAPI GetSysColor(int index);
WINSIM_API HBRUSH WINAPI GetSysColorBrush(int index);
WINSIM_API int WINAPI GetSystemMetrics(int index);

WINSIM_API LRESULT WINAPI DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
WINSIM_API LRESULT WINAPI CallWindowProcW(WNDPROC procedure, HWND window, UINT message,
                                          WPARAM wParam, LPARAM lParam);
WINSIM_API LRESULT WINAPI SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
WINSIM_API BOOL WINAPI PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
WINSIM_API BOOL WINAPI PeekMessageW(LPMSG message, HWND window, UINT first, UINT last, UINT remove);
WINSIM_API BOOL WINAPI GetMessageW(LPMSG message, HWND window, UINT first, UINT last);
WINSIM_API BOOL WINAPI TranslateMessage(const MSG* message);
WINSIM_API LRESULT WINAPI DispatchMessageW(const MSG* message);
WINSIM_API void WINAPI PostQuitMessage(int exitCode);
WINSIM_API DWORD WINAPI GetMessagePos();
WINSIM_API LONG WINAPI GetMessageTime();

WINSIM_API HWND WINAPI SetFocus(HWND window);
WINSIM_API HWND WINAPI GetFocus();
WINSIM_API HWND WINAPI SetCapture(HWND window);
WINSIM_API HWND WINAPI GetCapture();
WINSIM_API BOOL WINAPI ReleaseCapture();
WINSIM_API BOOL WINAPI SetForegroundWindow(HWND window);
WINSIM_API HWND WINAPI GetForegroundWindow();
WINSIM_API SHORT WINAPI GetKeyState(int key);
WINSIM_API SHORT WINAPI GetAsyncKeyState(int key);
WINSIM_API BOOL WINAPI GetKeyboardState(BYTE* keys);
WINSIM_API BOOL WINAPI SetKeyboardState(BYTE* keys);
WINSIM_API BOOL WINAPI GetCursorPos(LPPOINT point);
WINSIM_API BOOL WINAPI SetCursorPos(int x, int y);
WINSIM_API UINT WINAPI GetDoubleClickTime();

WINSIM_API BOOL WINAPI GetScrollInfo(HWND window, int bar, SCROLLINFO* info);
WINSIM_API int WINAPI SetScrollInfo(HWND window, int bar, const SCROLLINFO* info, BOOL redraw);
WINSIM_API int WINAPI GetScrollPos(HWND window, int bar);

WINSIM_API HMENU WINAPI CreatePopupMenu();
WINSIM_API BOOL WINAPI DestroyMenu(HMENU menu);
WINSIM_API BOOL WINAPI IsMenu(HMENU menu);
WINSIM_API BOOL WINAPI AppendMenuW(HMENU menu, UINT flags, UINT_PTR id, LPCWSTR text);
WINSIM_API BOOL WINAPI InsertMenuW(HMENU menu, UINT position, UINT flags, UINT_PTR id,
                                   LPCWSTR text);
WINSIM_API int WINAPI GetMenuItemCount(HMENU menu);
WINSIM_API UINT WINAPI GetMenuItemID(HMENU menu, int position);
WINSIM_API int WINAPI GetMenuStringW(HMENU menu, UINT item, LPWSTR text, int size, UINT flags);
WINSIM_API BOOL WINAPI TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int reserved,
                                      HWND owner, const RECT* rect);
WINSIM_API BOOL WINAPI EndMenu();

WINSIM_API HCURSOR WINAPI LoadCursorW(HINSTANCE module, LPCWSTR name);
WINSIM_API HICON WINAPI LoadIconW(HINSTANCE module, LPCWSTR name);
WINSIM_API HICON WINAPI CreateIcon(HINSTANCE module, int width, int height, BYTE planes,
                                   BYTE bitsPerPixel, const BYTE* andBits, const BYTE* xorBits);
WINSIM_API HICON WINAPI CreateIconIndirect(ICONINFO* info);
WINSIM_API BOOL WINAPI GetIconInfo(HICON icon, ICONINFO* info);
WINSIM_API BOOL WINAPI DestroyIcon(HICON icon);

WINSIM_API DWORD WINAPI GetGuiResources(HANDLE process, DWORD flags);

#define RegisterClass RegisterClassW
#define RegisterClassEx RegisterClassExW
#define CreateWindowEx CreateWindowExW
#define CreateWindowW(name, title, style, x, y, width, height, parent, menu, module, parameter) \
  CreateWindowExW(0, name, title, style, x, y, width, height, parent, menu, module, parameter)
#define DefWindowProc DefWindowProcW
#define CallWindowProc CallWindowProcW
#define SendMessage SendMessageW
#define PostMessage PostMessageW
#define PeekMessage PeekMessageW
#define GetMessage GetMessageW
#define DispatchMessage DispatchMessageW
#define GetWindowLongPtr GetWindowLongPtrW
#define SetWindowLongPtr SetWindowLongPtrW
#define LoadCursor LoadCursorW
#define WNDCLASS WNDCLASSW
#define WNDCLASSEX WNDCLASSEXW
