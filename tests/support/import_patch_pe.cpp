#include "support/import_patch.h"

#include <windows.h>

// The table of names and that of addresses have the same order. An empty module follows the last.
std::vector<void**> ImportPatch::FindSlots(const std::string& name) {
  static BYTE* const library = reinterpret_cast<BYTE*>(GetModuleHandleW(L"qvl.dll"));
  const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(library);
  const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(library + dos->e_lfanew);
  const auto& imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  const auto* module =
      reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(library + imports.VirtualAddress);
  std::vector<void**> slots;
  for (; module->FirstThunk; ++module) {
    const auto* import =
        reinterpret_cast<const IMAGE_THUNK_DATA*>(library + module->OriginalFirstThunk);
    auto* slot = reinterpret_cast<void**>(library + module->FirstThunk);
    for (; import->u1.AddressOfData; ++import, ++slot) {
      const auto* byName =
          reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(library + import->u1.AddressOfData);
      if (IMAGE_SNAP_BY_ORDINAL(import->u1.Ordinal) || name != byName->Name) continue;
      DWORD before = 0;
      VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &before);
      slots.push_back(slot);
    }
  }
  return slots;
}
