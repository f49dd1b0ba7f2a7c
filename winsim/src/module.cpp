// Modules. A module's handle is the address at which the loader put it; the common controls are
// the stand-in itself.
#include <dlfcn.h>
#include <link.h>

#include <algorithm>
#include <filesystem>

#include <windows.h>

#include "text.h"

namespace winsim {
namespace {

HMODULE ModuleAt(const void* address) {
  Dl_info info = {};
  return dladdr(address, &info) ? reinterpret_cast<HMODULE>(info.dli_fbase) : nullptr;
}

HMODULE OwnModule() { return ModuleAt(reinterpret_cast<const void*>(&ModuleAt)); }

// The program comes first in the loader's list.
HMODULE MainModule() {
  const void* address = nullptr;
  dl_iterate_phdr(
      [](dl_phdr_info* program, std::size_t, void* result) {
        const auto base = program->dlpi_addr + program->dlpi_phdr[0].p_vaddr;
        *static_cast<const void**>(result) = reinterpret_cast<const void*>(base);
        return 1;
      },
      &address);
  return ModuleAt(address);
}

bool PathOf(HMODULE module, std::string* path) {
  if (!module || module == MainModule()) {
    *path = std::filesystem::read_symlink("/proc/self/exe").string();
    return true;
  }
  Dl_info info = {};
  if (!dladdr(reinterpret_cast<const void*>(module), &info) || !info.dli_fname) {
    return false;
  }
  *path = info.dli_fname;
  return true;
}

}  // namespace
}  // namespace winsim

using namespace winsim;

// Only the program itself is asked for.
HMODULE WINAPI GetModuleHandleW(LPCWSTR) { return MainModule(); }

// The name is an address in the module that is asked for.
BOOL WINAPI GetModuleHandleExW(DWORD, LPCWSTR name, HMODULE* module) {
  *module = ModuleAt(name);
  if (!*module) {
    SetLastError(ERROR_MOD_NOT_FOUND);
  }
  return *module != nullptr;
}

DWORD WINAPI GetModuleFileNameW(HMODULE module, LPWSTR name, DWORD size) {
  std::string path;
  if (!PathOf(module, &path)) {
    SetLastError(ERROR_MOD_NOT_FOUND);
    return 0;
  }
  const std::u16string text = ToUtf16(path);
  if (size == 0) {
    return 0;
  }
  const std::size_t length = std::min(text.size(), static_cast<std::size_t>(size - 1));
  name[text.copy(name, length)] = 0;
  if (text.size() >= size) {
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return size;
  }
  return static_cast<DWORD>(length);
}

HMODULE WINAPI LoadLibraryW(LPCWSTR name) {
  if (ToLower(name) == u"comctl32.dll") {
    return OwnModule();
  }
  SetLastError(ERROR_MOD_NOT_FOUND);
  return nullptr;
}

FARPROC WINAPI GetProcAddress(HMODULE module, LPCSTR name) {
  Dl_info info = {};
  void* library = dladdr(reinterpret_cast<const void*>(module), &info)
                      ? dlopen(info.dli_fname, RTLD_NOW | RTLD_NOLOAD)
                      : nullptr;
  void* found = library ? dlsym(library, name) : nullptr;
  if (library) {
    dlclose(library);
  }
  if (!found) {
    SetLastError(ERROR_PROC_NOT_FOUND);
  }
  return reinterpret_cast<FARPROC>(found);
}

BOOL WINAPI DisableThreadLibraryCalls(HMODULE module) { return module != nullptr; }
