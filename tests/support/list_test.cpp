#include "support/list_test.h"

void ListTest::Open(std::uint32_t flags, QVLTreeViewStyleExt* styleExt) {
  control = CreateView(QVLS_LISTVIEW | flags, styleExt);
  ASSERT_NE(control, nullptr);
  parent = GetParent(control);
  client.Take();
}

void ListTest::UseClientColumns(std::vector<int> widths) {
  client.onCreateColumns = [=](HWND list, RECT*) {
    for (std::size_t i = 0; i < widths.size(); ++i) {
      LVCOLUMNW column = {};
      column.mask = LVCF_WIDTH | LVCF_SUBITEM;
      column.cx = widths[i];
      column.iSubItem = static_cast<int>(i);
      SendMessageW(list, LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
    }
    return true;
  };
}

void ListTest::AddRows(int count) {
  QVLTreeViewItem record;
  record.SetItemName(TEXT("row"));
  for (int i = 0; i < count; ++i) {
    ASSERT_NE(view->InsertItem(&record, -1), -1);
  }
}

void ListTest::End(Ending ending) {
  switch (ending) {
    case Ending::NO_CLIENT:
      view->SetClient(nullptr);
      break;
    case Ending::DESTROY:
      view->Destroy();
      break;
    case Ending::RELEASE:
      ReleaseView();
      break;
    case Ending::CREATE:
      Open();
      AddRows(3);
      break;
  }
  client.Take();
}

UINT ListTest::State(int row, UINT mask) const {
  return static_cast<UINT>(SendMessageW(control, LVM_GETITEMSTATE, static_cast<WPARAM>(row), mask));
}

std::basic_string<WCHAR> ListTest::Text(int row, int column) const {
  WCHAR text[100] = {};
  LVITEMW item = {};
  item.iSubItem = column;
  item.pszText = text;
  item.cchTextMax = 100;
  SendMessageW(control, LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
               reinterpret_cast<LPARAM>(&item));
  return text;
}

LVITEMW ListTest::Row(int row, UINT mask) const {
  LVITEMW item = {};
  item.mask = mask;
  item.iItem = row;
  item.stateMask = ~0U;
  EXPECT_TRUE(SendMessageW(control, LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item))) << row;
  return item;
}

RECT ListTest::Part(int row, int part) const {
  RECT rect = {};
  rect.left = part;
  EXPECT_TRUE(SendMessageW(control, LVM_GETITEMRECT, static_cast<WPARAM>(row),
                           reinterpret_cast<LPARAM>(&rect)))
      << row;
  return rect;
}

ItemHandleList ListTest::SelectedRows() const {
  ItemHandleList rows;
  for (int row = 0; row < RowCount(); ++row) {
    if (State(row, LVIS_SELECTED)) rows.push_back(row);
  }
  return rows;
}

int ListTest::RowCount() const {
  return static_cast<int>(SendMessageW(control, LVM_GETITEMCOUNT, 0, 0));
}

int ListTest::ColumnCount() const {
  const auto header = reinterpret_cast<HWND>(SendMessageW(control, LVM_GETHEADER, 0, 0));
  return static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
}

int ListTest::ColumnWidth(int column) const {
  return static_cast<int>(
      SendMessageW(control, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
}

RECT ListTest::ClientRect() const {
  RECT rect = {};
  GetClientRect(control, &rect);
  return rect;
}

POINT ListTest::OnScreen(const RECT& rect) const {
  POINT point = {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
  ClientToScreen(control, &point);
  return point;
}

LRESULT ListTest::Notify(UINT code, NMHDR& header, UINT_PTR id) {
  header = {control, id, code};
  return SendMessageW(parent, WM_NOTIFY, id, reinterpret_cast<LPARAM>(&header));
}

LRESULT ListTest::NotifyRow(UINT code, int row, UINT_PTR id) {
  NMLISTVIEW record = {};
  record.iItem = row;
  return Notify(code, record.hdr, id);
}
