// One directory in one view, which is a tree or a list.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>
#include <vector>

#include "call_log.h"
#include "demo_client.h"
#include "directory_model.h"
#include "qvl_host.h"
#include "view_filler.h"

namespace demo {

class BrowserView {
 public:
  using Progress = ViewFiller::Progress;

  // All outlive the view.
  BrowserView(DirectoryModel& shownModel, CallLog& log, IReactions& windowReactions);

  // Makes the tree or the list inside `parent` and fills it. Boxes stay as they were.
  bool Open(HWND parent, bool asList, const RECT& area, const Progress& progress);

  IQVLTreeView& View() { return *view; }
  bool IsList() const { return qvl::IsList(*view); }
  void Move(const RECT& area);

  // Sorts the list by a column; by the same column again reverses the order.
  void SortBy(Column column);

  // Merges a later reading of the directory. Selection, boxes, expansion and scroll position stay.
  void Follow(DirectoryModel&& fresh);

  // Removes the selected items from the view. The files stay.
  void RemoveSelected();

  // Begins to edit the label of the focused item.
  void BeginRename();

  // Whether the edit of a label may begin: only by BeginRename, not by a slow second click, and not
  // for the directory itself.
  bool MayEdit(ItemHandle item) const;

  // Renames the file of the item. Result: empty, or why it is not renamed.
  std::wstring Rename(ItemHandle item, const std::wstring& name);

  void NextColors();

  static void MakeColumns(HWND listWindow);

 private:
  std::uint32_t Style(bool asList) const;
  void KeepChecks();
  ItemHandleList ItemsEverShown();
  void ApplyColors();
  void FitColumns();
  void SortItems(const std::vector<EntryIndex>& added);
  void DeleteGone(std::vector<EntryIndex> gone);

  DirectoryModel& model;
  DemoClient client;
  qvl::ViewOwner view;
  ViewFiller filler;
  bool mayRename = false;
  bool isRenameRequested = false;
  std::size_t colors = 0;
  Column sortedBy = Column::Name;
  bool isDescending = false;
};

}  // namespace demo
