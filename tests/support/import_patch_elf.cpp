#include "support/import_patch.h"

#include <dlfcn.h>
#include <elf.h>
#include <link.h>

#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string_view>

namespace {

// What the search needs of the loaded library: its place and its dynamic section.
struct LoadedLibrary {
  Elf64_Addr base = 0;
  const Elf64_Dyn* dynamic = nullptr;
  Elf64_Addr codeBegin = 0;
  Elf64_Addr codeEnd = 0;
};

int FindLibrary(dl_phdr_info* info, std::size_t, void* data) {
  if (!std::string_view(info->dlpi_name).ends_with("/libqvl.so")) {
    return 0;
  }
  auto* library = static_cast<LoadedLibrary*>(data);
  library->base = info->dlpi_addr;
  for (int i = 0; i < info->dlpi_phnum; ++i) {
    const Elf64_Phdr& segment = info->dlpi_phdr[i];
    const Elf64_Addr begin = info->dlpi_addr + segment.p_vaddr;
    if (segment.p_type == PT_DYNAMIC) {
      library->dynamic = reinterpret_cast<const Elf64_Dyn*>(begin);
    } else if (segment.p_type == PT_LOAD && (segment.p_flags & PF_X)) {
      library->codeBegin = begin;
      library->codeEnd = begin + segment.p_memsz;
    }
  }
  return 1;
}

LoadedLibrary Library() {
  LoadedLibrary library;
  dl_iterate_phdr(&FindLibrary, &library);
  if (!library.dynamic) {
    throw std::runtime_error("libqvl.so is not loaded");
  }
  return library;
}

// The value of one entry of the dynamic section, 0 if it is not there.
Elf64_Addr Entry(const LoadedLibrary& library, Elf64_Sxword tag) {
  for (const Elf64_Dyn* entry = library.dynamic; entry->d_tag != DT_NULL; ++entry) {
    if (entry->d_tag == tag) {
      return entry->d_un.d_ptr;
    }
  }
  return 0;
}

// The slots that one relocation table binds to the symbol `name`: those of calls, and those of
// functions whose address the library takes.
void CollectSlots(const LoadedLibrary& library, Elf64_Addr table, std::size_t size,
                  const std::string& name, std::vector<void**>* slots) {
  const auto* symbols = reinterpret_cast<const Elf64_Sym*>(Entry(library, DT_SYMTAB));
  const auto* strings = reinterpret_cast<const char*>(Entry(library, DT_STRTAB));
  if (!table || !symbols || !strings) {
    return;
  }
  const auto* relocations = reinterpret_cast<const Elf64_Rela*>(table);
  for (std::size_t i = 0; i < size / sizeof *relocations; ++i) {
    const auto type = ELF64_R_TYPE(relocations[i].r_info);
    const Elf64_Sym& symbol = symbols[ELF64_R_SYM(relocations[i].r_info)];
    const bool bound = type == R_X86_64_JUMP_SLOT || type == R_X86_64_GLOB_DAT;
    if (bound && symbol.st_shndx == SHN_UNDEF && name == strings + symbol.st_name) {
      slots->push_back(reinterpret_cast<void**>(library.base + relocations[i].r_offset));
    }
  }
}

std::vector<void**> FindSlots(const std::string& name) {
  const LoadedLibrary library = Library();
  std::vector<void**> slots;
  CollectSlots(library, Entry(library, DT_JMPREL), Entry(library, DT_PLTRELSZ), name, &slots);
  CollectSlots(library, Entry(library, DT_RELA), Entry(library, DT_RELASZ), name, &slots);
  return slots;
}

// A slot that no call has bound yet leads back into the library, to the code that binds it.
void* Target(void* const* slot, const char* name) {
  const LoadedLibrary library = Library();
  const auto address = reinterpret_cast<Elf64_Addr>(*slot);
  const bool unbound = address >= library.codeBegin && address < library.codeEnd;
  return unbound ? dlsym(RTLD_DEFAULT, name) : *slot;
}

}  // namespace

ImportPatch::ImportPatch(const char* name, void* replacement) : slots(FindSlots(name)) {
  if (slots.empty()) {
    throw std::runtime_error(std::string("libqvl.so does not import ") + name);
  }
  original = Target(slots.front(), name);
  for (void** slot : slots) {
    *slot = replacement;
  }
}

ImportPatch::~ImportPatch() {
  for (void** slot : slots) {
    *slot = original;
  }
}

bool LibraryImports(const std::string& name) { return !FindSlots(name).empty(); }
