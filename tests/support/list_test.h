#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>
#include <vector>

#include "support/host_window.h"

// What the client hears when each of the rows changes: a bracket for every one.
inline Lines Brackets(const ItemHandleList& rows) {
  Lines lines;
  for (const ItemHandle row : rows) {
    lines.insert(lines.end(), {"Begin", "Changed " + std::to_string(row), "End"});
  }
  return lines;
}

// A list in the host window, and what its control says of it.
class ListTest : public HostTest {
 protected:
  // Creates the list; what the client hears meanwhile is dropped.
  void Open(std::uint32_t flags = 0, QVLTreeViewStyleExt* styleExt = nullptr) {
    control = CreateView(QVLS_LISTVIEW | flags, styleExt);
    ASSERT_NE(control, nullptr);
    parent = GetParent(control);
    client.Take();
  }

  // From now on, lists get columns of these widths from the client.
  void UseClientColumns(const std::vector<int>& widths) {
    client.onCreateColumns = [widths](HWND list, RECT*) {
      LVCOLUMNW column = {};
      column.mask = LVCF_WIDTH | LVCF_SUBITEM;
      for (const int width : widths) {
        column.cx = width;
        SendMessageW(list, LVM_INSERTCOLUMNW, column.iSubItem, reinterpret_cast<LPARAM>(&column));
        ++column.iSubItem;
      }
      return true;
    };
  }

  void AddRows(int count) {
    QVLTreeViewItem record;
    record.SetItemName(TEXT("row"));
    for (int i = 0; i < count; ++i) ASSERT_NE(view->InsertItem(&record, -1), -1);
  }

  LRESULT Ask(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(control, message, wParam, lParam);
  }
  LRESULT AskRecord(UINT message, WPARAM wParam, void* record) const {
    return Ask(message, wParam, reinterpret_cast<LPARAM>(record));
  }

  int RowCount() const { return static_cast<int>(Ask(LVM_GETITEMCOUNT)); }
  int ColumnWidth(int column = 0) const {
    return static_cast<int>(Ask(LVM_GETCOLUMNWIDTH, column));
  }

  UINT State(int row, UINT mask) const {
    return static_cast<UINT>(Ask(LVM_GETITEMSTATE, row, mask));
  }
  UINT StateImage(int row) const { return State(row, LVIS_STATEIMAGEMASK) >> 12; }

  // Row -1 stands for all of them.
  void SetState(int row, UINT state, UINT mask) const {
    LVITEMW change = {};
    change.state = state;
    change.stateMask = mask;
    AskRecord(LVM_SETITEMSTATE, row, &change);
  }

  ItemHandleList SelectedRows() const {
    ItemHandleList rows;
    for (int row = 0; row < RowCount(); ++row) {
      if (State(row, LVIS_SELECTED)) rows.push_back(row);
    }
    return rows;
  }

  std::basic_string<WCHAR> Text(int row, int column = 0) const {
    WCHAR text[100] = {};
    LVITEMW item = {};
    item.iSubItem = column;
    item.pszText = text;
    item.cchTextMax = 100;
    AskRecord(LVM_GETITEMTEXTW, row, &item);
    return text;
  }

  RECT Part(int row, int part) const {
    RECT rect = {};
    rect.left = part;
    EXPECT_TRUE(AskRecord(LVM_GETITEMRECT, row, &rect)) << row;
    return rect;
  }

  RECT ClientRect() const {
    RECT rect = {};
    GetClientRect(control, &rect);
    return rect;
  }

  // A point of the control on the screen.
  POINT OnScreen(LONG x, LONG y) const {
    POINT point = {x, y};
    ClientToScreen(control, &point);
    return point;
  }
  POINT LabelOnScreen(int row) const {
    const RECT rect = Part(row, LVIR_LABEL);
    return OnScreen((rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
  }

  // Sends the view's window a notification as the control does.
  LRESULT Notify(UINT code, NMHDR& header, UINT_PTR id = CONTROL_ID) {
    header = {control, id, code};
    return SendMessageW(parent, WM_NOTIFY, id, reinterpret_cast<LPARAM>(&header));
  }

  // The same about a row, with the record that belongs to the code.
  LRESULT NotifyRow(UINT code, int row, UINT_PTR id = CONTROL_ID) {
    NMLVGETINFOTIPW tip = {};
    tip.iItem = row;
    if (code == LVN_GETINFOTIPW) return Notify(code, tip.hdr, id);
    NMLVDISPINFOW edit = {};
    if (code == LVN_BEGINLABELEDITW || code == LVN_ENDLABELEDITW) return Notify(code, edit.hdr, id);
    NMLISTVIEW change = {};
    change.iItem = row;
    change.iSubItem = 3;
    return Notify(code, change.hdr, id);
  }

  HWND control = nullptr;
  HWND parent = nullptr;
};
