// A directory with everything below it, as it was when it was last read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace demo {

using EntryIndex = std::uint32_t;
constexpr EntryIndex kNoEntry = UINT32_MAX;

struct Entry {
  std::wstring name;
  std::vector<EntryIndex> children;  // in the order of the view
  std::uint64_t size = 0;            // bytes
  std::uint64_t modified = 0;        // a FILETIME; 0 if unknown
  EntryIndex parent = kNoEntry;
  bool directory = false;
  bool readable = true;
  bool checked = false;
  bool removed = false;  // the user removed it from the view; the file stays
};

enum class Column { Name = 0, Size = 1, Modified = 2 };

// What Merge changed.
struct Changes {
  std::vector<EntryIndex> gone;     // parents before children; readable until the next Merge
  std::vector<EntryIndex> added;    // parents before children
  std::vector<EntryIndex> updated;  // with another size, time or readability

  bool IsEmpty() const { return gone.empty() && added.empty() && updated.empty(); }
};

class DirectoryModel {
 public:
  // A model with the directory alone, which is entry 0. `directory` is a full path.
  void Reset(const std::wstring& directory);

  // Adds an entry without children. `parent` is a directory.
  EntryIndex Add(EntryIndex parent, Entry entry);

  // Takes over what differs in `fresh`, a later reading of the same directory. An entry that is in
  // both keeps its index, box and removal. A later call uses the indexes of gone entries again.
  Changes Merge(DirectoryModel&& fresh);

  // Number of entries.
  std::size_t Count() const { return entries.size() - unused.size() - gone.size(); }

  // All indexes are below this.
  std::size_t IndexLimit() const { return entries.size(); }

  const Entry& At(EntryIndex index) const { return entries[index]; }
  Entry& At(EntryIndex index) { return entries[index]; }

  // Number of directories that cannot be read.
  std::size_t UnreadableCount() const;

  // Whether a limit ended the reading early.
  bool IsCutShort() const { return cutShort; }
  void SetCutShort() { cutShort = true; }

  std::wstring PathOf(EntryIndex index) const;

  // What the view shows: the name, and whether the directory cannot be read.
  std::wstring LabelOf(EntryIndex index) const;

  // Path below the directory, with forward slashes, in UTF-8; "." for the directory.
  std::string RelativeName(EntryIndex index) const;

  // The entry of that relative name, or kNoEntry.
  EntryIndex Find(std::string_view relativeName) const;

  // Puts the children of every directory into an order, directories first. Merge keeps it.
  void Sort(Column column, bool descending);

  // The place of each entry from top to bottom in a completely expanded view, by index.
  std::vector<EntryIndex> Ranks() const;

 private:
  EntryIndex NewIndex();
  void MergeChildren(EntryIndex index, DirectoryModel& fresh, EntryIndex freshIndex,
                     Changes& changes);
  void TakeValues(EntryIndex index, const Entry& fresh, Changes& changes);
  void Drop(EntryIndex index);
  void SortChildren(EntryIndex index);
  bool Precedes(const Entry& left, const Entry& right) const;

  std::wstring root;
  std::vector<Entry> entries;
  std::vector<EntryIndex> gone;                            // by the last Merge
  std::vector<EntryIndex> unused;                          // free indexes
  std::vector<std::pair<EntryIndex, EntryIndex>> pending;  // directories that Merge has yet to see
  Column sortedBy = Column::Name;
  bool sortedDown = false;
  bool cutShort = false;
};

}  // namespace demo
