// Modules. The handle of a module is its load address. The stand-in itself is the module of the
// common controls.
#include <dlfcn.h>
#include <link.h>

#include <filesystem>

#include <windows.h>

#include "system/text.h"

namespace winsim {
namespace {

HMODULE ModuleAt(const void* address) {
  Dl_info info = {};
  return dladdr(address, &info) ? reinterpret_cast<HMODULE>(info.dli_fbase) : nullptr;
}

HMODULE OwnModule() { return ModuleAt(reinterpret_cast<const void*>(&ModuleAt)); }

// The program is the first module that the loader lists.
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

// The only name in use is null, which means the program.
HMODULE WINAPI GetModuleHandleW(LPCWSTR) { return MainModule(); }

// The only flag in use makes the name an address inside the module.
BOOL WINAPI GetModuleHandleExW(DWORD, LPCWSTR name, HMODULE* module) {
  *module = ModuleAt(name);
  return *module != nullptr;
}

DWORD WINAPI GetModuleFileNameW(HMODULE module, LPWSTR name, DWORD size) {
  std::string path;
  if (size == 0 || !PathOf(module, &path)) return 0;
  const std::u16string text = ToUtf16(path);
  const std::size_t length = text.copy(name, size - 1);
  name[length] = 0;
  return length < text.size() ? size : static_cast<DWORD>(length);
}

HMODULE WINAPI LoadLibraryW(LPCWSTR name) {
  return ToLower(name) == u"comctl32.dll" ? OwnModule() : nullptr;
}

FARPROC WINAPI GetProcAddress(HMODULE module, LPCSTR name) {
  Dl_info info = {};
  void* library = dladdr(reinterpret_cast<const void*>(module), &info)
                      ? dlopen(info.dli_fname, RTLD_NOW | RTLD_NOLOAD)
                      : nullptr;
  if (!library) return nullptr;
  void* found = dlsym(library, name);
  dlclose(library);
  return reinterpret_cast<FARPROC>(found);
}

BOOL WINAPI DisableThreadLibraryCalls(HMODULE module) { return module != nullptr; }
