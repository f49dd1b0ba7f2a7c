// Linked into a library of the native build: has the platform's entry called when it is loaded, as
// the platform's loader does it.
#include <windows.h>

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* reserved);

namespace {

[[gnu::constructor]] void AttachProcess() {
  HMODULE self = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<LPCWSTR>(&DllMain), &self);
  DllMain(self, DLL_PROCESS_ATTACH, nullptr);
}

}  // namespace
