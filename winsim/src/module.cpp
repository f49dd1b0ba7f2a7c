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

bool IsSystemLibrary(const std::u16string& name) {
  const std::u16string lower = ToLower(name);
  for (const char16_t* known : {u"comctl32", u"user32", u"kernel32", u"shell32", u"ole32"}) {
    if (lower == known || lower == std::u16string(known) + u".dll") {
      return true;
    }
  }
  return false;
}

// A library "name.dll" is built here as "libname.so".
std::string LocalName(const std::u16string& name) {
  std::string plain = ToUtf8(name);
  const std::string ending = ".dll";
  if (plain.size() > ending.size() && ToLower(name).ends_with(u".dll")) {
    return "lib" + plain.substr(0, plain.size() - ending.size()) + ".so";
  }
  return plain;
}

HMODULE OpenLibrary(const std::u16string& name, int mode) {
  if (IsSystemLibrary(name)) {
    return OwnModule();
  }
  void* library = dlopen(LocalName(name).c_str(), RTLD_NOW | mode);
  link_map* map = nullptr;
  if (!library || dlinfo(library, RTLD_DI_LINKMAP, &map) != 0) {
    SetLastError(ERROR_MOD_NOT_FOUND);
    return nullptr;
  }
  return reinterpret_cast<HMODULE>(map->l_addr);
}

}  // namespace
}  // namespace winsim

using namespace winsim;

HMODULE WINAPI GetModuleHandleW(LPCWSTR name) {
  return name ? OpenLibrary(name, RTLD_NOLOAD) : MainModule();
}

BOOL WINAPI GetModuleHandleExW(DWORD flags, LPCWSTR name, HMODULE* module) {
  *module =
      (flags & GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS) ? ModuleAt(name) : GetModuleHandleW(name);
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

HMODULE WINAPI LoadLibraryW(LPCWSTR name) { return OpenLibrary(name, 0); }

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
