// The basic types, with the sizes of a 64-bit program: LONG and DWORD have 32 bits, handles and
// *_PTR have 64.
#pragma once

#include <cstddef>
#include <cstdint>

#define WINSIM_DECLSPEC_dllexport __attribute__((visibility("default")))
#define WINSIM_DECLSPEC_dllimport __attribute__((visibility("default")))
#define __declspec(what) WINSIM_DECLSPEC_##what
#define WINAPI
#define CALLBACK
#define STDMETHODCALLTYPE

// Functions have the symbol names of the platform.
#define WINSIM_API extern "C" __attribute__((visibility("default")))

using WCHAR = char16_t;
using CHAR = char;
using UINT = unsigned int;
using BOOL = int;
using BYTE = std::uint8_t;
using SHORT = std::int16_t;
using USHORT = std::uint16_t;
using WORD = std::uint16_t;
using ATOM = WORD;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using DWORD = std::uint32_t;
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

using PVOID = void*;
using LPVOID = void*;
using LPSTR = char*;
using LPCSTR = const char*;
using LPWSTR = WCHAR*;
using LPCWSTR = const WCHAR*;

using HANDLE = void*;
using HGLOBAL = HANDLE;

#define DECLARE_HANDLE(name) \
  struct name##__;           \
  using name = name##__*
DECLARE_HANDLE(HWND);
DECLARE_HANDLE(HINSTANCE);
DECLARE_HANDLE(HICON);
DECLARE_HANDLE(HMENU);
DECLARE_HANDLE(HBITMAP);
DECLARE_HANDLE(HBRUSH);
DECLARE_HANDLE(HRGN);
using HMODULE = HINSTANCE;
using HCURSOR = HICON;
using HGDIOBJ = void*;
using FARPROC = INT_PTR(WINAPI*)();
using WNDPROC = LRESULT(CALLBACK*)(HWND, UINT, WPARAM, LPARAM);

#define TRUE 1
#define FALSE 0
#define MAX_PATH 260

struct POINT {
  LONG x;
  LONG y;
};

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

struct GUID {
  std::uint32_t Data1;
  std::uint16_t Data2;
  std::uint16_t Data3;
  std::uint8_t Data4[8];
};
using IID = GUID;
using REFGUID = const GUID&;
using REFIID = const IID&;

inline bool IsEqualGUID(REFGUID a, REFGUID b) {
  return __builtin_memcmp(&a, &b, sizeof(GUID)) == 0;
}
inline bool IsEqualIID(REFIID a, REFIID b) { return IsEqualGUID(a, b); }
inline bool operator==(REFGUID a, REFGUID b) { return IsEqualGUID(a, b); }
inline bool operator!=(REFGUID a, REFGUID b) { return !IsEqualGUID(a, b); }

#define MAKELPARAM(low, high)                                       \
  (static_cast<LPARAM>(static_cast<DWORD>(static_cast<WORD>(low)) | \
                       (static_cast<DWORD>(static_cast<WORD>(high)) << 16)))
#define LOWORD(value) (static_cast<WORD>((DWORD_PTR)(value)&0xffff))
#define HIWORD(value) (static_cast<WORD>(((DWORD_PTR)(value) >> 16) & 0xffff))

#define TEXT(quote) u##quote

#define RGB(r, g, b)                                    \
  (static_cast<COLORREF>(static_cast<BYTE>(r)) |        \
   (static_cast<COLORREF>(static_cast<BYTE>(g)) << 8) | \
   (static_cast<COLORREF>(static_cast<BYTE>(b)) << 16))

static_assert(sizeof(LONG) == 4 && sizeof(DWORD) == 4 && sizeof(HANDLE) == 8);
static_assert(sizeof(GUID) == 16 && sizeof(RECT) == 16);
