#pragma once

#include <windows.h>

#include <map>
#include <set>
#include <vector>

#include "support/recording_client.h"

// What a tree's selection does, told in items, caret, anchor and a set of selected items, without
// any control. It writes the lines that a RecordingClient would; `names` is that client's.
class SelectionModel {
 public:
  explicit SelectionModel(const std::map<ItemHandle, std::string>& names) : labels(names) {}

  // What the host does.
  void Insert(ItemHandle item, ItemHandle parent);
  void Delete(ItemHandle item);
  void DeleteAll();
  void Expand(ItemHandle item, bool expand);
  void SetSelected(ItemHandle item, bool value);
  void SelectAll();
  void ClearSelection();
  void InvertSelection();
  void SelectAt(ItemHandle item);

  // What the user does; item 0 is empty space.
  struct Press {
    ItemHandle hit;
    bool shift;
    bool control;
    bool onButton;
  };
  void LeftPress(const Press& press);
  void Key(WPARAM key, bool shift);

  std::vector<ItemHandle> Items() const;
  std::vector<ItemHandle> Visible() const;
  std::vector<ItemHandle> SelectedVisible() const;
  bool HasChildren(ItemHandle item) const { return !nodes.at(item).children.empty(); }
  int DepthOf(ItemHandle item) const { return item ? 1 + DepthOf(nodes.at(item).parent) : 0; }
  ItemHandle Caret() const { return caret; }
  Lines Take();

  bool multiSelect = true;
  bool heard = true;  // whether there is a client

 private:
  struct Node {
    ItemHandle parent;
    std::vector<ItemHandle> children;
    bool expanded;
    bool wasExpanded;
  };

  void Say(const std::string& line);
  void Report(ItemHandle item);
  void Set(ItemHandle item, bool value);
  bool IsSelected(ItemHandle item) const { return selected.count(item) != 0; }
  bool IsBelow(ItemHandle item, ItemHandle ancestor) const;
  void AppendVisible(std::vector<ItemHandle>& list, const std::vector<ItemHandle>& items) const;
  void Clear();

  // The control by itself.
  void MoveCaret(ItemHandle item);
  void GiveCaret(ItemHandle item);
  void ControlPress(const Press& press);
  void ControlKey(WPARAM key);
  void ControlStep(int by);
  void ControlExpand(ItemHandle item, bool expand, bool byUser);
  void Forget(ItemHandle item);

  void PlainPress(const Press& press);
  void CtrlPress(const Press& press);
  void ShiftPress(const Press& press);
  void Range(ItemHandle target);
  void ShiftArrow(int by);

  const std::map<ItemHandle, std::string>& labels;
  std::map<ItemHandle, Node> nodes;
  std::vector<ItemHandle> top;
  std::set<ItemHandle> selected;
  ItemHandle caret = 0;
  ItemHandle anchor = 0;
  Lines lines;
};
