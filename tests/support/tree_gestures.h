#pragma once

#include <string>

#include "support/host_window.h"

// A tree with the focus and gestures in the form of their messages. Items have one-letter names;
// "-" is no item.
class TreeTest : public HostTest {
 protected:
  // Creates the tree. It gets the focus while it is empty, because a first focus selects the first
  // item.
  void OpenEmpty(std::uint32_t style = 0);

  // Inserts items by pairs of their names and their parents', "P- QP": P and, below it, Q.
  void InsertBranches(const std::string& pairs);

  // Creates the tree with the items P, Q, R and S at the top level.
  void Open(std::uint32_t style = 0);

  // Sets caret, anchor and selection, "Q - PR", and clears the client's record.
  void Given(const std::string& state);

  ItemHandle CaretItem() const { return Ask(TVM_GETNEXTITEM, TVGN_CARET); }

  // Moves the caret by message; 0 removes it.
  void MoveCaret(ItemHandle item) const { Ask(TVM_SELECTITEM, TVGN_CARET, item); }

  // Presses and releases the button. The result is the control window's answer to the press.
  LRESULT PressAt(POINT point, WPARAM keys = 0);
  LRESULT Press(char name, WPARAM keys = 0) {
    return PressAt(name == '-' ? OffPoint() : LabelPoint(Item(name)), keys);
  }

  // The modifiers are MK_SHIFT and MK_CONTROL, as for a press.
  LRESULT Key(WPARAM key, WPARAM modifiers = 0);
  static void HoldDown(WPARAM modifiers);

  // The control's own hit test.
  TVHITTESTINFO HitAt(POINT point) const;

  // The leftmost point of the item's row with one of these native hit flags.
  POINT PartPoint(ItemHandle item, UINT parts) const;
};
