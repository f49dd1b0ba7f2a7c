// The native items that records become when they are inserted and when they update an item.
#include <climits>
#include <set>
#include <string>
#include <tuple>

#include "support/each_view.h"
#include "support/replaced_call.h"
#include "support/sent_messages.h"

namespace {

constexpr std::int64_t kWide = -0x123456789A;

struct RecordRow {
  int stateIndex;
  bool bold;
  bool cut;
  int image;
  UINT treeState;
  UINT listState;  // index 0 is the control's image 1, and there is no bold
};

// Bold and cut need a state index; indexes that are too large or negative are passed on.
constexpr RecordRow kRecords[] = {{-1, false, false, -1, 0, 0},
                                  {-1, false, false, 7, 0, 0},
                                  {-1, true, true, -1, 0, 0},
                                  {0, false, false, -1, 0, 0x1000},
                                  {3, false, false, -1, 0x3000, 0x4000},
                                  {0x15, false, false, -1, 0x15000, 0x16000},
                                  {-2, false, false, -1, 0xFFFFE000, 0xFFFFF000},
                                  {2, true, false, -1, 0x2010, 0x3000},
                                  {1, false, true, -1, 0x1004, 0x2004},
                                  {0, true, true, 3, 0x14, 0x1004}};

// Logs which of its accessors are read, by a letter each.
class LoggedRecord final : public QVLTreeViewItem {
 public:
  std::string Take() {
    std::string letters(read.begin(), read.end());
    read.clear();
    return letters;
  }

  int GetType() const noexcept override { return Log('t', 1); }
  const WCHAR* GetItemName() const noexcept override { return Log('n', TEXT("n")); }
  const WCHAR* GetFileName() const noexcept override { return Log('f', TEXT("f")); }
  bool IsSelected() const noexcept override { return Log('S', false); }
  bool IsChecked() const noexcept override { return Log('C', false); }
  bool IsCut() const noexcept override { return Log('c', false); }
  bool IsBold() const noexcept override { return Log('b', false); }
  int GetImageIndex() const noexcept override { return Log('i', 0); }
  int GetStateIndex() const noexcept override { return Log('s', -1); }
  std::int64_t GetClientPtr() const noexcept override { return Log('p', 0); }
  int GetIndentOffset() const noexcept override { return Log('o', 0); }

 private:
  template <class Value>
  Value Log(char letter, Value value) const noexcept {
    read.insert(letter);
    return value;
  }

  mutable std::set<char> read;
};

class ViewInsert : public EachView {
 protected:
  void ExpectItem(const SentMessage& sent, UINT message, const RecordRow& row, UINT fields) {
    const LVITEMW& item = sent.item;
    const bool state = row.stateIndex != -1;
    EXPECT_EQ(std::tuple(sent.message, sent.wParam), std::tuple(message, 0u));
    EXPECT_EQ(item.mask, fields | (state ? LVIF_STATE : 0u));
    EXPECT_TRUE(!state || item.state == TreeOrList(row.treeState, row.listState));
    EXPECT_TRUE(!state || item.stateMask == TreeOrList(0xF014u, 0xF004u));
    EXPECT_EQ(std::tuple(item.iImage, item.iSubItem, item.lParam), std::tuple(row.image, 0, kWide));
    EXPECT_TRUE(IsList() || sent.treeItem.iSelectedImage == row.image);
    EXPECT_EQ(sent.text, TEXT("the name"));
  }

  const UINT insertItem = TreeOrList(TVM_INSERTITEMW, LVM_INSERTITEMW);
  const UINT setItem = TreeOrList(TVM_SETITEMW, LVM_SETITEMW);
  QVLTreeViewItem record;
};

INSTANTIATE_TEST_SUITE_P(Views, ViewInsert, kEachView, ViewName);

TEST_P(ViewInsert, RecordBecomesANativeItem) {
  Open();
  record.SetItemName(TEXT("the name"));
  record.SetFileName(TEXT("the file"));
  record.SetClientPtr(kWide);
  for (const RecordRow& row : kRecords) {
    SCOPED_TRACE(&row - kRecords);
    record.SetStateIndex(row.stateIndex);
    record.SetBold(row.bold);
    record.SetCut(row.cut);
    record.SetImageIndex(row.image);
    const SentMessages sent;
    const ItemHandle item = view->InsertItem(&record, -1);
    EXPECT_TRUE(view->UpdateItem(&record, item));
    ASSERT_EQ(sent.all.size(), 2u);
    ExpectItem(sent.all[0], insertItem, row, TreeOrList(55u, 7u | LVIF_INDENT));
    ExpectItem(sent.all[1], setItem, row, TreeOrList(55u, 7u));
    const SentMessage& update = sent.all[1];
    EXPECT_EQ(TreeOrList(update.treeItem.hItem, Native(update.item.iItem)), Native(item));
    EXPECT_EQ(view->GetItemClientPtr(item), kWide);
    EXPECT_EQ(TextOf(item), TEXT("the name"));
  }
}

TEST_P(ViewInsert, RecordSetsCheckAndSelectionAndNeverClearsThem) {
  for (const std::uint32_t flags : {0u, QVLS_CHECKBOXES}) {
    Open(flags);
    record.SetItemName(TEXT("a"));
    record.SetStateIndex(0);
    record.SetCut(true);
    record.SetChecked(true);
    record.SetSelected(true);
    const UINT box = flags ? 2 : TreeOrList(0u, 1u);
    const UINT state = box << 12 | LVIS_CUT | LVIS_SELECTED;
    client.onItemSelectionChanged = [&](ItemHandle item) {
      EXPECT_TRUE(!view->IsItemSelected(item) || BoxOf(item) == box) << "checked before selected";
    };
    const ItemHandle item = view->InsertItem(&record, -1);
    client.labels[item] = "a";
    for (const bool updated : {false, true}) {
      EXPECT_EQ(StateOf(item, 0xF006), state) << updated;
      EXPECT_EQ(TextOf(item), TEXT("a"));
      EXPECT_TRUE(IsList() || Ask(TVM_GETNEXTITEM, TVGN_CARET) == item);
      if (!IsList()) Ask(TVM_SELECTITEM, TVGN_CARET, 0);
      SetState(item, 0, 0xF006);
      client.Take();
      EXPECT_TRUE(view->UpdateItem(&record, item));
      EXPECT_TRUE(IsList() || Callbacks() == "a") << "without a bracket";
    }
    QVLTreeViewItem plain;
    EXPECT_TRUE(view->UpdateItem(&plain, item));
    EXPECT_EQ(StateOf(item, 0xF006), state);
  }
}

TEST_P(ViewInsert, RefusedItemIsNeitherCheckedNorSelected) {
  OpenWithItems(QVLS_CHECKBOXES);
  record.SetChecked(true);
  record.SetSelected(true);
  SentMessages sent;
  sent.answers[insertItem] = TreeOrList(0, -1);
  EXPECT_EQ(view->InsertItem(&record, -1), -1);
  sent.answers[setItem] = 0;
  EXPECT_FALSE(view->UpdateItem(&record, a));
  // Only the low half of a tree's answer counts.
  if (!IsList()) sent.answers[setItem] = LRESULT{1} << 32;
  EXPECT_FALSE(view->UpdateItem(&record, a));
  EXPECT_EQ(sent.all.size(), 3u);
  sent.answers[setItem] = 1;
  sent.answers[TreeOrList<UINT>(TVM_SELECTITEM, LVM_SETITEMSTATE)] = 0;
  EXPECT_TRUE(view->UpdateItem(&record, a)) << "a refused selection is no failure";
}

class ListInsert : public ViewInsert {
 protected:
  // Inserts the record, and gives the row that the control is asked for.
  int RowAskedFor(ItemHandle expected) {
    const SentMessages sent;
    EXPECT_EQ(view->InsertItem(&record, -1), expected);
    return sent.Of(LVM_INSERTITEMW).at(0).item.iItem;
  }
};

INSTANTIATE_TEST_SUITE_P(Views, ListInsert, ::testing::Values(QVLS_LISTVIEW), ViewName);

TEST_P(ListInsert, IndentIsTheParentsAndTheRecords) {
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
      // A row that does not exist still counts as a parent.
      {99, 0, 1},
      {0x100000002, 0, 1},
      {-2, 2, 3},
  };
  Open();
  ItemHandle next = 0;
  for (const auto& row : rows) {
    record.SetIndentOffset(row.offset);
    EXPECT_EQ(view->InsertItem(&record, row.parent), next);
    LVITEMW item = {};
    item.mask = LVIF_INDENT;
    item.iItem = static_cast<int>(next++);
    EXPECT_TRUE(AskRecord(LVM_GETITEMW, 0, &item));
    EXPECT_EQ(item.iIndent, row.indent) << item.iItem;
  }
}

// The position counts the insertions since the last DeleteAllItems, refused ones too.
TEST_P(ListInsert, NewRowsGoBehindAllInsertionsBefore) {
  Open();
  EXPECT_EQ(RowAskedFor(0), 0);
  EXPECT_EQ(RowAskedFor(1), 1);
  EXPECT_TRUE(view->DeleteItem(0));
  EXPECT_EQ(RowAskedFor(1), 2);
  {
    SentMessages sent;
    sent.answers[LVM_INSERTITEMW] = -1;
    EXPECT_EQ(view->InsertItem(&record, -1), -1);
  }
  EXPECT_EQ(RowAskedFor(2), 4);
  {
    const auto insertWhileDeleting = [&](HWND to, UINT message, WPARAM wParam, LPARAM lParam) {
      if (message == LVM_DELETEALLITEMS) view->InsertItem(&record, -1);
      return SendMessageW(to, message, wParam, lParam);
    };
    const Replaced patch("SendMessageW", &SendMessageW, insertWhileDeleting);
    view->DeleteAllItems();
  }
  EXPECT_EQ(RowAskedFor(0), 0);
}

TEST_P(ListInsert, RecordWithACellNumberWritesTheCell) {
  client.onCreateColumns = [](HWND list, RECT*) {
    LVCOLUMNW column = {};
    for (const WPARAM i : {0, 1, 2}) {
      SendMessageW(list, LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
    }
    return true;
  };
  OpenWithItems(QVLS_CHECKBOXES);
  const SentMessages sent;
  record.SetSubItem(2);
  record.SetStateIndex(1);
  for (const bool updates : {false, true}) {
    const WCHAR* text = updates ? TEXT("again") : TEXT("cell");
    record.SetItemName(text);
    EXPECT_TRUE(updates ? view->UpdateItem(&record, 1) : view->InsertItem(&record, 1) == 1);
    EXPECT_EQ(TextOf(1, 2), text);
    const LVITEMW written = sent.Of(LVM_SETITEMW).back().item;
    EXPECT_EQ(std::tuple(written.mask, written.iItem, written.iSubItem),
              std::tuple(UINT{LVIF_TEXT}, 1, 2));
  }
  EXPECT_EQ(TextOf(1), TEXT("b"));

  // Check and selection are those of the whole row.
  record.SetSelected(true);
  record.SetChecked(true);
  EXPECT_EQ(view->InsertItem(&record, 1), 1);
  EXPECT_TRUE(view->IsItemSelected(1) && view->IsItemChecked(1));

  // A cell of no row changes nothing, and the position of new rows stays.
  for (const ItemHandle row : {ItemHandle{7}, ItemHandle{-2}, ItemHandle{0x100000000}}) {
    EXPECT_EQ(view->InsertItem(&record, row), -1) << row;
    EXPECT_FALSE(view->UpdateItem(&record, row)) << row;
  }
  EXPECT_EQ(view->GetSelectedCount(), 1);
  EXPECT_EQ(TextOf(0, 2), TEXT(""));
  EXPECT_EQ(RowAskedFor(3), 3) << "without a row it is one of its own";
  EXPECT_EQ(TextOf(3), TEXT("again"));

  // A negative number is no cell's. An insertion ignores it, and an update passes it on.
  record.SetSubItem(-3);
  EXPECT_EQ(RowAskedFor(4), 4);
  EXPECT_EQ(TextOf(4), TEXT("again"));
  view->UpdateItem(&record, 1);
  const LVITEMW update = sent.Of(LVM_SETITEMW).back().item;
  EXPECT_TRUE(update.iSubItem == -3 && update.mask & LVIF_PARAM);
}

TEST_P(ViewInsert, RecordsAreReadOnlyAsFarAsTheItemNeedsThem) {
  client.onCreateColumns = [](HWND list, RECT*) {
    LVCOLUMNW column = {};
    for (const int i : {0, 1}) {
      SendMessageW(list, LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
    }
    return true;
  };
  for (const bool boxes : {false, true}) {
    for (const bool system : {false, true}) {
      SCOPED_TRACE(std::string(boxes ? "boxes " : "") + (system ? "icons" : ""));
      Open(boxes ? QVLS_CHECKBOXES : 0);
      const ItemHandle item = Insert(TEXT("item"));
      if (system) view->UseSystemImageList();
      LoggedRecord record;
      const auto expect = [&](const char* insert, const char* update) {
        const std::string box = boxes ? "C" : "";
        view->InsertItem(&record, IsList() && record.GetSubItem() ? item : -1);
        EXPECT_EQ(record.Take(), box + insert);
        view->UpdateItem(&record, item);
        EXPECT_EQ(record.Take(), box + update);
      };
      expect(TreeOrList(system ? "Sbcfnpst" : "Sbcinps", system ? "Scfnopst" : "Scinops"),
             TreeOrList(system ? "Sbcfnps" : "Sbcinps", system ? "Scfnps" : "Scinps"));
      if (!IsList()) continue;
      record.SetSubItem(1);
      expect(system ? "Scnps" : "Scinps", system ? "Scnps" : "Scinps");
    }
  }
}

}  // namespace
