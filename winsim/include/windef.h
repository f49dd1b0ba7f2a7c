// The platform's basic types, for builds without the platform. Sizes are those of a 64-bit platform
// program: LONG and DWORD have 32 bits, handles and *_PTR have 64.
#pragma once

#include <cstddef>
#include <cstdint>

#define WINSIM_DECLSPEC_dllexport __attribute__((visibility("default")))
#define WINSIM_DECLSPEC_dllimport __attribute__((visibility("default")))
#define __declspec(what) WINSIM_DECLSPEC_##what
#define __stdcall
#define __cdecl
#define WINAPI
#define CALLBACK
#define APIENTRY
#define STDMETHODCALLTYPE
#define STDAPICALLTYPE
#define CONST const
#define VOID void

// Every function of the stand-in has the platform's own symbol name.
#define WINSIM_API extern "C" __attribute__((visibility("default")))

using WCHAR = char16_t;
using TCHAR = WCHAR;
using CHAR = char;
using INT = int;
using UINT = unsigned int;
using BOOL = int;
using BYTE = std::uint8_t;
using UCHAR = std::uint8_t;
using SHORT = std::int16_t;
using USHORT = std::uint16_t;
using WORD = std::uint16_t;
using ATOM = WORD;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using DWORD = std::uint32_t;
using LONGLONG = std::int64_t;
using ULONGLONG = std::uint64_t;
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using ULONG_PTR = std::uintptr_t;
using DWORD_PTR = std::uintptr_t;
using SIZE_T = std::uintptr_t;
using WPARAM = UINT_PTR;
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;
using HRESULT = LONG;
using COLORREF = DWORD;
using LCID = DWORD;

using PVOID = void*;
using LPVOID = void*;
using LPCVOID = const void*;
using LPBYTE = BYTE*;
using LPDWORD = DWORD*;
using PULONG = ULONG*;
using LPSTR = char*;
using LPCSTR = const char*;
using PWSTR = WCHAR*;
using LPWSTR = WCHAR*;
using PCWSTR = const WCHAR*;
using LPCWSTR = const WCHAR*;
using LPTSTR = TCHAR*;
using LPCTSTR = const TCHAR*;
using LPOLESTR = WCHAR*;
using OLECHAR = WCHAR;

using HANDLE = void*;
using HGLOBAL = HANDLE;
using HLOCAL = HANDLE;

#define DECLARE_HANDLE(name) \
  struct name##__;           \
  using name = name##__*
DECLARE_HANDLE(HWND);
DECLARE_HANDLE(HINSTANCE);
DECLARE_HANDLE(HICON);
DECLARE_HANDLE(HMENU);
DECLARE_HANDLE(HDC);
DECLARE_HANDLE(HBITMAP);
DECLARE_HANDLE(HBRUSH);
DECLARE_HANDLE(HFONT);
DECLARE_HANDLE(HRGN);
DECLARE_HANDLE(HMONITOR);
using HMODULE = HINSTANCE;
using HCURSOR = HICON;
using HGDIOBJ = void*;
using FARPROC = INT_PTR(WINAPI*)();
using WNDPROC = LRESULT(CALLBACK*)(HWND, UINT, WPARAM, LPARAM);
using TIMERPROC = void(CALLBACK*)(HWND, UINT, UINT_PTR, DWORD);

#define TRUE 1
#define FALSE 0
#define MAX_PATH 260

struct POINT {
  LONG x;
  LONG y;
};
using LPPOINT = POINT*;
using POINTL = POINT;

struct SIZE {
  LONG cx;
  LONG cy;
};

struct RECT {
  LONG left;
  LONG top;
  LONG right;
  LONG bottom;
};
using LPRECT = RECT*;
using LPCRECT = const RECT*;

struct FILETIME {
  DWORD dwLowDateTime;
  DWORD dwHighDateTime;
};

struct GUID {
  std::uint32_t Data1;
  std::uint16_t Data2;
  std::uint16_t Data3;
  std::uint8_t Data4[8];
};
using IID = GUID;
using CLSID = GUID;
using REFGUID = const GUID&;
using REFIID = const IID&;
using REFCLSID = const CLSID&;

inline bool IsEqualGUID(REFGUID a, REFGUID b) {
  return __builtin_memcmp(&a, &b, sizeof(GUID)) == 0;
}
inline bool IsEqualIID(REFIID a, REFIID b) { return IsEqualGUID(a, b); }
inline bool operator==(REFGUID a, REFGUID b) { return IsEqualGUID(a, b); }
inline bool operator!=(REFGUID a, REFGUID b) { return !IsEqualGUID(a, b); }

#define MAKEWORD(low, high) \
  (static_cast<WORD>(static_cast<BYTE>(low) | (static_cast<WORD>(static_cast<BYTE>(high)) << 8)))
#define MAKELONG(low, high)                                       \
  (static_cast<LONG>(static_cast<DWORD>(static_cast<WORD>(low)) | \
                     (static_cast<DWORD>(static_cast<WORD>(high)) << 16)))
#define MAKEWPARAM(low, high) (static_cast<WPARAM>(static_cast<DWORD>(MAKELONG(low, high))))
#define MAKELPARAM(low, high) (static_cast<LPARAM>(static_cast<DWORD>(MAKELONG(low, high))))
#define MAKELRESULT(low, high) (static_cast<LRESULT>(static_cast<DWORD>(MAKELONG(low, high))))
#define LOWORD(value) (static_cast<WORD>((DWORD_PTR)(value)&0xffff))
#define HIWORD(value) (static_cast<WORD>(((DWORD_PTR)(value) >> 16) & 0xffff))
#define LOBYTE(value) (static_cast<BYTE>((DWORD_PTR)(value)&0xff))
#define HIBYTE(value) (static_cast<BYTE>(((DWORD_PTR)(value) >> 8) & 0xff))

#ifdef UNICODE
#define TEXT(quote) u##quote
#else
#define TEXT(quote) u##quote
#endif
#define OLESTR(quote) u##quote

#define RGB(r, g, b)                                    \
  (static_cast<COLORREF>(static_cast<BYTE>(r)) |        \
   (static_cast<COLORREF>(static_cast<BYTE>(g)) << 8) | \
   (static_cast<COLORREF>(static_cast<BYTE>(b)) << 16))
#define GetRValue(rgb) (static_cast<BYTE>(rgb))
#define GetGValue(rgb) (static_cast<BYTE>((rgb) >> 8))
#define GetBValue(rgb) (static_cast<BYTE>((rgb) >> 16))

#define UNREFERENCED_PARAMETER(parameter) (static_cast<void>(parameter))

static_assert(sizeof(LONG) == 4 && sizeof(DWORD) == 4 && sizeof(HANDLE) == 8);
static_assert(sizeof(GUID) == 16 && sizeof(RECT) == 16);
