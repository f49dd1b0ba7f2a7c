#include "directory_reader.h"

#include <windows.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "paths.h"

namespace demo {
namespace {

struct CloseFind {
  void operator()(HANDLE find) const { FindClose(find); }
};
using FindOwner = std::unique_ptr<void, CloseFind>;

std::uint64_t Number(DWORD high, DWORD low) {
  return (static_cast<std::uint64_t>(high) << 32) | low;
}

bool IsFolder(DWORD attributes) {
  constexpr DWORD kBoth = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
  return (attributes & kBoth) == FILE_ATTRIBUTE_DIRECTORY;
}

Entry EntryOf(const WIN32_FIND_DATAW& found) {
  Entry entry;
  entry.name = found.cFileName;
  entry.directory = IsFolder(found.dwFileAttributes);
  if (!entry.directory) entry.size = Number(found.nFileSizeHigh, found.nFileSizeLow);
  entry.modified =
      Number(found.ftLastWriteTime.dwHighDateTime, found.ftLastWriteTime.dwLowDateTime);
  return entry;
}

class Reader {
 public:
  Reader(const ReadLimits& readLimits, DirectoryModel& readModel)
      : limits(readLimits), model(readModel) {}

  // False if the folder cannot be read.
  bool ReadChildren(EntryIndex folder) {
    const std::wstring pattern = Join(LongPath(model.PathOf(folder)), L"*");
    WIN32_FIND_DATAW found{};
    const HANDLE handle =
        FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &found, FindExSearchNameMatch, nullptr,
                         FIND_FIRST_EX_LARGE_FETCH);
    // A drive's empty root folder does not even have the entry ".".
    if (handle == INVALID_HANDLE_VALUE) return GetLastError() == ERROR_FILE_NOT_FOUND;
    const FindOwner owner(handle);
    do {
      if (!IsWanted(found.cFileName)) continue;
      if (model.Count() >= limits.entries) {
        model.SetCutShort();
        break;
      }
      model.Add(folder, EntryOf(found));
    } while (FindNextFileW(handle, &found));
    return true;
  }

 private:
  bool IsWanted(std::wstring_view name) const {
    if (name == L"." || name == L"..") return false;
    return std::find(limits.skip.begin(), limits.skip.end(), name) == limits.skip.end();
  }

  const ReadLimits& limits;
  DirectoryModel& model;
};

}  // namespace

std::string ReadDirectory(const std::wstring& directory, const ReadLimits& limits,
                          const ReadProgress& progress, DirectoryModel& model) {
  WIN32_FILE_ATTRIBUTE_DATA info{};
  if (!GetFileAttributesExW(LongPath(directory).c_str(), GetFileExInfoStandard, &info)) {
    return "does not exist";
  }
  if ((info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) return "is not a directory";
  model.Reset(directory);
  model.At(0).modified =
      Number(info.ftLastWriteTime.dwHighDateTime, info.ftLastWriteTime.dwLowDateTime);
  Reader reader(limits, model);
  std::vector<int> depths{0};
  for (EntryIndex index = 0; index < model.Count(); ++index) {
    if (!model.At(index).directory) continue;
    if (depths[index] >= limits.depth) {
      model.SetCutShort();
      continue;
    }
    model.At(index).readable = reader.ReadChildren(index);
    if (index == 0 && !model.At(0).readable) return "cannot be read";
    depths.resize(model.Count(), depths[index] + 1);
    if (progress && !progress(model.Count())) return "was not read to the end";
  }
  model.Sort(Column::Name, false);
  return {};
}

}  // namespace demo
