#include "platform/activation_context.h"

#include <algorithm>
#include <iterator>

namespace activation {
namespace {

// The library's own manifest has number 2 and only states the execution level. So there is usually
// no manifest of this number, and the context is null.
constexpr WORD kManifestNumber = 3;
constexpr DWORD kPathCapacity = 261;
constexpr const WCHAR* kCommonControls = TEXT("Comctl32.dll");

// INVALID_HANDLE_VALUE until determined. Null means the default context.
HANDLE activationContext = INVALID_HANDLE_VALUE;
HMODULE commonControlsModule = nullptr;

// Any address inside this module identifies the module.
LPCWSTR AddressInModule() { return reinterpret_cast<LPCWSTR>(&activationContext); }

bool MeansNoManifest(DWORD error) {
  constexpr DWORD kTolerated[] = {ERROR_FILE_NOT_FOUND,          ERROR_PATH_NOT_FOUND,
                                  ERROR_RESOURCE_DATA_NOT_FOUND, ERROR_RESOURCE_TYPE_NOT_FOUND,
                                  ERROR_RESOURCE_NAME_NOT_FOUND, ERROR_RESOURCE_LANG_NOT_FOUND};
  return std::find(std::begin(kTolerated), std::end(kTolerated), error) != std::end(kTolerated);
}

// Gets the context that the platform has for this module; null if it has none.
bool QueryModuleContext(HANDLE* context) {
  ACTIVATION_CONTEXT_BASIC_INFORMATION information = {};
  if (!QueryActCtxW(QUERY_ACTCTX_FLAG_NO_ADDREF | QUERY_ACTCTX_FLAG_ACTCTX_IS_ADDRESS,
                    &activationContext, nullptr, ActivationContextBasicInformation, &information,
                    sizeof(information), nullptr)) {
    return false;
  }
  *context = information.hActCtx;
  return true;
}

// A path that fills the buffer may be truncated, so it counts as too long.
bool ReadModulePath(HMODULE module, WCHAR (&path)[kPathCapacity]) {
  const DWORD length = GetModuleFileNameW(module, path, kPathCapacity);
  if (length >= kPathCapacity) {
    SetLastError(ERROR_BUFFER_OVERFLOW);
    return false;
  }
  return length != 0;
}

// Creates a context from the module's manifest; null if the module has no such manifest.
bool CreateModuleContext(HANDLE* context) {
  HMODULE module = nullptr;
  if (!GetModuleHandleExW(
          GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
          AddressInModule(), &module)) {
    return false;
  }
  WCHAR path[kPathCapacity] = {};
  if (!ReadModulePath(module, path)) return false;

  ACTCTXW description = {};
  description.cbSize = sizeof(description);
  description.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
  description.lpSource = path;
  description.lpResourceName = MAKEINTRESOURCEW(kManifestNumber);
  description.hModule = module;
  *context = CreateActCtxW(&description);
  if (*context != INVALID_HANDLE_VALUE) return true;

  *context = nullptr;
  return MeansNoManifest(GetLastError());
}

// If the context redirects the common controls, loads them, so that window classes of this context
// exist. The module stays loaded; its handle is not needed here.
void KeepCommonControlsResident() {
  const LibraryContext context;
  if (!context.IsActive()) return;
  ACTCTX_SECTION_KEYED_DATA entry = {};
  entry.cbSize = sizeof(entry);
  if (FindActCtxSectionStringW(0, nullptr, ACTIVATION_CONTEXT_SECTION_DLL_REDIRECTION,
                               kCommonControls, &entry)) {
    LoadLibraryW(kCommonControls);
  }
}

HMODULE CommonControls() {
  if (!commonControlsModule) commonControlsModule = LoadLibraryW(kCommonControls);
  return commonControlsModule;
}

}  // namespace

bool EnsureActivationContext() {
  if (activationContext != INVALID_HANDLE_VALUE) return true;

  HANDLE context = nullptr;
  if (!QueryModuleContext(&context)) return false;
  if (!context && !CreateModuleContext(&context)) return false;
  activationContext = context;
  KeepCommonControlsResident();
  return true;
}

bool ActivateLibraryContext(ULONG_PTR* cookie) {
  return EnsureActivationContext() && ActivateActCtx(activationContext, cookie);
}

FARPROC GetCommonControlsProc(const char* name) {
  LastErrorOfFailure lastError;
  const LibraryContext context;
  if (!context.IsActive()) return nullptr;

  const HMODULE module = CommonControls();
  const FARPROC found = module ? GetProcAddress(module, name) : nullptr;
  if (!found) lastError.Keep();
  return found;
}

LibraryContext::~LibraryContext() {
  if (active) DeactivateActCtx(0, cookie);
}

void LastErrorOfFailure::Keep() {
  error = GetLastError();
  kept = true;
}

LastErrorOfFailure::~LastErrorOfFailure() {
  if (kept) SetLastError(error);
}

}  // namespace activation
