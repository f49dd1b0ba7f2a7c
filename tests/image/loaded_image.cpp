#include "image/loaded_image.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

std::wstring FolderOfProgram() {
  WCHAR program[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  const std::wstring text = program;
  return text.substr(0, text.find_last_of(L'\\') + 1);
}

std::string LowerCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; });
  return text;
}

using Numbers = std::vector<WORD>;

// Names that are texts count as 0, which no resource of ours may have.
WORD NumberOf(LPCWSTR name) {
  return IS_INTRESOURCE(name) ? static_cast<WORD>(reinterpret_cast<ULONG_PTR>(name)) : WORD{0};
}

BOOL CALLBACK AddType(HMODULE, LPWSTR type, LONG_PTR numbers) {
  reinterpret_cast<Numbers*>(numbers)->push_back(NumberOf(type));
  return TRUE;
}

BOOL CALLBACK AddName(HMODULE, LPCWSTR, LPWSTR name, LONG_PTR numbers) {
  reinterpret_cast<Numbers*>(numbers)->push_back(NumberOf(name));
  return TRUE;
}

BOOL CALLBACK AddLanguage(HMODULE, LPCWSTR, LPCWSTR, WORD language, LONG_PTR numbers) {
  reinterpret_cast<Numbers*>(numbers)->push_back(language);
  return TRUE;
}

}  // namespace

LoadedImage::LoadedImage(const std::wstring& fileName)
    : path(FolderOfProgram() + fileName), base(LoadLibraryW(path.c_str())) {}

LoadedImage::~LoadedImage() {
  if (base) FreeLibrary(base);
}

WORD LoadedImage::Characteristics() const { return Header().DllCharacteristics; }

std::set<std::string> LoadedImage::ExportedNames() const {
  std::set<std::string> names;
  const auto* exports = Directory<IMAGE_EXPORT_DIRECTORY>(IMAGE_DIRECTORY_ENTRY_EXPORT);
  if (!exports) return names;
  const auto* addresses = At<DWORD>(exports->AddressOfNames);
  for (DWORD i = 0; i < exports->NumberOfNames; ++i) names.insert(At<char>(addresses[i]));
  return names;
}

std::map<std::string, std::set<std::string>> LoadedImage::Imports() const {
  std::map<std::string, std::set<std::string>> imports;
  const auto* library = Directory<IMAGE_IMPORT_DESCRIPTOR>(IMAGE_DIRECTORY_ENTRY_IMPORT);
  for (; library && library->Name; ++library) {
    auto& names = imports[LowerCase(At<char>(library->Name))];
    const auto* entry = At<IMAGE_THUNK_DATA64>(library->OriginalFirstThunk);
    for (; entry->u1.AddressOfData; ++entry) {
      const ULONGLONG value = entry->u1.Ordinal;
      names.insert(IMAGE_SNAP_BY_ORDINAL64(value)
                       ? "#" + std::to_string(IMAGE_ORDINAL64(value))
                       : At<IMAGE_IMPORT_BY_NAME>(static_cast<DWORD>(value))->Name);
    }
  }
  return imports;
}

std::vector<LoadedImage::Resource> LoadedImage::Resources() const {
  std::vector<Resource> resources;
  Numbers types;
  EnumResourceTypesW(base, AddType, reinterpret_cast<LONG_PTR>(&types));
  for (const WORD type : types) {
    Numbers names;
    EnumResourceNamesW(base, MAKEINTRESOURCEW(type), AddName, reinterpret_cast<LONG_PTR>(&names));
    for (const WORD name : names) {
      Numbers languages;
      EnumResourceLanguagesW(base, MAKEINTRESOURCEW(type), MAKEINTRESOURCEW(name), AddLanguage,
                             reinterpret_cast<LONG_PTR>(&languages));
      for (const WORD language : languages) {
        const HRSRC found =
            FindResourceExW(base, MAKEINTRESOURCEW(type), MAKEINTRESOURCEW(name), language);
        const auto* bytes = static_cast<const char*>(LockResource(LoadResource(base, found)));
        resources.push_back({type, name, std::string(bytes, SizeofResource(base, found))});
      }
    }
  }
  return resources;
}

std::string LoadedImage::FileBytes() const {
  std::ifstream file(std::filesystem::path(path), std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

const IMAGE_OPTIONAL_HEADER64& LoadedImage::Header() const {
  const auto* start = At<IMAGE_DOS_HEADER>(0);
  return At<IMAGE_NT_HEADERS64>(static_cast<DWORD>(start->e_lfanew))->OptionalHeader;
}

template <typename Record>
const Record* LoadedImage::At(DWORD address) const {
  return reinterpret_cast<const Record*>(reinterpret_cast<const BYTE*>(base) + address);
}

template <typename Record>
const Record* LoadedImage::Directory(WORD number) const {
  const DWORD address = Header().DataDirectory[number].VirtualAddress;
  return address ? At<Record>(address) : nullptr;
}
