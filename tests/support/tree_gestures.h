#pragma once

#include <string>

#include "support/host_window.h"
#include "support/import_patch.h"

// A tree with the focus, and what a user does to it in the messages that reach the control. Items
// stand under their one-letter names, "-" is no item.
class TreeTest : public HostTest {
 protected:
  // Creates the tree. It gets the focus while it is empty, since a first focus would select its
  // first item.
  void OpenEmpty(std::uint32_t style = 0);

  // The same with the items P, Q, R and S at the top level.
  void Open(std::uint32_t style = 0);

  // A state is caret, anchor and selected items: "Q - PR". Given puts the tree into it and clears
  // the client's record. State tells it; the anchor is found out by a Shift press, which costs
  // caret and selection.
  void Given(const std::string& state);
  std::string State();

  ItemHandle CaretItem() const { return Ask(TVM_GETNEXTITEM, TVGN_CARET); }

  // Moves the caret by message; 0 takes it away.
  void MoveCaret(ItemHandle item) const { Ask(TVM_SELECTITEM, TVGN_CARET, item); }

  // The button goes down and up again. The result is the control window's answer to the press.
  LRESULT PressAt(POINT point, WPARAM keys = 0);
  LRESULT Press(char name, WPARAM keys = 0) {
    return PressAt(name == '-' ? OffPoint() : LabelPoint(Item(name)), keys);
  }

  // The modifiers are MK_SHIFT and MK_CONTROL, as for a press.
  LRESULT Key(WPARAM key, WPARAM modifiers = 0);
  static void HoldDown(WPARAM modifiers);

  // What the control itself says of a point.
  TVHITTESTINFO HitAt(POINT point) const;

  // The leftmost point of the item's row with one of these native hit flags.
  POINT PartPoint(ItemHandle item, UINT parts) const;
};

// Counts the presses and keys that the library hands on to the control while the object lives. Each
// of these is answered with ANSWER, so that a result tells whether it is the control's.
class ForwardWatch {
 public:
  static constexpr LRESULT ANSWER = 4711;

  ForwardWatch();
  int Count() const;

 private:
  ImportPatch patch;
};
