#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>

#include "support/host_window.h"
#include "support/import_patch.h"

#ifdef _WIN32
constexpr bool REAL_CONTROL = true;
#else
constexpr bool REAL_CONTROL = false;
#endif

inline HTREEITEM Native(ItemHandle item) { return reinterpret_cast<HTREEITEM>(item); }

// The client's lines in short: B and E for the bracket, the item's name alone for a report, and
// every other line as it is; "B Q R 0 S E".
std::string Short(const Lines& lines);

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

  ItemHandle Item(char name) const;
  ItemHandle CaretItem() const { return Ask(TVM_GETNEXTITEM, TVGN_CARET); }
  std::string Selected() const;
  std::basic_string<WCHAR> TextOf(ItemHandle item) const;

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

  // Asks for a context menu with the mouse at a point of the control.
  void RequestMenu(POINT point);

  // Tells the view's parent window of a notification, as a child with that id would.
  LRESULT Notify(NMHDR& record, UINT code, int id = CONTROL_ID);
  LRESULT NotifyOf(ItemHandle item, UINT code, int id = CONTROL_ID);

  RECT ItemRect(ItemHandle item, bool labelOnly = true) const;
  POINT LabelPoint(ItemHandle item) const;
  POINT OffPoint() const;
  POINT ToScreen(POINT point) const;

  // What the control itself says of a point.
  TVHITTESTINFO HitAt(POINT point) const;

  // The leftmost point of the item's row with one of these native hit flags.
  POINT PartPoint(ItemHandle item, UINT parts) const;

  // What the client has heard since it was last asked, in short.
  std::string Heard() { return Short(client.Take()); }

  // Sends the control a message, past the library's back.
  LRESULT Ask(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(control, message, wParam, lParam);
  }

  HWND control = nullptr;
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
