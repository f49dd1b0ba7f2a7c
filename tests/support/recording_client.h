#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "qvl.h"

using Lines = std::vector<std::string>;

// A client that writes down one line for each call it gets and answers as the test says:
//
//   ContextMenu 10,20 a 0x0080     InfoTip a 0x0080       BeginDrag a b
//   CreateColumns 200x100          ShellContextMenu a b   LabelEdit TVN_BEGINLABELEDITW
//   Begin                          Changed a              End
//   ColumnClick 1                  Expanded a
//
// An item stands under its label, or as its number if it has none. Every call checks that `view`
// is the expected one, and every End that a Begin came before it.
class RecordingClient final : public IQVLTreeViewClient {
 public:
  // The calls since the last Take, oldest first.
  Lines Take();

  // `item` in the words of the lines.
  std::string Name(ItemHandle item) const;

  // The view that every call has to name.
  IQVLTreeView* view = nullptr;
  std::map<ItemHandle, std::string> labels;

  // Begins without their End so far.
  int depth = 0;

  // Called after the line is written; a test answers and acts here. Without a function the answer
  // is false.
  std::function<void(int x, int y, ItemHandle item, std::uint32_t hitFlags)> onContextMenu;
  std::function<bool(ItemHandle item, WCHAR** text, int* length)> onGetInfoTip;
  std::function<bool(ItemHandleList* items, FileNameList* files)> onBeginDrag;
  std::function<bool(HWND listWindow, RECT* clientRect)> onCreateColumns;
  std::function<bool(ItemHandleList* items, FileNameList* files)> onShellContextMenu;
  std::function<bool(NMHDR* record, std::uint32_t code)> onLabelEdit;
  std::function<void()> onBeginSelectionChange;
  std::function<void(ItemHandle item)> onItemSelectionChanged;
  std::function<void()> onEndSelectionChange;
  std::function<void(int column)> onColumnClick;
  std::function<void(ItemHandle item)> onItemExpanded;

  void OnContextMenu(IQVLTreeView* from, int x, int y, ItemHandle item,
                     std::uint32_t hitFlags) override;
  bool OnGetInfoTip(IQVLTreeView* from, ItemHandle item, WCHAR** text, int* length,
                    std::uint32_t hitFlags) override;
  bool OnBeginDrag(IQVLTreeView* from, ItemHandleList* items, FileNameList* files) override;
  bool OnCreateColumns(IQVLTreeView* from, HWND listWindow, RECT* clientRect) override;
  bool OnShellContextMenu(IQVLTreeView* from, ItemHandleList* items, FileNameList* files) override;
  bool OnLabelEdit(IQVLTreeView* from, NMHDR* record, std::uint32_t code) override;
  void OnBeginSelectionChange(IQVLTreeView* from) override;
  void OnItemSelectionChanged(IQVLTreeView* from, ItemHandle item) override;
  void OnEndSelectionChange(IQVLTreeView* from) override;
  void OnColumnClick(IQVLTreeView* from, int column) override;
  void OnItemExpanded(IQVLTreeView* from, ItemHandle item) override;

 private:
  void Record(IQVLTreeView* from, std::string line);
  std::string Names(const ItemHandleList& items) const;

  Lines lines;
};
