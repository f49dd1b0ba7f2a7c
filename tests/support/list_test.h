#pragma once

#include <vector>

#include "support/host_window.h"

// A list in the host window. Its rows have their numbers as names.
class ListTest : public HostTest {
 protected:
  void Open(std::uint32_t flags = 0, QVLTreeViewStyleExt* styleExt = nullptr) {
    OpenView(QVLS_LISTVIEW | flags, styleExt);
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

  int RowCount() const { return static_cast<int>(Ask(LVM_GETITEMCOUNT)); }
  int ColumnWidth(int column = 0) const {
    return static_cast<int>(Ask(LVM_GETCOLUMNWIDTH, column));
  }
};
