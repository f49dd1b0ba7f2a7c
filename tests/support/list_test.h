#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>
#include <vector>

#include "support/host_window.h"

// What a host does to a view from within a call of it.
enum class Ending { NO_CLIENT, DESTROY, RELEASE, CREATE };
constexpr Ending ENDINGS[] = {Ending::NO_CLIENT, Ending::DESTROY, Ending::RELEASE, Ending::CREATE};
constexpr const char* ENDING_NAMES[] = {"NoClient", "Destroy", "Release", "Create"};

// A list in the host window, and what its control says of it.
class ListTest : public HostTest {
 protected:
  // Creates the list; what the client hears meanwhile is dropped.
  void Open(std::uint32_t flags = 0, QVLTreeViewStyleExt* styleExt = nullptr);

  // From now on, lists get these columns from the client.
  void UseClientColumns(std::vector<int> widths);

  void AddRows(int count);

  // What the client heard until the end is dropped. A new list gets three rows.
  void End(Ending ending);

  UINT State(int row, UINT mask) const;
  std::basic_string<WCHAR> Text(int row, int column = 0) const;
  LVITEMW Row(int row, UINT mask) const;
  RECT Part(int row, int part) const;
  ItemHandleList SelectedRows() const;
  int RowCount() const;
  int ColumnCount() const;
  int ColumnWidth(int column = 0) const;
  RECT ClientRect() const;

  // The middle of a rectangle of the control, on the screen.
  POINT OnScreen(const RECT& rect) const;

  // Sends the view's window a notification as the control does.
  LRESULT Notify(UINT code, NMHDR& header, UINT_PTR id = CONTROL_ID);
  LRESULT NotifyRow(UINT code, int row, UINT_PTR id = CONTROL_ID);

  HWND control = nullptr;
  HWND parent = nullptr;
};
