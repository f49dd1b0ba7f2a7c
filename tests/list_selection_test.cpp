// The selection of a list: what the operations select and the callbacks for each row.
#include <functional>
#include <string>

#include "support/list_test.h"
#include "support/sent_messages.h"

namespace {

class ListSelectionTest : public ListTest {
 protected:
  // A hit selects its row alone and updates it, unless the row is selected.
  void Hit(ItemHandle row, bool select, bool updates) {
    const POINT point = row == -1 ? ToScreen(OffPoint()) : LabelOnScreen(row);
    const SentMessages sent;
    std::uint32_t flags = 0xFFFF;
    EXPECT_EQ(view->HitTest(&point, select, &flags), row);
    EXPECT_EQ(flags, row == -1 ? 0 : QVLHT_ONITEMLABEL);
    EXPECT_EQ(sent.Of(LVM_UPDATE).size(), updates ? 1u : 0u);
    EXPECT_TRUE(!updates || sent.all.back().wParam == static_cast<WPARAM>(row));
  }
};

TEST_F(ListSelectionTest, EachChangeOfRowIsReportedInItsOwnBracket) {
  Open(QVLS_CHECKBOXES);
  view->SetMultiSelect(false);
  EXPECT_FALSE(view->GetMultiSelect()) << "stored, and without effect on a list";
  AddRows(4);
  QVLTreeViewItem selected;
  selected.SetSelected(true);
  QVLTreeViewItem renamed;
  renamed.SetItemName(TEXT("new"));
  const struct {
    const char* name;
    std::function<void()> operation;
    std::string reported, after;
  } cases[] = {
      {"SelectAll", [&] { view->SelectAll(); }, "02", "0123"},
      {"ClearSelection", [&] { view->ClearSelection(); }, "13", ""},
      {"InvertSelection", [&] { view->InvertSelection(); }, "0123", "02"},
      {"select", [&] { view->SetItemSelected(2, true); }, "2", "123"},
      {"selected already", [&] { view->SetItemSelected(1, true); }, "", "13"},
      {"deselect", [&] { view->SetItemSelected(1, false); }, "1", "3"},
      {"not selected", [&] { view->SetItemSelected(2, false); }, "", "13"},
      {"hit without selection", [&] { Hit(2, false, false); }, "", "13"},
      {"hit", [&] { Hit(2, true, true); }, "132", "2"},
      {"hit on selected row", [&] { Hit(1, true, false); }, "", "13"},
      {"hit below", [&] { Hit(-1, true, false); }, "", "13"},
      {"selected record", [&] { view->UpdateItem(&selected, 0); }, "00", "013"},
      {"text", [&] { view->UpdateItem(&renamed, 2); }, "2", "13"},
      {"box", [&] { view->SetItemChecked(1, true); }, "1", "13"},
      {"boxes", [&] { view->CheckAll(); }, "023", "13"},
      {"no boxes", [&] { view->UncheckAll(); }, "0123", "13"},
      {"focus", [&] { SetState(1, LVIS_FOCUSED, LVIS_FOCUSED); }, "1", "13"},
      {"cut", [&] { SetState(0, LVIS_CUT, LVIS_CUT); }, "0", "13"},
      {"no row", [&] { NotifyOf(-1, LVN_ITEMCHANGED); }, "-", "13"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    view->ClearSelection();
    for (const ItemHandle row : {1, 3}) view->SetItemSelected(row, true);
    client.Take();
    c.operation();
    std::string callbacks;
    for (const char row : c.reported) {
      callbacks +=
          (callbacks.empty() ? "B " : " B ") + (row == '-' ? "-1" : std::string(1, row)) + " E";
    }
    EXPECT_EQ(Callbacks(), callbacks);
    std::string shown;
    for (const ItemHandle row : {0, 1, 2, 3}) {
      EXPECT_EQ(view->IsItemSelected(row), StateOf(row, LVIS_SELECTED) != 0);
      if (view->IsItemSelected(row)) shown += std::to_string(row);
    }
    EXPECT_EQ(shown, c.after);
    EXPECT_EQ(Selected(), c.after);
    EXPECT_EQ(view->GetSelectedItem(view->GetSelectedCount()), -1);
  }
}

}  // namespace
