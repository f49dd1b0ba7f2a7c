#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <utility>
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
  Lines Take() { return std::exchange(lines, {}); }

  // `item` in the words of the lines.
  std::string Name(ItemHandle item) const {
    const auto found = labels.find(item);
    return found != labels.end() ? found->second : std::to_string(item);
  }

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
                     std::uint32_t hitFlags) override {
    Record(from, "ContextMenu " + std::to_string(x) + "," + std::to_string(y) + " " + Name(item) +
                     Hex(hitFlags));
    Answer(onContextMenu, x, y, item, hitFlags);
  }

  bool OnGetInfoTip(IQVLTreeView* from, ItemHandle item, WCHAR** text, int* length,
                    std::uint32_t hitFlags) override {
    Record(from, "InfoTip " + Name(item) + Hex(hitFlags));
    EXPECT_EQ(*text, nullptr);
    EXPECT_EQ(*length, 0);
    return Answer(onGetInfoTip, item, text, length);
  }

  bool OnBeginDrag(IQVLTreeView* from, ItemHandleList* items, FileNameList* files) override {
    Record(from, "BeginDrag" + Names(*items));
    EXPECT_TRUE(files->empty());
    return Answer(onBeginDrag, items, files);
  }

  bool OnCreateColumns(IQVLTreeView* from, HWND listWindow, RECT* clientRect) override {
    Record(from, "CreateColumns " + std::to_string(clientRect->right - clientRect->left) + "x" +
                     std::to_string(clientRect->bottom - clientRect->top));
    return Answer(onCreateColumns, listWindow, clientRect);
  }

  bool OnShellContextMenu(IQVLTreeView* from, ItemHandleList* items, FileNameList* files) override {
    Record(from, "ShellContextMenu" + Names(*items));
    EXPECT_TRUE(files->empty());
    return Answer(onShellContextMenu, items, files);
  }

  bool OnLabelEdit(IQVLTreeView* from, NMHDR* record, std::uint32_t code) override {
    static const std::map<std::uint32_t, std::string> NAMES = {
        {static_cast<std::uint32_t>(TVN_BEGINLABELEDITW), "TVN_BEGINLABELEDITW"},
        {static_cast<std::uint32_t>(TVN_ENDLABELEDITW), "TVN_ENDLABELEDITW"},
        {static_cast<std::uint32_t>(LVN_BEGINLABELEDITW), "LVN_BEGINLABELEDITW"},
        {static_cast<std::uint32_t>(LVN_ENDLABELEDITW), "LVN_ENDLABELEDITW"},
    };
    const auto name = NAMES.find(code);
    Record(from, "LabelEdit " + (name != NAMES.end() ? name->second : Hex(code)));
    EXPECT_EQ(static_cast<std::uint32_t>(record->code), code);
    return Answer(onLabelEdit, record, code);
  }

  void OnBeginSelectionChange(IQVLTreeView* from) override {
    ++depth;
    Record(from, "Begin");
    Answer(onBeginSelectionChange);
  }

  void OnItemSelectionChanged(IQVLTreeView* from, ItemHandle item) override {
    Record(from, "Changed " + Name(item));
    Answer(onItemSelectionChanged, item);
  }

  void OnEndSelectionChange(IQVLTreeView* from) override {
    EXPECT_GT(depth--, 0) << "an End without its Begin";
    Record(from, "End");
    Answer(onEndSelectionChange);
  }

  void OnColumnClick(IQVLTreeView* from, int column) override {
    Record(from, "ColumnClick " + std::to_string(column));
    Answer(onColumnClick, column);
  }

  void OnItemExpanded(IQVLTreeView* from, ItemHandle item) override {
    Record(from, "Expanded " + Name(item));
    Answer(onItemExpanded, item);
  }

 private:
  void Record(IQVLTreeView* from, std::string line) {
    EXPECT_EQ(from, view) << "in " << line;
    lines.push_back(std::move(line));
  }

  std::string Names(const ItemHandleList& items) const {
    std::string names;
    for (const ItemHandle item : items) names += " " + Name(item);
    return names;
  }

  static std::string Hex(std::uint32_t value) {
    char text[16];
    std::snprintf(text, sizeof text, " 0x%04x", static_cast<unsigned>(value));
    return text;
  }

  // Calls a copy, so that a test's function may replace itself while it runs.
  template <class Result, class... Arguments>
  static Result Answer(std::function<Result(Arguments...)> function, Arguments... arguments) {
    return function ? function(arguments...) : Result();
  }

  Lines lines;
};
