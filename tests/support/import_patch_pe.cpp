#include "support/import_patch.h"

#include <windows.h>

namespace {

// What lies `offset` bytes from the start of the library's image.
template <class T>
T* At(ULONGLONG offset) {
  static BYTE* const library = reinterpret_cast<BYTE*>(GetModuleHandleW(L"qvl.dll"));
  return reinterpret_cast<T*>(library + offset);
}

// The first module that the library imports from; behind the last one stands an empty one.
const IMAGE_IMPORT_DESCRIPTOR* FirstModule() {
  const auto* headers = At<IMAGE_NT_HEADERS>(At<IMAGE_DOS_HEADER>(0)->e_lfanew);
  const auto& imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  return At<IMAGE_IMPORT_DESCRIPTOR>(imports.VirtualAddress);
}

}  // namespace

// The table of names and that of addresses have the same order.
std::vector<void**> ImportPatch::FindSlots(const std::string& name) {
  std::vector<void**> slots;
  for (const auto* module = FirstModule(); module->FirstThunk; ++module) {
    const auto* names = At<IMAGE_THUNK_DATA>(module->OriginalFirstThunk);
    void** slot = At<void*>(module->FirstThunk);
    for (; names->u1.AddressOfData; ++names, ++slot) {
      if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) continue;
      if (name != At<IMAGE_IMPORT_BY_NAME>(names->u1.AddressOfData)->Name) continue;
      DWORD before = 0;
      VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &before);
      slots.push_back(slot);
    }
  }
  return slots;
}
