#include "support/import_patch.h"

#include <windows.h>

#include <stdexcept>

namespace {

// Gives the address inside the image `base` that lies `offset` bytes from its start.
template <class T>
T* At(HMODULE base, DWORD offset) {
  return reinterpret_cast<T*>(reinterpret_cast<BYTE*>(base) + offset);
}

HMODULE Library() {
  HMODULE library = GetModuleHandleW(L"qvl.dll");
  if (!library) {
    throw std::runtime_error("qvl.dll is not loaded");
  }
  return library;
}

// The slots of one imported module, which its name table names in the same order.
void CollectSlots(HMODULE library, const IMAGE_IMPORT_DESCRIPTOR& module, const std::string& name,
                  std::vector<void**>* slots) {
  auto* names = At<IMAGE_THUNK_DATA>(library, module.OriginalFirstThunk);
  auto* addresses = At<IMAGE_THUNK_DATA>(library, module.FirstThunk);
  for (; names->u1.AddressOfData; ++names, ++addresses) {
    if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) {
      continue;
    }
    auto* entry = At<IMAGE_IMPORT_BY_NAME>(library, static_cast<DWORD>(names->u1.AddressOfData));
    if (name == reinterpret_cast<const char*>(entry->Name)) {
      slots->push_back(reinterpret_cast<void**>(&addresses->u1.Function));
    }
  }
}

std::vector<void**> FindSlots(const std::string& name) {
  HMODULE library = Library();
  auto* dos = At<IMAGE_DOS_HEADER>(library, 0);
  auto* headers = At<IMAGE_NT_HEADERS>(library, static_cast<DWORD>(dos->e_lfanew));
  const auto& imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  std::vector<void**> slots;
  if (imports.VirtualAddress) {
    auto* module = At<IMAGE_IMPORT_DESCRIPTOR>(library, imports.VirtualAddress);
    for (; module->FirstThunk; ++module) {
      CollectSlots(library, *module, name, &slots);
    }
  }
  return slots;
}

void Write(void** slot, void* target) {
  DWORD before = 0;
  if (!VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &before)) {
    throw std::runtime_error("the import table cannot be written");
  }
  *slot = target;
  VirtualProtect(slot, sizeof *slot, before, &before);
}

}  // namespace

ImportPatch::ImportPatch(const char* name, void* replacement) : slots(FindSlots(name)) {
  if (slots.empty()) {
    throw std::runtime_error(std::string("qvl.dll does not import ") + name);
  }
  original = *slots.front();
  for (void** slot : slots) {
    Write(slot, replacement);
  }
}

ImportPatch::~ImportPatch() {
  for (void** slot : slots) {
    Write(slot, original);
  }
}

bool LibraryImports(const std::string& name) { return !FindSlots(name).empty(); }
