// Records as rows and cells of the list: what is inserted where, and what an update rewrites.

#include <windows.h>

#include <iterator>

#include "support/list_test.h"
#include "support/sent_messages.h"

namespace {

constexpr UINT ROW_MASK = LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM;
constexpr UINT STATE_MASK = 0xF004;

class ListInsertTest : public ListTest {
 protected:
  ItemHandle InsertUnder(ItemHandle under, int indentOffset = 0) {
    QVLTreeViewItem record;
    record.SetIndentOffset(indentOffset);
    return view->InsertItem(&record, under);
  }
  int Indent(ItemHandle row) const { return Row(static_cast<int>(row), LVIF_INDENT).iIndent; }
  UINT StateImage(int row) const { return State(row, LVIS_STATEIMAGEMASK) >> 12; }
};

TEST_F(ListInsertTest, ANewRowGoesToTheControlAsTheRecordSays) {
  Open(QVLS_CHECKBOXES);
  SentMessages sent;
  QVLTreeViewItem record;
  view->InsertItem(&record, -1);
  record.SetItemName(TEXT("name"));
  record.SetImageIndex(3);
  record.SetClientPtr(-0x123456789A);
  record.SetStateIndex(0);
  record.SetIndentOffset(4);
  record.SetSubItem(2);
  view->InsertItem(&record, -1);
  record.SetStateIndex(1);
  record.SetCut(true);
  record.SetBold(true);
  view->InsertItem(&record, -1);
  record.SetStateIndex(-1);
  view->InsertItem(&record, -1);

  struct {
    UINT mask;
    int image;
    UINT state;
    LPARAM param;
    int indent;
    const WCHAR* text;
  } const rows[] = {
      {0x17, -1, 0, 0, 0, TEXT("")},
      {0x1F, 3, 0x1000, -0x123456789A, 4, TEXT("name")},
      {0x1F, 3, 0x2004, -0x123456789A, 4, TEXT("name")},
      {0x17, 3, 0x0004, -0x123456789A, 4, TEXT("name")},
  };
  const auto inserted = sent.Of(LVM_INSERTITEMW);
  ASSERT_EQ(inserted.size(), std::size(rows));
  for (int i = 0; i < static_cast<int>(std::size(rows)); ++i) {
    SCOPED_TRACE(i);
    const SentMessage& message = inserted[static_cast<std::size_t>(i)];
    EXPECT_EQ(message.wParam, 0u);
    EXPECT_EQ(message.item.mask, rows[i].mask);
    EXPECT_EQ(message.item.iItem, i);
    EXPECT_EQ(message.item.iSubItem, 0);
    EXPECT_EQ(message.item.iImage, rows[i].image);
    EXPECT_EQ(message.item.state, rows[i].state);
    EXPECT_EQ(message.item.stateMask, STATE_MASK);
    EXPECT_EQ(message.item.lParam, rows[i].param);
    EXPECT_EQ(message.item.iIndent, rows[i].indent);
    EXPECT_EQ(message.text, rows[i].text);
  }
  EXPECT_EQ(Text(2), TEXT("name"));
  EXPECT_EQ(view->GetItemClientPtr(2), -0x123456789A);
  EXPECT_EQ(State(2, LVIS_CUT), static_cast<UINT>(LVIS_CUT));
  EXPECT_EQ(State(3, LVIS_CUT), 0u);
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
      {-1, -1, 0},
      {99, 0, 1},           // a row that is not there still
                            // counts as a parent
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

TEST_F(ListInsertTest, ARowUnderTheDeepestStaysThere) {
  Open();
  SentMessages sent;
  EXPECT_EQ(InsertUnder(-1, 0x7FFFFFFF), 0);
  EXPECT_EQ(InsertUnder(0, 0x7FFFFFFF), 1);
  EXPECT_EQ(InsertUnder(-1, -0x7FFFFFFF - 1), 2);
  EXPECT_EQ(sent.Of(LVM_INSERTITEMW)[1].item.iIndent, 0x7FFFFFFF);
  EXPECT_EQ(Indent(2), 0);
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
  client.Take();
  SentMessages sent;
  QVLTreeViewItem record;
  record.SetItemName(TEXT("cell"));
  record.SetSubItem(2);
  record.SetImageIndex(5);
  record.SetStateIndex(1);
  record.SetIndentOffset(3);
  EXPECT_EQ(view->InsertItem(&record, 1), 1);
  const auto written = sent.Of(LVM_SETITEMW);
  ASSERT_EQ(written.size(), 1u);
  EXPECT_EQ(written[0].item.mask, static_cast<UINT>(LVIF_TEXT));
  EXPECT_EQ(written[0].item.iItem, 1);
  EXPECT_EQ(written[0].item.iSubItem, 2);
  EXPECT_EQ(Text(1, 2), TEXT("cell"));
  EXPECT_EQ(Text(1), TEXT("row"));
  EXPECT_EQ(Indent(1), 0);

  record.SetItemName(TEXT("again"));
  EXPECT_TRUE(view->UpdateItem(&record, 1));
  EXPECT_EQ(sent.Of(LVM_SETITEMW)[1].item.mask, static_cast<UINT>(LVIF_TEXT));
  EXPECT_EQ(Text(1, 2), TEXT("again"));

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
  InsertUnder(-1);
  EXPECT_EQ(sent.Of(LVM_INSERTITEMW)[0].item.iItem, 2);

  // Without a row it is one of its own.
  EXPECT_EQ(view->InsertItem(&record, -1), 3);
  EXPECT_EQ(Text(3), TEXT("again"));
}

TEST_F(ListInsertTest, RecordsOnlySwitchMarksOn) {
  for (const std::uint32_t flags : {0u, QVLS_CHECKBOXES}) {
    SCOPED_TRACE(flags);
    Open(flags);
    SentMessages sent;
    QVLTreeViewItem marked;
    marked.SetChecked(true);
    marked.SetSelected(true);
    marked.SetStateIndex(0);
    QVLTreeViewItem plain;
    EXPECT_EQ(view->InsertItem(&marked, -1), 0);
    const auto states = sent.Of(LVM_SETITEMSTATE);
    ASSERT_EQ(states.size(), flags ? 2u : 1u);
    if (flags) {
      EXPECT_EQ(states[0].item.state, 0x2000u);
      EXPECT_EQ(states[0].item.stateMask, 0xF000u);
    }
    EXPECT_EQ(states.back().wParam, 0u);
    EXPECT_EQ(states.back().item.state, 2u);
    EXPECT_EQ(states.back().item.stateMask, 2u);
    EXPECT_TRUE(view->UpdateItem(&plain, 0));
    EXPECT_EQ(StateImage(0), flags ? 2u : 1u);
    EXPECT_TRUE(view->IsItemSelected(0));

    AddRows(1);
    sent.Forget();
    EXPECT_TRUE(view->UpdateItem(&marked, 1));
    EXPECT_EQ(sent.Of(LVM_SETITEMSTATE).size(), flags ? 2u : 1u);
    EXPECT_EQ(StateImage(1), flags ? 2u : 1u);
    EXPECT_EQ(view->GetSelectedCount(), 2);
  }
}

TEST_F(ListInsertTest, AnUpdateRewritesAllButTheIndent) {
  Open();
  InsertUnder(-1, 2);
  SentMessages sent;
  QVLTreeViewItem record;
  record.SetItemName(TEXT("new"));
  record.SetImageIndex(4);
  record.SetClientPtr(77);
  record.SetIndentOffset(9);
  record.SetCut(true);
  record.SetSubItem(-3);
  view->UpdateItem(&record, 0);
  record.SetSubItem(0);
  EXPECT_TRUE(view->UpdateItem(&record, 0));
  EXPECT_EQ(State(0, LVIS_CUT), 0u);
  record.SetStateIndex(2);
  EXPECT_TRUE(view->UpdateItem(&record, 0));

  const auto written = sent.Of(LVM_SETITEMW);
  ASSERT_EQ(written.size(), 3u);
  EXPECT_EQ(written[0].item.iSubItem, -3);
  EXPECT_EQ(written[1].item.mask, ROW_MASK);
  EXPECT_EQ(written[1].item.iSubItem, 0);
  EXPECT_EQ(written[1].item.iImage, 4);
  EXPECT_EQ(written[2].item.mask, ROW_MASK | LVIF_STATE);
  EXPECT_EQ(written[2].item.state, 0x3004u);
  EXPECT_EQ(written[2].item.stateMask, STATE_MASK);
  EXPECT_EQ(Text(0), TEXT("new"));
  EXPECT_EQ(view->GetItemClientPtr(0), 77);
  EXPECT_EQ(Indent(0), 2);
  EXPECT_EQ(State(0, 0xF004), 0x3004u);

  EXPECT_FALSE(view->UpdateItem(&record, 1));
}

}  // namespace
