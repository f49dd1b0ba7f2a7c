// Windows, messages, input and menus.
#pragma once

#include "wingdi.h"

#define MAKEINTRESOURCEW(id) \
  (reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(static_cast<WORD>(id))))
#define MAKEINTRESOURCE MAKEINTRESOURCEW
#define IS_INTRESOURCE(text) ((reinterpret_cast<ULONG_PTR>(text) >> 16) == 0)
#define IDC_ARROW MAKEINTRESOURCEW(32512)
#define IDC_WAIT MAKEINTRESOURCEW(32514)
#define IDC_HAND MAKEINTRESOURCEW(32649)
#define IDI_APPLICATION MAKEINTRESOURCEW(32512)

#define CS_VREDRAW 0x0001
#define CS_HREDRAW 0x0002
#define CS_DBLCLKS 0x0008

#define WS_OVERLAPPED 0x00000000L
#define WS_TABSTOP 0x00010000L
#define WS_MAXIMIZEBOX 0x00010000L
#define WS_GROUP 0x00020000L
#define WS_MINIMIZEBOX 0x00020000L
#define WS_THICKFRAME 0x00040000L
#define WS_SYSMENU 0x00080000L
#define WS_HSCROLL 0x00100000L
#define WS_VSCROLL 0x00200000L
#define WS_DLGFRAME 0x00400000L
#define WS_BORDER 0x00800000L
#define WS_CAPTION 0x00C00000L
#define WS_CLIPCHILDREN 0x02000000L
#define WS_CLIPSIBLINGS 0x04000000L
#define WS_DISABLED 0x08000000L
#define WS_VISIBLE 0x10000000L
#define WS_CHILD 0x40000000L
#define WS_POPUP 0x80000000L
#define WS_OVERLAPPEDWINDOW \
  (WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX)

#define WS_EX_NOPARENTNOTIFY 0x00000004L
#define WS_EX_ACCEPTFILES 0x00000010L
#define WS_EX_TOOLWINDOW 0x00000080L
#define WS_EX_CLIENTEDGE 0x00000200L
#define WS_EX_RTLREADING 0x00002000L
#define WS_EX_STATICEDGE 0x00020000L

#define CW_USEDEFAULT (static_cast<int>(0x80000000))
#define HWND_DESKTOP (static_cast<HWND>(nullptr))
#define HWND_MESSAGE (reinterpret_cast<HWND>(static_cast<LONG_PTR>(-3)))
#define HWND_TOP (static_cast<HWND>(nullptr))
#define HWND_TOPMOST (reinterpret_cast<HWND>(static_cast<LONG_PTR>(-1)))

#define GWLP_WNDPROC (-4)
#define GWLP_HINSTANCE (-6)
#define GWLP_HWNDPARENT (-8)
#define GWLP_ID (-12)
#define GWL_STYLE (-16)
#define GWL_EXSTYLE (-20)
#define GWLP_USERDATA (-21)

#define GW_HWNDNEXT 2
#define GW_HWNDPREV 3
#define GW_OWNER 4
#define GW_CHILD 5

#define SW_HIDE 0
#define SW_SHOWNORMAL 1
#define SW_SHOWNOACTIVATE 4
#define SW_SHOW 5
#define SW_SHOWNA 8
#define SW_SHOWDEFAULT 10

#define SWP_NOSIZE 0x0001
#define SWP_NOMOVE 0x0002
#define SWP_NOZORDER 0x0004
#define SWP_NOREDRAW 0x0008
#define SWP_NOACTIVATE 0x0010
#define SWP_FRAMECHANGED 0x0020
#define SWP_SHOWWINDOW 0x0040
#define SWP_HIDEWINDOW 0x0080

#define RDW_INVALIDATE 0x0001
#define RDW_ERASE 0x0004
#define RDW_VALIDATE 0x0008
#define RDW_ALLCHILDREN 0x0080
#define RDW_UPDATENOW 0x0100
#define RDW_FRAME 0x0400

#define PM_NOREMOVE 0x0000
#define PM_REMOVE 0x0001

#define WM_NULL 0x0000
#define WM_CREATE 0x0001
#define WM_DESTROY 0x0002
#define WM_MOVE 0x0003
#define WM_SIZE 0x0005
#define WM_ACTIVATE 0x0006
#define WM_SETFOCUS 0x0007
#define WM_KILLFOCUS 0x0008
#define WM_ENABLE 0x000A
#define WM_SETREDRAW 0x000B
#define WM_SETTEXT 0x000C
#define WM_GETTEXT 0x000D
#define WM_GETTEXTLENGTH 0x000E
#define WM_PAINT 0x000F
#define WM_CLOSE 0x0010
#define WM_QUIT 0x0012
#define WM_ERASEBKGND 0x0014
#define WM_SHOWWINDOW 0x0018
#define WM_SETCURSOR 0x0020
#define WM_DRAWITEM 0x002B
#define WM_MEASUREITEM 0x002C
#define WM_SETFONT 0x0030
#define WM_GETFONT 0x0031
#define WM_WINDOWPOSCHANGING 0x0046
#define WM_WINDOWPOSCHANGED 0x0047
#define WM_NOTIFY 0x004E
#define WM_HELP 0x0053
#define WM_NOTIFYFORMAT 0x0055
#define WM_CONTEXTMENU 0x007B
#define WM_STYLECHANGING 0x007C
#define WM_STYLECHANGED 0x007D
#define WM_NCCREATE 0x0081
#define WM_NCDESTROY 0x0082
#define WM_NCCALCSIZE 0x0083
#define WM_NCHITTEST 0x0084
#define WM_NCPAINT 0x0085
#define WM_GETDLGCODE 0x0087
#define WM_KEYFIRST 0x0100
#define WM_KEYDOWN 0x0100
#define WM_KEYUP 0x0101
#define WM_CHAR 0x0102
#define WM_SYSKEYDOWN 0x0104
#define WM_SYSKEYUP 0x0105
#define WM_KEYLAST 0x0109
#define WM_COMMAND 0x0111
#define WM_TIMER 0x0113
#define WM_HSCROLL 0x0114
#define WM_VSCROLL 0x0115
#define WM_INITMENU 0x0116
#define WM_INITMENUPOPUP 0x0117
#define WM_MENUSELECT 0x011F
#define WM_MENUCHAR 0x0120
#define WM_ENTERIDLE 0x0121
#define WM_UNINITMENUPOPUP 0x0125
#define WM_MOUSEFIRST 0x0200
#define WM_MOUSEMOVE 0x0200
#define WM_LBUTTONDOWN 0x0201
#define WM_LBUTTONUP 0x0202
#define WM_LBUTTONDBLCLK 0x0203
#define WM_RBUTTONDOWN 0x0204
#define WM_RBUTTONUP 0x0205
#define WM_RBUTTONDBLCLK 0x0206
#define WM_MBUTTONDOWN 0x0207
#define WM_MBUTTONUP 0x0208
#define WM_MOUSEWHEEL 0x020A
#define WM_MOUSELAST 0x020E
#define WM_PARENTNOTIFY 0x0210
#define WM_ENTERMENULOOP 0x0211
#define WM_EXITMENULOOP 0x0212
#define WM_CAPTURECHANGED 0x0215
#define WM_MOUSELEAVE 0x02A3
#define WM_CUT 0x0300
#define WM_COPY 0x0301
#define WM_PASTE 0x0302
#define WM_USER 0x0400
#define WM_APP 0x8000

#define EM_GETSEL 0x00B0
#define EM_SETSEL 0x00B1
#define EN_UPDATE 0x0400
#define EN_KILLFOCUS 0x0200

#define MK_LBUTTON 0x0001
#define MK_RBUTTON 0x0002
#define MK_SHIFT 0x0004
#define MK_CONTROL 0x0008
#define MK_MBUTTON 0x0010
#define MK_ALT 0x0020

#define VK_LBUTTON 0x01
#define VK_RBUTTON 0x02
#define VK_MBUTTON 0x04
#define VK_BACK 0x08
#define VK_TAB 0x09
#define VK_RETURN 0x0D
#define VK_SHIFT 0x10
#define VK_CONTROL 0x11
#define VK_MENU 0x12
#define VK_ESCAPE 0x1B
#define VK_SPACE 0x20
#define VK_PRIOR 0x21
#define VK_NEXT 0x22
#define VK_END 0x23
#define VK_HOME 0x24
#define VK_LEFT 0x25
#define VK_UP 0x26
#define VK_RIGHT 0x27
#define VK_DOWN 0x28
#define VK_INSERT 0x2D
#define VK_DELETE 0x2E
#define VK_APPS 0x5D
#define VK_MULTIPLY 0x6A
#define VK_ADD 0x6B
#define VK_SUBTRACT 0x6D
#define VK_F1 0x70
#define VK_F2 0x71
#define VK_F5 0x74
#define VK_F10 0x79
#define VK_LSHIFT 0xA0
#define VK_RSHIFT 0xA1
#define VK_LCONTROL 0xA2
#define VK_RCONTROL 0xA3
#define VK_OEM_PLUS 0xBB

#define SB_HORZ 0
#define SB_VERT 1
#define SB_CTL 2
#define SB_BOTH 3
#define SB_LINEUP 0
#define SB_LINEDOWN 1
#define SB_LINELEFT 0
#define SB_LINERIGHT 1
#define SB_PAGEUP 2
#define SB_PAGEDOWN 3
#define SB_THUMBPOSITION 4
#define SB_THUMBTRACK 5
#define SB_TOP 6
#define SB_BOTTOM 7
#define SB_ENDSCROLL 8
#define SIF_RANGE 0x0001
#define SIF_PAGE 0x0002
#define SIF_POS 0x0004
#define SIF_DISABLENOSCROLL 0x0008
#define SIF_TRACKPOS 0x0010
#define SIF_ALL (SIF_RANGE | SIF_PAGE | SIF_POS | SIF_TRACKPOS)

#define MF_BYCOMMAND 0x0000
#define MF_BYPOSITION 0x0400
#define MF_STRING 0x0000
#define MF_GRAYED 0x0001
#define MF_CHECKED 0x0008
#define MF_OWNERDRAW 0x0100
#define MF_SEPARATOR 0x0800
#define MNC_IGNORE 0
#define MNC_CLOSE 1
#define TPM_LEFTBUTTON 0x0000
#define TPM_RIGHTBUTTON 0x0002
#define TPM_NONOTIFY 0x0080
#define TPM_RETURNCMD 0x0100

#define SM_CXSCREEN 0
#define SM_CYSCREEN 1
#define SM_CXVSCROLL 2
#define SM_CYHSCROLL 3
#define SM_CYCAPTION 4
#define SM_CXBORDER 5
#define SM_CYBORDER 6
#define SM_CXEDGE 45
#define SM_CYEDGE 46
#define SM_CXSMICON 49
#define SM_CYSMICON 50
#define SM_CXDRAG 68
#define SM_CYDRAG 69

#define COLOR_WINDOW 5
#define COLOR_WINDOWTEXT 8
#define COLOR_HIGHLIGHT 13
#define COLOR_BTNFACE 15
#define COLOR_3DFACE 15

#define MB_OK 0x0000
#define MB_ICONERROR 0x0010

#define DT_LEFT 0x0000
#define DT_CENTER 0x0001
#define DT_VCENTER 0x0004
#define DT_WORDBREAK 0x0010
#define DT_SINGLELINE 0x0020

#define ES_AUTOHSCROLL 0x0080L
#define SS_LEFT 0x0000L

#define NFR_UNICODE 2
#define NF_QUERY 3

#define ICC_LISTVIEW_CLASSES 0x00000001
#define ICC_TREEVIEW_CLASSES 0x00000002

#define GR_GDIOBJECTS 0
#define GR_USEROBJECTS 1

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
