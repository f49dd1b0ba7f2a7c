// Activation contexts. No module has a manifest, so no context is ever created.
#include <vector>

#include <windows.h>

namespace {

// The cookies of the active contexts, the newest last.
thread_local std::vector<ULONG_PTR> active;
thread_local ULONG_PTR lastCookie = 0x10000;

}  // namespace

HANDLE WINAPI CreateActCtxW(const ACTCTXW* context) {
  const bool valid = context && context->cbSize == sizeof(ACTCTXW);
  SetLastError(valid ? ERROR_RESOURCE_NAME_NOT_FOUND : ERROR_INVALID_PARAMETER);
  return INVALID_HANDLE_VALUE;
}

BOOL WINAPI ActivateActCtx(HANDLE context, ULONG_PTR* cookie) {
  if (context == INVALID_HANDLE_VALUE || !cookie) return FALSE;
  active.push_back(++lastCookie);
  *cookie = lastCookie;
  return TRUE;
}

// Only the context that was activated last can be deactivated.
BOOL WINAPI DeactivateActCtx(DWORD, ULONG_PTR cookie) {
  if (active.empty() || active.back() != cookie) return FALSE;
  active.pop_back();
  return TRUE;
}

BOOL WINAPI QueryActCtxW(DWORD, HANDLE, PVOID, ULONG infoClass, PVOID buffer, SIZE_T size,
                         SIZE_T*) {
  if (infoClass != ActivationContextBasicInformation) return FALSE;
  if (size < sizeof(ACTIVATION_CONTEXT_BASIC_INFORMATION)) return FALSE;
  *static_cast<ACTIVATION_CONTEXT_BASIC_INFORMATION*>(buffer) = {nullptr, 0};
  return TRUE;
}

BOOL WINAPI FindActCtxSectionStringW(DWORD, const GUID*, ULONG, LPCWSTR,
                                     ACTCTX_SECTION_KEYED_DATA*) {
  return FALSE;
}
