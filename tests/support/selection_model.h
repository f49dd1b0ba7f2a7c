#pragma once

#include <windows.h>

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "support/recording_client.h"

// What a tree's selection does, told in visible items, caret, anchor and a set of selected items,
// without any control. It writes the lines that a RecordingClient would; `names` is that client's.
// Item 0 is no caret, no anchor and empty space.
class SelectionModel {
 public:
  explicit SelectionModel(const std::map<ItemHandle, std::string>& names) : labels(names) {}

  bool multiSelect = true;
  bool heard = true;  // whether there is a client

  // What items there are, which are visible, and where that leaves the caret, is the control's own
  // affair; the selected bit goes along with the caret.
  void Restructure(const ItemHandleList& all, const ItemHandleList& shown, ItemHandle newCaret) {
    visible = shown;
    if (caret != newCaret) GiveCaret(newCaret);
    std::erase_if(selected, [&](ItemHandle item) { return PlaceIn(all, item) == std::ssize(all); });
  }

  Lines Take() { return std::exchange(lines, {}); }
  ItemHandle Caret() const { return caret; }
  ItemHandleList SelectedVisible() const {
    ItemHandleList items = visible;
    std::erase_if(items, [this](ItemHandle item) { return !IsSelected(item); });
    return items;
  }

  void SetSelected(ItemHandle item, bool value) {
    Say("Begin");
    Mark(item, value);
    Say("End");
  }

  void SelectAll() {
    Say("Begin");
    for (const ItemHandle item : visible) {
      if (!IsSelected(item)) Mark(item, true);
    }
    Say("End");
  }

  void ClearSelection() {
    Say("Begin");
    Clear();
    Say("End");
  }

  void InvertSelection() {
    Say("Begin");
    for (const ItemHandle item : visible) Mark(item, !IsSelected(item));
    Say("End");
  }

  void SelectAt(ItemHandle item) {
    if (!item || IsSelected(item)) return;
    Say("Begin");
    if (multiSelect) Clear();
    MoveCaret(item);
    Say("End");
  }

  // Whether the control's answer is the answer, for these two.
  bool LeftPress(ItemHandle hit, WPARAM keys) {
    if (!multiSelect || ((keys & MK_CONTROL) && !hit)) {
      ControlPress(hit);
      return true;
    }
    if (keys & MK_CONTROL) return CtrlPress(hit);
    return keys & MK_SHIFT ? ShiftPress(hit) : PlainPress(hit);
  }

  // The control takes the caret from the key to `caretAfter`, if it gets to see it.
  bool Key(WPARAM key, bool shift, ItemHandle caretAfter) {
    if (multiSelect && shift && (key == VK_UP || key == VK_DOWN)) {
      ShiftArrow(key == VK_UP ? -1 : 1);
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
  static std::ptrdiff_t PlaceIn(const ItemHandleList& items, ItemHandle item) {
    return std::find(items.begin(), items.end(), item) - items.begin();
  }

  void Say(const std::string& line) {
    if (heard) lines.push_back(line);
  }
  void Report(ItemHandle item) { Say("Changed " + (item ? labels.at(item) : "0")); }

  bool IsSelected(ItemHandle item) const { return selected.count(item) != 0; }

  void Mark(ItemHandle item, bool value) {
    if (value) {
      selected.insert(item);
    } else {
      selected.erase(item);
    }
    Report(item);
  }

  void Clear() {
    for (const ItemHandle item : SelectedVisible()) Mark(item, false);
  }

  void GiveCaret(ItemHandle item) {
    selected.erase(caret);
    caret = item;
    if (item) selected.insert(item);
  }

  void MoveCaret(ItemHandle item) {
    if (caret == item) return;
    GiveCaret(item);
    Report(item);
  }

  void ControlPress(ItemHandle hit) {
    if (hit) MoveCaret(hit);
  }

  bool PlainPress(ItemHandle hit) {
    Say("Begin");
    Clear();
    if (hit) {
      MoveCaret(0);
      MoveCaret(hit);
    }
    Say("End");
    anchor = 0;
    return true;
  }

  bool CtrlPress(ItemHandle hit) {
    const bool wanted = !IsSelected(hit);
    const ItemHandle before = caret;
    const bool beforeSelected = IsSelected(before);
    Say("Begin");
    if (before == hit) MoveCaret(0);
    ControlPress(hit);
    Mark(hit, wanted);
    if (before && before != hit) Mark(before, beforeSelected);
    anchor = 0;
    Say("End");
    return false;
  }

  bool ShiftPress(ItemHandle hit) {
    Say("Begin");
    if (!anchor) anchor = caret;
    if (caret == hit) MoveCaret(0);
    ControlPress(hit);
    if (anchor) SelectRange(hit);
    Say("End");
    return anchor == 0;
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
    Say("Begin");
    if (!anchor) {
      anchor = caret;
      Clear();
    }
    const std::ptrdiff_t next = PlaceIn(visible, caret) + by;
    if (caret && next >= 0 && next < std::ssize(visible)) {
      const ItemHandle left = caret;
      const ItemHandle entered = visible[static_cast<std::size_t>(next)];
      const bool grows = !IsSelected(entered);
      MoveCaret(entered);
      if (grows) Mark(left, true);
    }
    Say("End");
  }

  const std::map<ItemHandle, std::string>& labels;
  ItemHandleList visible;
  std::set<ItemHandle> selected;
  ItemHandle caret = 0;
  ItemHandle anchor = 0;
  Lines lines;
};
