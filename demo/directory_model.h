// A directory with all below it, read from disk once.
#ifndef DEMO_DIRECTORY_MODEL_H
#define DEMO_DIRECTORY_MODEL_H

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "text.h"

namespace demo {

struct Entry {
  std::filesystem::path path;
  WideText name;
  bool directory = false;
  bool readable = true;
  std::uintmax_t size = 0;
  std::filesystem::file_time_type modified{};
  std::size_t parent = 0;
  std::vector<std::size_t> children;
  bool ticked = false;
  bool removed = false;  // taken out of the view by the user; the file stays
};

enum class Column { Name = 0, Size = 1, Modified = 2 };

class DirectoryModel {
 public:
  struct Limits {
    std::vector<std::string> skip;  // names passed over
    std::size_t entries = 200'000;  // reading stops here
    int depth = 32;                 // a link that leads back up can't be told from a folder
  };
  using Progress = std::function<void(std::size_t entriesRead)>;

  // Reads `directory`. False if it is missing, no directory or can't be opened; then Error tells.
  bool Read(const std::filesystem::path& directory, const Limits& limits, const Progress& progress);

  const std::string& Error() const { return error; }

  // Whether a limit cut the reading short.
  bool IsCutShort() const { return cutShort; }

  // Entry 0 is the directory itself. Parents stand before their children.
  std::size_t Size() const { return entries.size(); }
  const Entry& At(std::size_t index) const { return entries[index]; }
  Entry& At(std::size_t index) { return entries[index]; }

  // Path of an entry below the directory, with forward slashes; "." for the directory.
  std::string RelativeName(std::size_t index) const;

  // The entry of that relative name, or Size() if there is none.
  std::size_t Find(const std::string& relativeName) const;

  // Orders the children of every directory, directories first.
  void Sort(Column column, bool descending);

  // Gives an entry a new name, and all below it the paths that follow from it.
  void Rename(std::size_t index, const WideText& name);

 private:
  bool ReadChildren(std::size_t index, const Limits& limits);
  void Add(std::size_t parent, const std::filesystem::directory_entry& found);
  bool Precedes(std::size_t left, std::size_t right, Column column, bool descending) const;

  std::vector<Entry> entries;
  std::string error;
  bool cutShort = false;
};

}  // namespace demo

#endif
