#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "qvl.h"

using Lines = std::vector<std::string>;

// A client that logs one line for each callback and returns what the test's functions return:
//
//   ContextMenu 10,20 a 0x0080     InfoTip a 0x0080       BeginDrag a b
//   CreateColumns 200x100          ShellContextMenu a b   EditBegins
//   Begin                          Changed a              End
//   ColumnClick 1                  Expanded a             EditEnds
//
// An item has its label, or its number if it has none. Every callback checks the view that it gets,
// and every End checks that a Begin came before it.
class RecordingClient final : public IQVLTreeViewClient {
 public:
  // The callbacks since the last Take, oldest first.
  Lines Take() { return std::exchange(lines, {}); }

  // The item as the lines call it.
  std::string Name(ItemHandle item) const {
    const auto found = labels.find(item);
    return found != labels.end() ? found->second : std::to_string(item);
  }

  // The view that every callback has to get.
  IQVLTreeView* view = nullptr;
  std::map<ItemHandle, std::string> labels;

  // Begins without their End so far.
  int depth = 0;

  // Called after the line is logged. Without a function the result is false.
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
    Log(from,
        "ContextMenu " + std::to_string(x) + "," + std::to_string(y) + " " + Name(item) +
            Hex(hitFlags),
        onContextMenu, x, y, item, hitFlags);
  }

  bool OnGetInfoTip(IQVLTreeView* from, ItemHandle item, WCHAR** text, int* length,
                    std::uint32_t hitFlags) override {
    EXPECT_EQ(*text, nullptr);
    EXPECT_EQ(*length, 0);
    return Log(from, "InfoTip " + Name(item) + Hex(hitFlags), onGetInfoTip, item, text, length);
  }

  bool OnBeginDrag(IQVLTreeView* from, ItemHandleList* items, FileNameList* files) override {
    EXPECT_TRUE(files->empty());
    return Log(from, "BeginDrag" + Names(*items), onBeginDrag, items, files);
  }

  bool OnCreateColumns(IQVLTreeView* from, HWND listWindow, RECT* area) override {
    const std::string size =
        std::to_string(area->right - area->left) + "x" + std::to_string(area->bottom - area->top);
    return Log(from, "CreateColumns " + size, onCreateColumns, listWindow, area);
  }

  bool OnShellContextMenu(IQVLTreeView* from, ItemHandleList* items, FileNameList* files) override {
    EXPECT_TRUE(files->empty());
    return Log(from, "ShellContextMenu" + Names(*items), onShellContextMenu, items, files);
  }

  bool OnLabelEdit(IQVLTreeView* from, NMHDR* record, std::uint32_t code) override {
    EXPECT_EQ(static_cast<std::uint32_t>(record->code), code);
    const bool begins = code == TVN_BEGINLABELEDITW || code == LVN_BEGINLABELEDITW;
    return Log(from, begins ? "EditBegins" : "EditEnds", onLabelEdit, record, code);
  }

  void OnBeginSelectionChange(IQVLTreeView* from) override {
    ++depth;
    Log(from, "Begin", onBeginSelectionChange);
  }

  void OnItemSelectionChanged(IQVLTreeView* from, ItemHandle item) override {
    Log(from, "Changed " + Name(item), onItemSelectionChanged, item);
  }

  void OnEndSelectionChange(IQVLTreeView* from) override {
    EXPECT_GT(depth, 0) << "an End without its Begin";
    --depth;
    Log(from, "End", onEndSelectionChange);
  }

  void OnColumnClick(IQVLTreeView* from, int column) override {
    Log(from, "ColumnClick " + std::to_string(column), onColumnClick, column);
  }

  void OnItemExpanded(IQVLTreeView* from, ItemHandle item) override {
    Log(from, "Expanded " + Name(item), onItemExpanded, item);
  }

 private:
  // The function is a copy, so that it may replace itself while it runs.
  template <class Result, class... Arguments>
  Result Log(IQVLTreeView* from, std::string line, std::function<Result(Arguments...)> answer,
             std::type_identity_t<Arguments>... arguments) {
    EXPECT_EQ(from, view) << "in " << line;
    lines.push_back(std::move(line));
    return answer ? answer(arguments...) : Result();
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

  Lines lines;
};
