// A loaded image, read through its own headers: what it exports, imports and carries.
#pragma once

#include <windows.h>

#include <map>
#include <set>
#include <string>
#include <vector>

class LoadedImage {
 public:
  // Loads the image that lies beside the running program.
  explicit LoadedImage(const std::wstring& fileName);
  ~LoadedImage();
  LoadedImage(const LoadedImage&) = delete;
  LoadedImage& operator=(const LoadedImage&) = delete;

  bool IsLoaded() const { return base != nullptr; }
  WORD Characteristics() const;
  std::set<std::string> ExportedNames() const;

  // For each library that it imports from, in lower case, the names of what it imports.
  std::map<std::string, std::set<std::string>> Imports() const;

  struct Resource {
    WORD type;
    WORD number;
    std::string bytes;
  };
  std::vector<Resource> Resources() const;

  // The file itself, as it lies on the disk.
  std::string FileBytes() const;

 private:
  const IMAGE_OPTIONAL_HEADER64& Header() const;
  template <typename Record>
  const Record* At(DWORD address) const;
  template <typename Record>
  const Record* Directory(WORD number) const;

  std::wstring path;
  HMODULE base = nullptr;
};
