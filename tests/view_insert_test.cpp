// What a record tells the control when it becomes an item and when it changes one.
#include <set>
#include <string>

#include "support/each_view.h"
#include "support/fake_icons.h"
#include "support/sent_messages.h"

namespace {

constexpr std::int64_t WIDE = -0x123456789A;

struct RecordRow {
  const char* name;
  int stateIndex;
  bool bold;
  bool cut;
  int image;
  UINT treeState;
  UINT listState;  // index 0 is the control's image 1, and there is no bold
};

constexpr RecordRow RECORDS[] = {
    {"defaults", -1, false, false, -1, 0, 0},
    {"image", -1, false, false, 7, 0, 0},
    {"bold and cut without a state", -1, true, true, -1, 0, 0},
    {"no state image", 0, false, false, -1, 0, 0x1000},
    {"state image", 3, false, false, -1, 0x3000, 0x4000},
    {"state image too large", 0x15, false, false, -1, 0x15000, 0x16000},
    {"negative state image", -2, false, false, -1, 0xFFFFE000, 0xFFFFF000},
    {"bold", 2, true, false, -1, 0x2010, 0x3000},
    {"cut", 1, false, true, -1, 0x1004, 0x2004},
    {"bold and cut", 0, true, true, 3, 0x14, 0x1004},
};

// Notes which of its accessors are read, by a letter each.
class NotedRecord final : public QVLTreeViewItem {
 public:
  std::string Take() {
    std::string all(read.begin(), read.end());
    read.clear();
    return all;
  }

  int GetType() const noexcept override { return Note('t', 1); }
  const WCHAR* GetItemName() const noexcept override { return Note('n', TEXT("n")); }
  const WCHAR* GetFileName() const noexcept override { return Note('f', TEXT("f")); }
  bool IsSelected() const noexcept override { return Note('S', false); }
  bool IsChecked() const noexcept override { return Note('C', false); }
  bool IsCut() const noexcept override { return Note('c', false); }
  bool IsBold() const noexcept override { return Note('b', false); }
  int GetImageIndex() const noexcept override { return Note('i', 0); }
  int GetStateIndex() const noexcept override { return Note('s', -1); }
  std::int64_t GetClientPtr() const noexcept override { return Note('p', 0); }
  int GetIndentOffset() const noexcept override { return Note('o', 0); }

 private:
  template <class Value>
  Value Note(char letter, Value value) const noexcept {
    read.insert(letter);
    return value;
  }
  mutable std::set<char> read;
};

class ViewInsert : public EachView {
 protected:
  void ExpectItem(const SentMessage& message, const RecordRow& wanted, UINT fields) {
    const LVITEMW& item = message.item;
    EXPECT_EQ(message.wParam, 0u);
    EXPECT_EQ(item.mask, wanted.stateIndex == -1 ? fields : fields | LVIF_STATE);
    if (item.mask & LVIF_STATE) {
      EXPECT_EQ(item.state, TreeOrList(wanted.treeState, wanted.listState));
      EXPECT_EQ(item.stateMask, TreeOrList(0xF014u, 0xF004u));
    }
    EXPECT_EQ(item.iImage, wanted.image);
    EXPECT_EQ(TreeOrList(message.treeItem.iSelectedImage, item.iImage), wanted.image);
    EXPECT_EQ(item.iSubItem, 0);
    EXPECT_EQ(item.lParam, WIDE);
    EXPECT_EQ(message.text, TEXT("the name"));
  }

  const UINT insertItem = TreeOrList(TVM_INSERTITEMW, LVM_INSERTITEMW);
  const UINT setItem = TreeOrList(TVM_SETITEMW, LVM_SETITEMW);
};

INSTANTIATE_TEST_SUITE_P(Views, ViewInsert, EACH_VIEW, ViewName);

TEST_P(ViewInsert, ARecordBecomesANativeItem) {
  Open();
  for (const RecordRow& row : RECORDS) {
    SCOPED_TRACE(row.name);
    QVLTreeViewItem record;
    record.SetItemName(TEXT("the name"));
    record.SetFileName(TEXT("the file"));
    record.SetClientPtr(WIDE);
    record.SetStateIndex(row.stateIndex);
    record.SetBold(row.bold);
    record.SetCut(row.cut);
    record.SetImageIndex(row.image);
    SentMessages sent;
    const ItemHandle item = view->InsertItem(&record, -1);
    EXPECT_TRUE(view->UpdateItem(&record, item));
    ASSERT_EQ(sent.all.size(), 2u);
    const SentMessage& update = sent.all[1];
    EXPECT_TRUE(sent.all[0].message == insertItem && update.message == setItem);
    ExpectItem(sent.all[0], row, TreeOrList(55u, 7u | LVIF_INDENT));
    ExpectItem(update, row, TreeOrList(55u, 7u));
    EXPECT_EQ(TreeOrList(update.treeItem.hItem, Native(update.item.iItem)), Native(item));
    EXPECT_EQ(view->GetItemClientPtr(item), WIDE);
    EXPECT_EQ(TextOf(item), TEXT("the name"));
  }
}

TEST_P(ViewInsert, OnlyWhatCountsIsRead) {
  FakeIcons icons;
  for (const bool boxes : {false, true}) {
    for (const bool system : {false, true}) {
      SCOPED_TRACE(std::string(boxes ? "boxes " : "") + (system ? "icons" : ""));
      client.onCreateColumns = [](HWND list, RECT*) {
        LVCOLUMNW column = {};
        for (int i = 0; i < 2; ++i) {
          SendMessageW(list, LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
        }
        return true;
      };
      OpenWithItems(boxes ? QVLS_CHECKBOXES : 0);
      if (system) view->UseSystemImageList();
      NotedRecord record;
      const std::string box = boxes ? "C" : "";
      view->InsertItem(&record, -1);
      EXPECT_EQ(record.Take(), box + TreeOrList(system ? "Sbcfnpst" : "Sbcinps",
                                                system ? "Scfnopst" : "Scinops"));
      view->UpdateItem(&record, a);
      EXPECT_EQ(record.Take(), box + TreeOrList(system ? "Sbcfnps" : "Sbcinps",
                                                system ? "Scfnps" : "Scinps"));
      if (!IsList()) continue;
      record.SetSubItem(1);
      view->InsertItem(&record, a);
      EXPECT_EQ(record.Take(), box + (system ? "Scnps" : "Scinps"));
      view->UpdateItem(&record, a);
      EXPECT_EQ(record.Take(), box + (system ? "Scnps" : "Scinps"));
    }
  }
}

TEST_P(ViewInsert, CheckAndSelectionFollowTheItemAndAreOnlySwitchedOn) {
  for (const std::uint32_t flags : {0u, QVLS_CHECKBOXES}) {
    Open(flags);
    QVLTreeViewItem record;
    record.SetItemName(TEXT("a"));
    record.SetStateIndex(0);
    record.SetCut(true);
    record.SetChecked(true);
    record.SetSelected(true);
    QVLTreeViewItem plain;
    const UINT box = flags ? 2 : TreeOrList(0u, 1u);
    client.onItemSelectionChanged = [&](ItemHandle item) {
      EXPECT_TRUE(!view->IsItemSelected(item) || BoxOf(item) == box) << "who is told sees all";
    };
    const ItemHandle item = view->InsertItem(&record, -1);
    client.labels[item] = "a";
    for (const bool updated : {false, true}) {
      EXPECT_EQ(StateOf(item, 0xF006), box << 12 | LVIS_CUT | LVIS_SELECTED) << updated;
      EXPECT_EQ(TextOf(item), TEXT("a"));
      EXPECT_TRUE(IsList() || Ask(TVM_GETNEXTITEM, TVGN_CARET) == item);
      if (!IsList()) Ask(TVM_SELECTITEM, TVGN_CARET, 0);
      SetState(item, 0, 0xF006);
      client.Take();
      EXPECT_TRUE(view->UpdateItem(&record, item));
      EXPECT_TRUE(IsList() || Heard() == "a") << "without a bracket";
    }
    EXPECT_TRUE(view->UpdateItem(&plain, item));
    EXPECT_EQ(StateOf(item, 0xF006), box << 12 | LVIS_CUT | LVIS_SELECTED);
  }
}

TEST_P(ViewInsert, RefusedItemsGetNothingFurther) {
  OpenWithItems(QVLS_CHECKBOXES);
  QVLTreeViewItem record;
  record.SetChecked(true);
  record.SetSelected(true);
  SentMessages sent;
  sent.answers[insertItem] = TreeOrList(0, -1);
  EXPECT_EQ(view->InsertItem(&record, -1), -1);
  sent.answers[setItem] = 0;
  EXPECT_FALSE(view->UpdateItem(&record, a));
  // Of a tree's answer the low half counts.
  if (!IsList()) sent.answers[setItem] = LRESULT{1} << 32;
  EXPECT_FALSE(view->UpdateItem(&record, a));
  EXPECT_EQ(sent.all.size(), 3u);
  sent.answers[setItem] = 1;
  sent.answers[TreeOrList<UINT>(TVM_SELECTITEM, LVM_SETITEMSTATE)] = 0;
  EXPECT_TRUE(view->UpdateItem(&record, a)) << "what follows the item is not looked at";
}

}  // namespace
