// Activation contexts. No module here brings a manifest, so none is ever made.
#include "activation.h"

#include <vector>

#include <windows.h>

namespace winsim {
namespace {

struct Activation {
  ULONG_PTR cookie;
  HANDLE context;
};

thread_local std::vector<Activation> active;
thread_local ULONG_PTR lastCookie = 0x10000;

}  // namespace

int CountActiveContexts() { return static_cast<int>(active.size()); }

}  // namespace winsim

using namespace winsim;

HANDLE WINAPI CreateActCtxW(const ACTCTXW* context) {
  const bool valid = context && context->cbSize == sizeof(ACTCTXW);
  SetLastError(valid ? ERROR_RESOURCE_NAME_NOT_FOUND : ERROR_INVALID_PARAMETER);
  return INVALID_HANDLE_VALUE;
}

void WINAPI ReleaseActCtx(HANDLE) {}

BOOL WINAPI ActivateActCtx(HANDLE context, ULONG_PTR* cookie) {
  if (context == INVALID_HANDLE_VALUE || !cookie) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
  }
  active.push_back({++lastCookie, context});
  *cookie = lastCookie;
  return TRUE;
}

// Only the context that was activated last can be left.
BOOL WINAPI DeactivateActCtx(DWORD, ULONG_PTR cookie) {
  if (active.empty() || active.back().cookie != cookie) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
  }
  active.pop_back();
  return TRUE;
}

BOOL WINAPI GetCurrentActCtx(HANDLE* context) {
  *context = active.empty() ? nullptr : active.back().context;
  return TRUE;
}

BOOL WINAPI QueryActCtxW(DWORD, HANDLE, PVOID, ULONG infoClass, PVOID buffer, SIZE_T size,
                         SIZE_T* written) {
  constexpr SIZE_T kNeeded = sizeof(ACTIVATION_CONTEXT_BASIC_INFORMATION);
  if (infoClass != ActivationContextBasicInformation) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
  }
  if (written) {
    *written = kNeeded;
  }
  if (size < kNeeded) {
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return FALSE;
  }
  *static_cast<ACTIVATION_CONTEXT_BASIC_INFORMATION*>(buffer) = {nullptr, 0};
  return TRUE;
}

BOOL WINAPI FindActCtxSectionStringW(DWORD, const GUID*, ULONG, LPCWSTR,
                                     ACTCTX_SECTION_KEYED_DATA*) {
  SetLastError(ERROR_SXS_KEY_NOT_FOUND);
  return FALSE;
}
