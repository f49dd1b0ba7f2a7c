#include "directory_model.h"

#include <windows.h>

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "paths.h"
#include "text.h"

namespace demo {
namespace {

int CompareNames(const std::wstring& left, const std::wstring& right) {
  const int order = CompareStringOrdinal(left.c_str(), -1, right.c_str(), -1, TRUE);
  return order != CSTR_EQUAL ? order - CSTR_EQUAL : left.compare(right);
}

int Compare(std::uint64_t left, std::uint64_t right) { return (left > right) - (left < right); }

int CompareBy(Column column, const Entry& left, const Entry& right) {
  if (column == Column::Size) return Compare(left.size, right.size);
  if (column == Column::Modified) return Compare(left.modified, right.modified);
  return 0;
}

}  // namespace

void DirectoryModel::Reset(const std::wstring& directory) {
  root = directory;
  entries.clear();
  gone.clear();
  unused.clear();
  cutShort = false;
  Entry entry;
  entry.name = FileName(directory);
  entry.directory = true;
  entries.push_back(std::move(entry));
}

EntryIndex DirectoryModel::NewIndex() {
  if (unused.empty()) {
    entries.emplace_back();
    return static_cast<EntryIndex>(entries.size() - 1);
  }
  const EntryIndex index = unused.back();
  unused.pop_back();
  return index;
}

EntryIndex DirectoryModel::Add(EntryIndex parent, Entry entry) {
  const EntryIndex index = NewIndex();
  entry.parent = parent;
  entries[index] = std::move(entry);
  entries[parent].children.push_back(index);
  return index;
}

Changes DirectoryModel::Merge(DirectoryModel&& fresh) {
  Changes changes;
  for (const EntryIndex index : gone) entries[index] = {};
  unused.insert(unused.end(), gone.begin(), gone.end());
  gone.clear();
  cutShort = fresh.cutShort;
  TakeValues(0, fresh.entries[0], changes);
  pending.assign({{0, 0}});
  while (!pending.empty()) {
    const auto [index, freshIndex] = pending.back();
    pending.pop_back();
    MergeChildren(index, fresh, freshIndex, changes);
    SortChildren(index);
  }
  changes.gone = gone;
  return changes;
}

void DirectoryModel::MergeChildren(EntryIndex index, DirectoryModel& fresh, EntryIndex freshIndex,
                                   Changes& changes) {
  std::unordered_map<std::wstring, EntryIndex> former;
  for (const EntryIndex child : entries[index].children) former[entries[child].name] = child;
  entries[index].children.clear();
  for (const EntryIndex freshChild : fresh.entries[freshIndex].children) {
    Entry& found = fresh.entries[freshChild];
    const auto known = former.find(found.name);
    EntryIndex child = kNoEntry;
    if (known != former.end() && entries[known->second].directory == found.directory) {
      child = known->second;
      former.erase(known);
      entries[index].children.push_back(child);
      TakeValues(child, found, changes);
    } else {
      Entry added = found;
      added.children.clear();
      child = Add(index, std::move(added));
      changes.added.push_back(child);
    }
    if (found.directory) pending.emplace_back(child, freshChild);
  }
  for (const auto& [name, child] : former) Drop(child);
}

void DirectoryModel::TakeValues(EntryIndex index, const Entry& fresh, Changes& changes) {
  Entry& entry = entries[index];
  if (entry.size == fresh.size && entry.modified == fresh.modified &&
      entry.readable == fresh.readable) {
    return;
  }
  entry.size = fresh.size;
  entry.modified = fresh.modified;
  entry.readable = fresh.readable;
  changes.updated.push_back(index);
}

void DirectoryModel::Drop(EntryIndex index) {
  gone.push_back(index);
  entries[index].readable = true;
  for (const EntryIndex child : entries[index].children) Drop(child);
}

std::size_t DirectoryModel::UnreadableCount() const {
  return static_cast<std::size_t>(
      std::count_if(entries.begin(), entries.end(), [](const Entry& e) { return !e.readable; }));
}

std::wstring DirectoryModel::PathOf(EntryIndex index) const {
  if (index == 0) return root;
  return Join(PathOf(entries[index].parent), entries[index].name);
}

std::wstring DirectoryModel::LabelOf(EntryIndex index) const {
  const Entry& entry = entries[index];
  return entry.readable ? entry.name : entry.name + L" (cannot be read)";
}

std::string DirectoryModel::RelativeName(EntryIndex index) const {
  if (index == 0) return ".";
  const Entry& entry = entries[index];
  const std::string name = Utf8(entry.name);
  return entry.parent == 0 ? name : RelativeName(entry.parent) + "/" + name;
}

EntryIndex DirectoryModel::Find(std::string_view relativeName) const {
  EntryIndex index = 0;
  if (relativeName == ".") return index;
  const std::wstring path = Wide(relativeName);
  for (std::size_t start = 0; start <= path.size();) {
    const std::size_t end = std::min(path.find(L'/', start), path.size());
    const auto name = std::wstring_view(path).substr(start, end - start);
    const auto& children = entries[index].children;
    const auto found = std::find_if(children.begin(), children.end(),
                                    [&](EntryIndex child) { return entries[child].name == name; });
    if (found == children.end()) return kNoEntry;
    index = *found;
    start = end + 1;
  }
  return index;
}

bool DirectoryModel::Precedes(const Entry& left, const Entry& right) const {
  if (left.directory != right.directory) return left.directory;
  int order = CompareBy(sortedBy, left, right);
  if (order == 0) order = CompareNames(left.name, right.name);
  return sortedDown ? order > 0 : order < 0;
}

void DirectoryModel::SortChildren(EntryIndex index) {
  auto& children = entries[index].children;
  std::sort(children.begin(), children.end(), [this](EntryIndex left, EntryIndex right) {
    return Precedes(entries[left], entries[right]);
  });
}

void DirectoryModel::Sort(Column column, bool descending) {
  sortedBy = column;
  sortedDown = descending;
  for (std::size_t i = 0; i < entries.size(); ++i) SortChildren(static_cast<EntryIndex>(i));
}

std::vector<EntryIndex> DirectoryModel::Ranks() const {
  std::vector<EntryIndex> ranks(entries.size(), 0);
  std::vector<EntryIndex> open{0};
  for (EntryIndex rank = 0; !open.empty(); ++rank) {
    const EntryIndex index = open.back();
    open.pop_back();
    ranks[index] = rank;
    const auto& children = entries[index].children;
    open.insert(open.end(), children.rbegin(), children.rend());
  }
  return ranks;
}

}  // namespace demo
