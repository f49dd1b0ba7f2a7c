// One directory in one view, which is a tree or a list.
#ifndef DEMO_BROWSER_VIEW_H
#define DEMO_BROWSER_VIEW_H

#include <windows.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "call_log.h"
#include "demo_client.h"
#include "directory_model.h"
#include "qvl.h"

namespace demo {

class BrowserView {
 public:
  using Progress = std::function<void(std::size_t done)>;

  // All outlive the view.
  BrowserView(DirectoryModel& model, CallLog& log, IDesk& desk);

  // Makes the tree or the list inside `parent` and fills it. What it showed before goes; ticked
  // boxes stay ticked.
  bool Open(HWND parent, bool asList, const RECT& area, const Progress& progress);

  IQVLTreeView& View() { return *view; }
  bool IsList() const;
  void Move(const RECT& area);

  // Fills the list again, ordered by a column; by the same column again turns the order round.
  void SortBy(Column column, const Progress& progress);

  // Takes the selected items out of the view. The files stay.
  void RemoveSelected();

  // Begins to edit the label of the caret's item.
  void BeginRename();

  // Whether the edit of a label may begin: only as BeginRename asked, not by a slow second click,
  // and not of the directory's own.
  bool MayEdit(const NMTVDISPINFOW& record) const;

  // Renames the file behind the label. False if there is no new name or the disk refuses it.
  bool TakeLabel(const NMTVDISPINFOW& record);

  void NextColours();

  void MakeColumns(HWND listWindow, const RECT& clientRect) const;

  std::vector<ItemHandle> SelectedItems();

 private:
  struct Release {
    void operator()(IQVLTreeView* held) const { ReleaseIQVLTreeView(held); }
  };

  std::uint32_t Style(bool asList) const;
  void KeepTicks();
  ItemHandleList ItemsEverShown();
  void Fill(const Progress& progress);
  void ShowFolderIcon(ItemHandle item);
  void ApplyColours();

  DirectoryModel& model;
  DemoClient client;
  std::unique_ptr<IQVLTreeView, Release> view;
  bool mayRename = false;
  bool renameAsked = false;
  int folderIcon = -1;
  std::size_t colours = 0;
  Column sortedBy = Column::Name;
  bool descending = false;
};

}  // namespace demo

#endif
