#pragma once

#include <windows.h>

#include <algorithm>
#include <set>
#include <string>
#include <utility>

#include "support/recording_client.h"

// The selection rules of a tree without a control: visible items, caret, anchor, selected items and
// the callbacks in short. Item 0 is no caret, no anchor and empty space.
class SelectionModel {
 public:
  // The client has the names of the items.
  explicit SelectionModel(const RecordingClient& client) : names(client) {}

  void SetMultiSelect(bool value) { multiSelect = value; }
  void SetClient(const IQVLTreeViewClient* client) { hasClient = client != nullptr; }

  // The control decides which items are visible and where the caret goes when one disappears.
  void Restructure(const ItemHandleList& all, const ItemHandleList& shown, ItemHandle newCaret) {
    const auto isGone = [&](ItemHandle item) { return std::ranges::count(all, item) == 0; };
    visible = shown;
    MoveCaret(newCaret);
    std::erase_if(selected, isGone);
    if (anchor && isGone(anchor)) anchor = -1;
    callbacks.clear();
  }

  ItemHandle Caret() const { return caret; }
  std::string TakeCallbacks() { return std::exchange(callbacks, {}); }
  ItemHandleList Selected() const {
    ItemHandleList items = visible;
    std::erase_if(items, [this](ItemHandle item) { return !selected.contains(item); });
    return items;
  }

  void SetItemSelected(ItemHandle item, bool value) {
    Bracket([&] { Mark(item, value); });
  }
  void SelectAll() {
    Bracket([&] { MarkVisible([](bool) { return true; }); });
  }
  void ClearSelection() {
    Bracket([&] { Clear(); });
  }
  void InvertSelection() {
    Bracket([&] { MarkVisible([](bool value) { return !value; }); });
  }
  void SelectByHitTest(ItemHandle item) {
    if (!item || selected.contains(item)) return;
    Bracket([&] {
      if (multiSelect) Clear();
      item == caret ? Mark(item, true) : MoveCaret(item);
    });
  }

  void BeginDrag(ItemHandle item) {
    if (!hasClient) return;
    if (!multiSelect || !selected.contains(item)) {
      Bracket([&] { multiSelect ? Mark(item, true) : MoveCaret(item); });
    }
    if (!Selected().empty()) Call("BeginDrag");
    for (const ItemHandle dragged : Selected()) Call(names.Name(dragged));
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

  // The control moves the caret to `caretAfter` if it gets the key.
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
  void Call(const std::string& word) {
    if (hasClient) callbacks += (callbacks.empty() ? "" : " ") + word;
  }
  template <class Change>
  void Bracket(Change change) {
    Call("B");
    change();
    Call("E");
  }

  void Mark(ItemHandle item, bool value) {
    value ? void(selected.insert(item)) : void(selected.erase(item));
    Call(names.Name(item));
  }
  template <class Wanted>
  void MarkVisible(Wanted wanted) {
    for (const ItemHandle item : visible) {
      const bool value = selected.contains(item);
      if (wanted(value) != value) Mark(item, !value);
    }
  }
  void Clear() {
    MarkVisible([](bool) { return false; });
  }
  void MoveCaret(ItemHandle item) {
    if (caret == item) return;
    selected.erase(caret);
    caret = item;
    Mark(item, item != 0);
  }

  void PlainPress(ItemHandle hit) {
    Clear();
    if (hit) MoveCaret(0);
    MoveCaret(hit ? hit : caret);
  }

  void CtrlPress(ItemHandle hit) {
    const bool wanted = !selected.contains(hit);
    const ItemHandle before = caret;
    const bool beforeSelected = selected.contains(before);
    if (before == hit) MoveCaret(0);
    MoveCaret(hit);
    Mark(hit, wanted);
    if (before && before != hit) Mark(before, beforeSelected);
  }

  // Selects from the anchor to the target, or to the last item if one of them is not visible.
  void ShiftPress(ItemHandle target) {
    if (!anchor) anchor = caret;
    if (caret == target) MoveCaret(0);
    if (target) MoveCaret(target);
    if (!anchor) return;
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
    const auto next = std::ranges::find(visible, caret) - visible.begin() + by;
    if (!caret || next < 0 || next >= std::ssize(visible)) return;
    const ItemHandle left = caret;
    const ItemHandle entered = visible[static_cast<std::size_t>(next)];
    const bool grows = !selected.contains(entered);
    MoveCaret(entered);
    if (grows) Mark(left, true);
  }

  const RecordingClient& names;
  ItemHandleList visible;
  std::set<ItemHandle> selected;
  ItemHandle caret = 0;
  ItemHandle anchor = 0;
  bool multiSelect = true;
  bool hasClient = true;
  std::string callbacks;
};
