#include "directory_model.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace demo {
namespace fs = std::filesystem;
namespace {

// Names are compared without regard to case where case is plain.
WCHAR Folded(WCHAR unit) {
  return unit >= 'A' && unit <= 'Z' ? static_cast<WCHAR>(unit - 'A' + 'a') : unit;
}

int CompareNames(const WideText& left, const WideText& right) {
  const auto folded = [](WCHAR a, WCHAR b) { return Folded(a) < Folded(b); };
  if (std::lexicographical_compare(left.begin(), left.end(), right.begin(), right.end(), folded)) {
    return -1;
  }
  if (std::lexicographical_compare(right.begin(), right.end(), left.begin(), left.end(), folded)) {
    return 1;
  }
  return left.compare(right);
}

template <class Value>
int Compare(const Value& left, const Value& right) {
  return left < right ? -1 : (right < left ? 1 : 0);
}

int CompareBy(Column column, const Entry& left, const Entry& right) {
  if (column == Column::Size) return Compare(left.size, right.size);
  if (column == Column::Modified) return Compare(left.modified, right.modified);
  return CompareNames(left.name, right.name);
}

Entry MakeRoot(const fs::path& directory) {
  Entry root;
  std::error_code failure;
  root.path = fs::absolute(directory, failure).lexically_normal();
  if (!root.path.has_filename()) root.path = root.path.parent_path();
  root.name = WidePath(root.path.has_filename() ? root.path.filename() : root.path);
  root.directory = true;
  root.modified = fs::last_write_time(root.path, failure);
  return root;
}

}  // namespace

bool DirectoryModel::Read(const fs::path& directory, const Limits& limits,
                          const Progress& progress) {
  entries.clear();
  error.clear();
  cutShort = false;
  std::error_code failure;
  if (!fs::is_directory(directory, failure)) {
    error = fs::exists(directory, failure) ? "is not a directory" : "does not exist";
    return false;
  }
  entries.push_back(MakeRoot(directory));
  std::vector<int> depths{0};
  for (std::size_t index = 0; index < entries.size(); ++index) {
    const bool tooDeep = depths[index] >= limits.depth;
    if (entries[index].directory && tooDeep) cutShort = true;
    if (!entries[index].directory || tooDeep) continue;
    entries[index].readable = ReadChildren(index, limits);
    if (index == 0 && !entries[0].readable) return false;
    depths.resize(entries.size(), depths[index] + 1);
    if (progress) progress(entries.size());
  }
  Sort(Column::Name, false);
  return true;
}

bool DirectoryModel::ReadChildren(std::size_t index, const Limits& limits) {
  std::error_code failure;
  const fs::path folder = entries[index].path;
  fs::directory_iterator found(folder, failure);
  if (failure) {
    error = "cannot be read: " + failure.message();
    return false;
  }
  for (; !failure && found != fs::directory_iterator(); found.increment(failure)) {
    if (entries.size() >= limits.entries) {
      cutShort = true;
      break;
    }
    const std::string name = PlainPath(found->path().filename());
    const auto& skip = limits.skip;
    if (std::find(skip.begin(), skip.end(), name) == skip.end()) Add(index, *found);
  }
  return true;
}

void DirectoryModel::Add(std::size_t parent, const fs::directory_entry& found) {
  std::error_code failure;
  Entry entry;
  entry.path = found.path();
  entry.name = WidePath(found.path().filename());
  entry.directory = found.is_directory(failure) && !found.is_symlink(failure);
  if (!entry.directory && found.is_regular_file(failure)) {
    const std::uintmax_t size = found.file_size(failure);
    entry.size = failure ? 0 : size;
  }
  const fs::file_time_type modified = found.last_write_time(failure);
  if (!failure) entry.modified = modified;
  entry.parent = parent;
  entries[parent].children.push_back(entries.size());
  entries.push_back(std::move(entry));
}

std::string DirectoryModel::RelativeName(std::size_t index) const {
  return PlainPath(entries[index].path.lexically_relative(entries[0].path));
}

std::size_t DirectoryModel::Find(const std::string& relativeName) const {
  std::size_t index = 0;
  while (index < entries.size() && RelativeName(index) != relativeName) ++index;
  return index;
}

bool DirectoryModel::Precedes(std::size_t left, std::size_t right, Column column,
                              bool descending) const {
  const Entry& one = entries[left];
  const Entry& other = entries[right];
  if (one.directory != other.directory) return one.directory;
  const int order = CompareBy(column, one, other);
  if (order != 0) return descending ? order > 0 : order < 0;
  return CompareNames(one.name, other.name) < 0;
}

void DirectoryModel::Sort(Column column, bool descending) {
  for (Entry& entry : entries) {
    std::sort(entry.children.begin(), entry.children.end(),
              [this, column, descending](std::size_t left, std::size_t right) {
                return Precedes(left, right, column, descending);
              });
  }
}

void DirectoryModel::Rename(std::size_t index, const WideText& name) {
  entries[index].name = name;
  entries[index].path.replace_filename(fs::path(name));
  for (std::size_t below = index + 1; below < entries.size(); ++below) {
    Entry& entry = entries[below];
    entry.path = entries[entry.parent].path / fs::path(entry.name);
  }
}

}  // namespace demo
