#include "support/recording_client.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <utility>

namespace {

std::string Hex(std::uint32_t value) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%04x", static_cast<unsigned>(value));
  return text;
}

std::string CodeName(std::uint32_t code) {
  switch (code) {
    case static_cast<std::uint32_t>(TVN_BEGINLABELEDITW):
      return "TVN_BEGINLABELEDITW";
    case static_cast<std::uint32_t>(TVN_ENDLABELEDITW):
      return "TVN_ENDLABELEDITW";
    case static_cast<std::uint32_t>(LVN_BEGINLABELEDITW):
      return "LVN_BEGINLABELEDITW";
    case static_cast<std::uint32_t>(LVN_ENDLABELEDITW):
      return "LVN_ENDLABELEDITW";
    default:
      return Hex(code);
  }
}

// Calls a copy, so that a test's function may replace itself while it runs.
template <class Result, class... Arguments>
Result Answer(std::function<Result(Arguments...)> function, Arguments... arguments) {
  return function ? function(arguments...) : Result();
}

}  // namespace

Lines RecordingClient::Take() { return std::exchange(lines, {}); }

std::string RecordingClient::Name(ItemHandle item) const {
  const auto found = labels.find(item);
  return found != labels.end() ? found->second : std::to_string(item);
}

std::string RecordingClient::Names(const ItemHandleList& items) const {
  std::string names;
  for (ItemHandle item : items) {
    names += " " + Name(item);
  }
  return names;
}

void RecordingClient::Record(IQVLTreeView* from, std::string line) {
  EXPECT_EQ(from, view) << "in " << line;
  lines.push_back(std::move(line));
}

void RecordingClient::OnContextMenu(IQVLTreeView* from, int x, int y, ItemHandle item,
                                    std::uint32_t hitFlags) {
  Record(from, "ContextMenu " + std::to_string(x) + "," + std::to_string(y) + " " + Name(item) +
                   " " + Hex(hitFlags));
  Answer(onContextMenu, x, y, item, hitFlags);
}

bool RecordingClient::OnGetInfoTip(IQVLTreeView* from, ItemHandle item, WCHAR** text, int* length,
                                   std::uint32_t hitFlags) {
  Record(from, "InfoTip " + Name(item) + " " + Hex(hitFlags));
  EXPECT_EQ(*text, nullptr);
  EXPECT_EQ(*length, 0);
  return Answer(onGetInfoTip, item, text, length);
}

bool RecordingClient::OnBeginDrag(IQVLTreeView* from, ItemHandleList* items, FileNameList* files) {
  Record(from, "BeginDrag" + Names(*items));
  EXPECT_TRUE(files->empty());
  return Answer(onBeginDrag, items, files);
}

bool RecordingClient::OnCreateColumns(IQVLTreeView* from, HWND listWindow, RECT* clientRect) {
  Record(from, "CreateColumns " + std::to_string(clientRect->right - clientRect->left) + "x" +
                   std::to_string(clientRect->bottom - clientRect->top));
  return Answer(onCreateColumns, listWindow, clientRect);
}

bool RecordingClient::OnShellContextMenu(IQVLTreeView* from, ItemHandleList* items,
                                         FileNameList* files) {
  Record(from, "ShellContextMenu" + Names(*items));
  EXPECT_TRUE(files->empty());
  return Answer(onShellContextMenu, items, files);
}

bool RecordingClient::OnLabelEdit(IQVLTreeView* from, NMHDR* record, std::uint32_t code) {
  Record(from, "LabelEdit " + CodeName(code));
  EXPECT_EQ(static_cast<std::uint32_t>(record->code), code);
  return Answer(onLabelEdit, record, code);
}

void RecordingClient::OnBeginSelectionChange(IQVLTreeView* from) {
  ++depth;
  Record(from, "Begin");
  Answer(onBeginSelectionChange);
}

void RecordingClient::OnItemSelectionChanged(IQVLTreeView* from, ItemHandle item) {
  Record(from, "Changed " + Name(item));
  Answer(onItemSelectionChanged, item);
}

void RecordingClient::OnEndSelectionChange(IQVLTreeView* from) {
  EXPECT_GT(depth, 0) << "an End without its Begin";
  --depth;
  Record(from, "End");
  Answer(onEndSelectionChange);
}

void RecordingClient::OnColumnClick(IQVLTreeView* from, int column) {
  Record(from, "ColumnClick " + std::to_string(column));
  Answer(onColumnClick, column);
}

void RecordingClient::OnItemExpanded(IQVLTreeView* from, ItemHandle item) {
  Record(from, "Expanded " + Name(item));
  Answer(onItemExpanded, item);
}
