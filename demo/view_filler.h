// Turns entries into items.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "directory_model.h"
#include "qvl_host.h"

namespace demo {

constexpr std::uint32_t kTreeStyle = QVLS_SHOWSELALWAYS | QVLS_CHECKBOXES | QVLS_HASBUTTONS |
                                     QVLS_HASLINES | QVLS_LINESATROOT | QVLS_INFOTIP;
constexpr std::uint32_t kListStyle =
    QVLS_LISTVIEW | QVLS_SHOWSELALWAYS | QVLS_CHECKBOXES | QVLS_INFOTIP | QVLS_SORTHEADER;

class ViewFiller {
 public:
  using Progress = std::function<void(std::size_t done)>;

  // All outlive the filler.
  ViewFiller(IQVLTreeView& filledView, const DirectoryModel& shownModel)
      : view(filledView), model(shownModel) {}

  // To be called after each Create of the view.
  void UseShellIcons();

  // Fills an empty view with all entries that are not removed. The root of a tree is expanded; in a
  // list the rows below a directory follow it, indented. `progress` may be empty.
  void Fill(const Progress& progress);

  // Adds one entry below its parent's item: in a tree as the last child, in a list as the last row.
  // Nothing if the entry's parent has no item.
  void Insert(EntryIndex entry);

  // Shows the entry's values as they are now.
  void Update(EntryIndex entry);

  // The item of an entry; -1 if it has none. In a list it is right until rows are deleted or move.
  ItemHandle ItemOf(EntryIndex entry) const;

  // Notes where the rows of a list are now.
  void FindRows();

  // Deletes the item, in a tree with all below it. In a list ItemOf is wrong for the rows that
  // follow until FindRows.
  bool Delete(EntryIndex entry);

 private:
  void FillRecord(EntryIndex entry);
  int DepthOf(EntryIndex entry) const;
  void ForgetBranch(EntryIndex entry);
  void SetCells(EntryIndex entry, ItemHandle row);

  IQVLTreeView& view;
  const DirectoryModel& model;
  qvl::ShellIcons icons;
  QVLTreeViewItem record;  // one for all items
  std::vector<ItemHandle> items;
};

// Checks the first files of the directory.
void CheckFirstFiles(DirectoryModel& model, int count);

}  // namespace demo
