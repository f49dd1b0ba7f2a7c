// Records as rows and cells of the list: what is inserted where.

#include <climits>

#include "support/list_test.h"
#include "support/sent_messages.h"

namespace {

// A row comes in the middle of the deletion of all.
IQVLTreeView* inserting = nullptr;
LRESULT WINAPI InsertMeanwhile(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  QVLTreeViewItem record;
  if (message == LVM_DELETEALLITEMS) inserting->InsertItem(&record, -1);
  return SendMessageW(window, message, wParam, lParam);
}

class ListInsertTest : public ListTest {
 protected:
  ItemHandle InsertUnder(ItemHandle under, int indentOffset = 0) {
    QVLTreeViewItem record;
    record.SetIndentOffset(indentOffset);
    return view->InsertItem(&record, under);
  }
  int Indent(ItemHandle row) const {
    LVITEMW item = {};
    item.mask = LVIF_INDENT;
    item.iItem = static_cast<int>(row);
    EXPECT_TRUE(AskRecord(LVM_GETITEMW, 0, &item)) << row;
    return item.iIndent;
  }
};

TEST_F(ListInsertTest, TheIndentComesFromTheParentRowAndTheRecord) {
  struct {
    ItemHandle parent;
    int offset;
    int indent;
  } const rows[] = {
      {-1, 0, 0},
      {0, 0, 1},
      {1, 0, 2},
      {-1, 0, 0},
      {2, 0, 3},
      {2, -5, 0},
      {-1, 3, 3},
      {-1, INT_MIN, 0},
      {-1, INT_MAX, INT_MAX},
      {8, INT_MAX, INT_MAX},
      {99, 0, 1},           // a row that is not there still counts as a parent
      {0x100000002, 0, 1},  // and so does a handle that no row has
      {-2, 2, 3},
  };
  Open();
  ItemHandle next = 0;
  for (const auto& row : rows) {
    SCOPED_TRACE(next);
    EXPECT_EQ(InsertUnder(row.parent, row.offset), next);
    EXPECT_EQ(Indent(next), row.indent);
    ++next;
  }
}

TEST_F(ListInsertTest, NewRowsGoBehindThoseAskedForBefore) {
  Open();
  SentMessages sent;
  const auto askedFor = [&] { return sent.Of(LVM_INSERTITEMW).back().item.iItem; };
  AddRows(2);
  EXPECT_TRUE(view->DeleteItem(0));
  EXPECT_EQ(InsertUnder(-1), 1);
  EXPECT_EQ(askedFor(), 2);

  // A row that the control refuses counts all the same, and is neither ticked nor selected.
  sent.answers[LVM_INSERTITEMW] = -1;
  QVLTreeViewItem record;
  record.SetSelected(true);
  EXPECT_EQ(view->InsertItem(&record, -1), -1);
  EXPECT_EQ(sent.Of(LVM_SETITEMSTATE).size(), 0u);
  sent.answers.clear();
  EXPECT_EQ(InsertUnder(-1), 2);
  EXPECT_EQ(askedFor(), 4);

  {
    inserting = view;
    const ImportPatch patch("SendMessageW", &InsertMeanwhile);
    view->DeleteAllItems();
  }
  EXPECT_EQ(RowCount(), 0);
  EXPECT_EQ(InsertUnder(-1), 0);
  EXPECT_EQ(askedFor(), 0);
}

TEST_F(ListInsertTest, ARecordWithACellNumberWritesTheCell) {
  UseClientColumns({100, 100, 100});
  Open(QVLS_CHECKBOXES);
  AddRows(2);
  SentMessages sent;
  QVLTreeViewItem record;
  record.SetItemName(TEXT("cell"));
  record.SetSubItem(2);
  record.SetStateIndex(1);
  EXPECT_EQ(view->InsertItem(&record, 1), 1);
  EXPECT_EQ(TextOf(1, 2), TEXT("cell"));
  record.SetItemName(TEXT("again"));
  EXPECT_TRUE(view->UpdateItem(&record, 1));
  EXPECT_EQ(TextOf(1, 2), TEXT("again"));
  EXPECT_EQ(TextOf(1), TEXT("row"));
  const auto written = sent.Of(LVM_SETITEMW);
  ASSERT_EQ(written.size(), 2u);
  for (const SentMessage& message : written) {
    EXPECT_EQ(message.item.mask, static_cast<UINT>(LVIF_TEXT));
    EXPECT_TRUE(message.item.iItem == 1 && message.item.iSubItem == 2);
  }

  // The marks of the record are those of the whole row.
  record.SetSelected(true);
  record.SetChecked(true);
  EXPECT_EQ(view->InsertItem(&record, 1), 1);
  EXPECT_TRUE(view->IsItemSelected(1) && view->IsItemChecked(1));

  // A cell of no row changes nothing, and no later row moves for it.
  sent.Forget();
  for (const ItemHandle row : {ItemHandle{7}, ItemHandle{-2}, ItemHandle{0x100000000}}) {
    EXPECT_EQ(view->InsertItem(&record, row), -1) << row;
    EXPECT_FALSE(view->UpdateItem(&record, row)) << row;
  }
  EXPECT_EQ(sent.Of(LVM_SETITEMSTATE).size(), 0u);
  EXPECT_EQ(TextOf(0, 2), TEXT(""));
  EXPECT_EQ(view->InsertItem(&record, -1), 2) << "without a row it is one of its own";
  EXPECT_EQ(sent.Of(LVM_INSERTITEMW)[0].item.iItem, 2);
  EXPECT_EQ(TextOf(2), TEXT("again"));

  // A negative number is no cell's; the record is one of a row, and an update hands it on.
  record.SetSubItem(-3);
  sent.Forget();
  EXPECT_EQ(view->InsertItem(&record, 1), 3);
  EXPECT_EQ(sent.Of(LVM_INSERTITEMW)[0].item.iSubItem, 0);
  view->UpdateItem(&record, 1);
  const LVITEMW update = sent.Of(LVM_SETITEMW)[0].item;
  EXPECT_TRUE(update.iSubItem == -3 && update.mask & LVIF_PARAM);
}

}  // namespace
