#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <commctrl.h>

#include <cstdint>
#include <string>

#include "qvl.h"
#include "support/recording_client.h"

#ifdef _WIN32
constexpr bool kRealControl = true;
#else
constexpr bool kRealControl = false;
#endif

inline HTREEITEM Native(ItemHandle item) { return reinterpret_cast<HTREEITEM>(item); }

// Dispatches the thread's queued messages until none is left.
void PumpMessages();

// The client's lines in short: B and E for the bracket, only the item's name for a changed item,
// and every other line as it is; "B Q R 0 S E".
std::string Short(const Lines& lines);

// A host: a window that is shown, a client, and a view that the test creates. All are destroyed
// after the test. Functions about items send messages to the control itself, not to the library.
class HostTest : public ::testing::Test {
 protected:
  static constexpr int kControlId = 100;
  static constexpr int kWidth = 300;
  static constexpr int kHeight = 400;

  void SetUp() override;
  void TearDown() override;

  // Creates the control in the whole host window, with `client`.
  HWND CreateView(std::uint32_t style = 0, QVLTreeViewStyleExt* styleExt = nullptr);

  // The same, and sets `control` and `parent`. The callbacks up to then are dropped.
  void OpenView(std::uint32_t style = 0, QVLTreeViewStyleExt* styleExt = nullptr,
                int id = kControlId);

  // Inserts an item. The client's lines call it by this name.
  ItemHandle Insert(const WCHAR* name, ItemHandle parent = -1);

  // Deletes the view before the test ends.
  void ReleaseView();

  // Whether the control is a list and not a tree.
  bool IsList() const;

  // An item by its one-letter name, or 0.
  ItemHandle Item(char name) const;

  // The names of the selected items.
  std::string Selected() const;

  // The callbacks since the last call, in short.
  std::string Callbacks() { return Short(client.Take()); }

  LRESULT Ask(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(control, message, wParam, lParam);
  }
  LRESULT AskRecord(UINT message, WPARAM wParam, void* record) const {
    return Ask(message, wParam, reinterpret_cast<LPARAM>(record));
  }

  // The text of an item, or of another cell of its row.
  std::basic_string<WCHAR> TextOf(ItemHandle item, int column = 0) const;

  UINT StateOf(ItemHandle item, UINT mask) const;
  void SetState(ItemHandle item, UINT state, UINT mask) const;
  UINT BoxOf(ItemHandle item) const { return StateOf(item, LVIS_STATEIMAGEMASK) >> 12; }
  void SetBox(ItemHandle item, UINT image) const {
    SetState(item, image << 12, LVIS_STATEIMAGEMASK);
  }

  RECT ClientRect() const;
  RECT ItemRect(ItemHandle item, bool labelOnly = true) const;

  // Points of the control: the middle of an item's label, and one below all items.
  POINT LabelPoint(ItemHandle item) const;
  POINT OffPoint() const;
  POINT ToScreen(POINT point) const;
  POINT LabelOnScreen(ItemHandle item) const { return ToScreen(LabelPoint(item)); }

  // Asks for a context menu with the mouse at a point of the control.
  void RequestMenu(POINT point) const;

  // Sends a notification to the view's parent window, as a child with that id would.
  LRESULT Notify(NMHDR& record, UINT code, INT_PTR id = kControlId) const;

  // The same about an item, with the record that belongs to the code.
  LRESULT NotifyOf(ItemHandle item, UINT code, INT_PTR id = kControlId) const;

  HWND host = nullptr;
  IQVLTreeView* view = nullptr;
  RecordingClient client;
  HWND control = nullptr;
  HWND parent = nullptr;
};
