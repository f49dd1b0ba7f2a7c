#include "support/import_patch.h"

#include <dlfcn.h>
#include <elf.h>
#include <link.h>

#include <utility>

namespace {

// The library as the loader keeps it.
const link_map& Library() {
  static const void* library = dlopen("libqvl.so", RTLD_LAZY | RTLD_NOLOAD);
  return *static_cast<const link_map*>(library);
}

// An entry of the library's dynamic section; the last one, which is 0, if there is none such.
Elf64_Addr Entry(Elf64_Sxword tag) {
  const Elf64_Dyn* entry = Library().l_ld;
  while (entry->d_tag != tag && entry->d_tag != DT_NULL) ++entry;
  return entry->d_un.d_ptr;
}

// A slot that no call has used yet leads back into the library, to the code that binds it.
void Bind(void** slot, const char* name) {
  Dl_info target = {};
  dladdr(*slot, &target);
  if (target.dli_fbase == reinterpret_cast<void*>(Library().l_addr)) {
    *slot = dlsym(RTLD_DEFAULT, name);
  }
}

}  // namespace

// Functions that are called and functions whose address is taken stand in a table each.
std::vector<void**> ImportPatch::FindSlots(const std::string& name) {
  const auto* symbols = reinterpret_cast<const Elf64_Sym*>(Entry(DT_SYMTAB));
  const auto* strings = reinterpret_cast<const char*>(Entry(DT_STRTAB));
  std::vector<void**> slots;
  for (const auto& [table, size] : {std::pair{DT_JMPREL, DT_PLTRELSZ}, {DT_RELA, DT_RELASZ}}) {
    const auto* relocation = reinterpret_cast<const Elf64_Rela*>(Entry(table));
    const auto* end = relocation + Entry(size) / sizeof *relocation;
    for (; relocation != end; ++relocation) {
      const auto type = ELF64_R_TYPE(relocation->r_info);
      const Elf64_Sym& symbol = symbols[ELF64_R_SYM(relocation->r_info)];
      const bool bound = type == R_X86_64_JUMP_SLOT || type == R_X86_64_GLOB_DAT;
      if (!bound || symbol.st_shndx != SHN_UNDEF || name != strings + symbol.st_name) continue;
      slots.push_back(reinterpret_cast<void**>(Library().l_addr + relocation->r_offset));
      Bind(slots.back(), name.c_str());
    }
  }
  return slots;
}
