#pragma once

#include <windows.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "qvl.h"

// What a tree's selection does, told in visible items, caret, anchor and a set of selected items,
// without any control. It notes what a client would hear, in short and under the given names.
// Item 0 is no caret, no anchor and empty space.
class SelectionModel {
 public:
  explicit SelectionModel(const std::map<ItemHandle, std::string>& names) : labels(names) {}

  void SetMultiSelect(bool value) { multiSelect = value; }
  void SetClient(const IQVLTreeViewClient* client) { heard = client != nullptr; }

  // What items there are, which are visible, and where that leaves the caret, is the control's own
  // affair; the selected bit goes along with the caret.
  void Restructure(const ItemHandleList& all, const ItemHandleList& shown, ItemHandle newCaret) {
    visible = shown;
    MoveCaret(newCaret);
    said.clear();
    std::erase_if(selected, [&](ItemHandle item) {
      return std::find(all.begin(), all.end(), item) == all.end();
    });
  }

  std::string Take() { return std::exchange(said, {}); }
  ItemHandle Caret() const { return caret; }
  ItemHandleList SelectedVisible() const {
    ItemHandleList items = visible;
    std::erase_if(items, [this](ItemHandle item) { return !IsSelected(item); });
    return items;
  }

  void SetItemSelected(ItemHandle item, bool value) {
    Bracket([&] { Mark(item, value); });
  }

  void SelectAll() {
    Bracket([&] {
      for (const ItemHandle item : visible) {
        if (!IsSelected(item)) Mark(item, true);
      }
    });
  }

  void ClearSelection() {
    Bracket([&] { Clear(); });
  }

  void InvertSelection() {
    Bracket([&] {
      for (const ItemHandle item : visible) Mark(item, !IsSelected(item));
    });
  }

  void SelectAt(ItemHandle item) {
    if (!item || IsSelected(item)) return;
    Bracket([&] {
      if (multiSelect) Clear();
      item == caret ? Mark(item, true) : MoveCaret(item);
    });
  }

  // Whether the control's answer is the answer, for these two.
  bool LeftPress(ItemHandle hit, WPARAM keys) {
    const bool ctrl = (keys & MK_CONTROL) != 0;
    if (!multiSelect || (ctrl && !hit)) {
      if (hit) MoveCaret(hit);
      return true;
    }
    const bool shift = !ctrl && (keys & MK_SHIFT);
    Bracket([&] { ctrl ? CtrlPress(hit) : shift ? ShiftPress(hit) : PlainPress(hit); });
    if (!shift) anchor = 0;
    return !ctrl && !anchor;
  }

  // The control takes the caret from the key to `caretAfter`, if it gets to see it.
  bool Key(WPARAM key, bool shift, ItemHandle caretAfter) {
    if (multiSelect && shift && (key == VK_UP || key == VK_DOWN)) {
      Bracket([&] { ShiftArrow(key == VK_UP ? -1 : 1); });
      return false;
    }
    if (multiSelect && key >= VK_SPACE) {
      ClearSelection();
      anchor = 0;
    }
    MoveCaret(caretAfter);
    return true;
  }

 private:
  void Say(const std::string& word) {
    if (heard) said += (said.empty() ? "" : " ") + word;
  }
  void Report(ItemHandle item) { Say(item ? labels.at(item) : "0"); }

  template <class Change>
  void Bracket(Change change) {
    Say("B");
    change();
    Say("E");
  }

  bool IsSelected(ItemHandle item) const { return selected.contains(item); }

  void Mark(ItemHandle item, bool value) {
    selected.erase(item);
    if (value) selected.insert(item);
    Report(item);
  }

  void Clear() {
    for (const ItemHandle item : SelectedVisible()) Mark(item, false);
  }

  void MoveCaret(ItemHandle item) {
    if (caret == item) return;
    selected.erase(caret);
    caret = item;
    if (item) selected.insert(item);
    Report(item);
  }

  void PlainPress(ItemHandle hit) {
    Clear();
    if (!hit) return;
    MoveCaret(0);
    MoveCaret(hit);
  }

  void CtrlPress(ItemHandle hit) {
    const bool wanted = !IsSelected(hit);
    const ItemHandle before = caret;
    const bool beforeSelected = IsSelected(before);
    if (before == hit) MoveCaret(0);
    MoveCaret(hit);
    Mark(hit, wanted);
    if (before && before != hit) Mark(before, beforeSelected);
  }

  void ShiftPress(ItemHandle hit) {
    if (!anchor) anchor = caret;
    if (caret == hit) MoveCaret(0);
    if (hit) MoveCaret(hit);
    if (anchor) SelectRange(hit);
  }

  // The stretch between anchor and target, to the last item if one of them is not visible.
  void SelectRange(ItemHandle target) {
    int endsToCome = 2;
    for (const ItemHandle item : visible) {
      const bool isEnd = item == anchor || item == target;
      if (isEnd && endsToCome == 2) MoveCaret(target);
      if (isEnd) endsToCome -= anchor == target ? 2 : 1;
      Mark(item, isEnd || endsToCome == 1);
    }
  }

  void ShiftArrow(int by) {
    if (!anchor) {
      anchor = caret;
      Clear();
    }
    const auto next = std::find(visible.begin(), visible.end(), caret) - visible.begin() + by;
    if (!caret || next < 0 || next >= std::ssize(visible)) return;
    const ItemHandle left = caret;
    const ItemHandle entered = visible[static_cast<std::size_t>(next)];
    const bool grows = !IsSelected(entered);
    MoveCaret(entered);
    if (grows) Mark(left, true);
  }

  const std::map<ItemHandle, std::string>& labels;
  ItemHandleList visible;
  std::set<ItemHandle> selected;
  ItemHandle caret = 0;
  ItemHandle anchor = 0;
  bool multiSelect = true;
  bool heard = true;
  std::string said;
};
