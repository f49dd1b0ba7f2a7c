// Linked into the library in the linux build. Calls DllMain when the library is loaded, as the
// platform's loader does.
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
