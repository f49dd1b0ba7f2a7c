#include "support/import_patch.h"

#include <dlfcn.h>
#include <elf.h>
#include <link.h>

#include <utility>

// Functions that are called and functions whose address is taken have a table each. A slot that no
// call has used yet leads to code that binds it, which works as the original too.
std::vector<void**> ImportPatch::FindSlots(const std::string& name) {
  static const void* handle = dlopen("libqvl.so", RTLD_LAZY | RTLD_NOLOAD);
  const auto& library = *static_cast<const link_map*>(handle);
  const auto entry = [&library](Elf64_Sxword tag) {
    const Elf64_Dyn* found = library.l_ld;
    while (found->d_tag != tag && found->d_tag != DT_NULL) ++found;
    return found->d_un.d_ptr;  // 0 at the end
  };
  const auto* symbols = reinterpret_cast<const Elf64_Sym*>(entry(DT_SYMTAB));
  const auto* strings = reinterpret_cast<const char*>(entry(DT_STRTAB));
  std::vector<void**> slots;
  for (const auto& [table, size] : {std::pair{DT_JMPREL, DT_PLTRELSZ}, {DT_RELA, DT_RELASZ}}) {
    const auto* relocation = reinterpret_cast<const Elf64_Rela*>(entry(table));
    const auto* end = relocation + entry(size) / sizeof *relocation;
    for (; relocation != end; ++relocation) {
      const auto type = ELF64_R_TYPE(relocation->r_info);
      const Elf64_Sym& symbol = symbols[ELF64_R_SYM(relocation->r_info)];
      const bool bound = type == R_X86_64_JUMP_SLOT || type == R_X86_64_GLOB_DAT;
      if (!bound || symbol.st_shndx != SHN_UNDEF || name != strings + symbol.st_name) continue;
      slots.push_back(reinterpret_cast<void**>(library.l_addr + relocation->r_offset));
    }
  }
  return slots;
}
