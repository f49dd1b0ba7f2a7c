// Modules, memory, activation contexts and errors.
#pragma once

#include "windef.h"

#define INVALID_HANDLE_VALUE (reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1)))

#define DLL_PROCESS_ATTACH 1

#define FILE_ATTRIBUTE_NORMAL 0x00000080

#define GMEM_FIXED 0x0000

#define GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT 0x2
#define GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS 0x4

#define ACTCTX_FLAG_RESOURCE_NAME_VALID 0x008
#define ACTCTX_FLAG_HMODULE_VALID 0x080

#define QUERY_ACTCTX_FLAG_ACTCTX_IS_ADDRESS 0x00000010
#define QUERY_ACTCTX_FLAG_NO_ADDREF 0x80000000

#define ACTIVATION_CONTEXT_SECTION_DLL_REDIRECTION 2

enum ACTIVATION_CONTEXT_INFO_CLASS {
  ActivationContextBasicInformation = 1,
};

struct ACTIVATION_CONTEXT_BASIC_INFORMATION {
  HANDLE hActCtx;
  DWORD dwFlags;
};

struct ACTCTXW {
  ULONG cbSize;
  DWORD dwFlags;
  LPCWSTR lpSource;
  USHORT wProcessorArchitecture;
  WORD wLangId;
  LPCWSTR lpAssemblyDirectory;
  LPCWSTR lpResourceName;
  LPCWSTR lpApplicationName;
  HMODULE hModule;
};

struct ACTCTX_SECTION_KEYED_DATA_ASSEMBLY_METADATA {
  PVOID lpInformation;
  PVOID lpSectionBase;
  ULONG ulSectionLength;
  PVOID lpSectionGlobalDataBase;
  ULONG ulSectionGlobalDataLength;
};

struct ACTCTX_SECTION_KEYED_DATA {
  ULONG cbSize;
  ULONG ulDataFormatVersion;
  PVOID lpData;
  ULONG ulLength;
  PVOID lpSectionGlobalData;
  ULONG ulSectionGlobalDataLength;
  PVOID lpSectionBase;
  ULONG ulSectionTotalLength;
  HANDLE hActCtx;
  ULONG ulAssemblyRosterIndex;
  ULONG ulFlags;
  ACTCTX_SECTION_KEYED_DATA_ASSEMBLY_METADATA AssemblyMetadata;
};

static_assert(sizeof(ACTCTXW) == 56);
static_assert(sizeof(ACTIVATION_CONTEXT_BASIC_INFORMATION) == 16);
static_assert(sizeof(ACTCTX_SECTION_KEYED_DATA) == 112);

WINSIM_API DWORD WINAPI GetLastError();
WINSIM_API void WINAPI SetLastError(DWORD error);

WINSIM_API HGLOBAL WINAPI GlobalAlloc(UINT flags, SIZE_T bytes);
WINSIM_API HGLOBAL WINAPI GlobalFree(HGLOBAL block);
WINSIM_API LPVOID WINAPI GlobalLock(HGLOBAL block);
WINSIM_API BOOL WINAPI GlobalUnlock(HGLOBAL block);

WINSIM_API HMODULE WINAPI GetModuleHandleW(LPCWSTR name);
WINSIM_API BOOL WINAPI GetModuleHandleExW(DWORD flags, LPCWSTR name, HMODULE* module);
WINSIM_API DWORD WINAPI GetModuleFileNameW(HMODULE module, LPWSTR name, DWORD size);
WINSIM_API HMODULE WINAPI LoadLibraryW(LPCWSTR name);
WINSIM_API FARPROC WINAPI GetProcAddress(HMODULE module, LPCSTR name);
WINSIM_API BOOL WINAPI DisableThreadLibraryCalls(HMODULE module);

WINSIM_API HANDLE WINAPI CreateActCtxW(const ACTCTXW* context);
WINSIM_API BOOL WINAPI ActivateActCtx(HANDLE context, ULONG_PTR* cookie);
WINSIM_API BOOL WINAPI DeactivateActCtx(DWORD flags, ULONG_PTR cookie);
WINSIM_API BOOL WINAPI QueryActCtxW(DWORD flags, HANDLE context, PVOID subInstance, ULONG infoClass,
                                    PVOID buffer, SIZE_T size, SIZE_T* written);
WINSIM_API BOOL WINAPI FindActCtxSectionStringW(DWORD flags, const GUID* extension, ULONG section,
                                                LPCWSTR text, ACTCTX_SECTION_KEYED_DATA* data);
