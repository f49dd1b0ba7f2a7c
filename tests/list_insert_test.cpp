// Records as rows and cells of the list: what is inserted where, and what an update rewrites.

#include <windows.h>

#include <climits>
#include <functional>

#include "support/list_test.h"
#include "support/sent_messages.h"

namespace {

// What a record says and what the control is sent for it.
struct RecordCase {
  std::function<void(QVLTreeViewItem&)> set;
  UINT mask, state;
  int image;
};

const RecordCase RECORDS[] = {
    {[](auto&) {}, 0x07, 0, -1},
    {[](auto& r) { r.SetImageIndex(3), r.SetCut(true), r.SetBold(true); }, 0x07, 0x0004, 3},
    {[](auto& r) { r.SetStateIndex(0), r.SetSubItem(-3); }, 0x0F, 0x1000, -1},
    {[](auto& r) { r.SetStateIndex(1), r.SetCut(true), r.SetBold(true); }, 0x0F, 0x2004, -1},
};

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

TEST_F(ListInsertTest, ARowGoesToTheControlAsTheRecordSays) {
  Open(QVLS_CHECKBOXES);
  SentMessages sent;
  int row = 0;
  for (const RecordCase& c : RECORDS) {
    SCOPED_TRACE(row);
    QVLTreeViewItem record;
    record.SetItemName(TEXT("name"));
    record.SetClientPtr(row - 0x123456789A);
    record.SetIndentOffset(4);
    c.set(record);
    sent.Forget();
    EXPECT_EQ(view->InsertItem(&record, -1), row);
    record.SetIndentOffset(9);
    EXPECT_TRUE(view->UpdateItem(&record, row) || record.GetSubItem() != 0);
    ASSERT_EQ(sent.all.size(), 2u);
    // An update leaves the indent alone.
    for (const bool update : {false, true}) {
      const SentMessage& message = sent.all[update];
      const LVITEMW& item = message.item;
      EXPECT_EQ(message.message, static_cast<UINT>(update ? LVM_SETITEMW : LVM_INSERTITEMW));
      EXPECT_EQ(message.wParam, 0u);
      EXPECT_EQ(item.mask, c.mask | (update ? 0u : LVIF_INDENT));
      EXPECT_EQ(item.iItem, row);
      EXPECT_EQ(item.iSubItem, update ? record.GetSubItem() : 0);
      EXPECT_EQ(item.iImage, c.image);
      EXPECT_EQ(item.state, c.state);
      EXPECT_EQ(item.stateMask, 0xF004u);
      EXPECT_EQ(item.lParam, row - 0x123456789A);
      EXPECT_EQ(message.text, TEXT("name"));
    }
    EXPECT_EQ(Indent(row), 4);
    EXPECT_EQ(view->GetItemClientPtr(row), row - 0x123456789A);
    ++row;
  }
}

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

  view->DeleteAllItems();
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
  EXPECT_EQ(Text(1, 2), TEXT("cell"));
  record.SetItemName(TEXT("again"));
  EXPECT_TRUE(view->UpdateItem(&record, 1));
  EXPECT_EQ(Text(1, 2), TEXT("again"));
  EXPECT_EQ(Text(1), TEXT("row"));
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
  EXPECT_EQ(Text(0, 2), TEXT(""));
  EXPECT_EQ(view->InsertItem(&record, -1), 2) << "without a row it is one of its own";
  EXPECT_EQ(sent.Of(LVM_INSERTITEMW)[0].item.iItem, 2);
  EXPECT_EQ(Text(2), TEXT("again"));
}

TEST_F(ListInsertTest, RecordsOnlySwitchMarksOn) {
  for (const std::uint32_t flags : {0u, QVLS_CHECKBOXES}) {
    SCOPED_TRACE(flags);
    Open(flags);
    AddRows(2);
    const UINT image = flags ? 2 : 1;
    QVLTreeViewItem marked;
    marked.SetChecked(true);
    marked.SetSelected(true);
    marked.SetStateIndex(0);
    QVLTreeViewItem plain;
    for (const int row : {2, 1}) {
      const SentMessages sent;
      EXPECT_TRUE(row == 2 ? view->InsertItem(&marked, -1) == row : view->UpdateItem(&marked, row));
      const auto states = sent.Of(LVM_SETITEMSTATE);
      ASSERT_EQ(states.size(), image);
      EXPECT_EQ(states[0].item.state, flags ? 0x2000u : 2u);
      EXPECT_EQ(states[0].item.stateMask, flags ? 0xF000u : 2u);
      EXPECT_EQ(states.back().item.state, 2u);
      EXPECT_EQ(static_cast<int>(states.back().wParam), row);
      EXPECT_TRUE(view->UpdateItem(&plain, row));
      EXPECT_EQ(BoxOf(row), image);
      EXPECT_TRUE(view->IsItemSelected(row));
    }
  }
}

}  // namespace
