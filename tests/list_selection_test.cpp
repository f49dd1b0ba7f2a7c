// The list's selection: what the operations select, what the client hears of it, what lies under
// a point, and that the work grows with the rows.

#include <chrono>
#include <functional>
#include <string>

#include "support/list_test.h"
#include "support/sent_messages.h"

namespace {

class ListSelectionTest : public ListTest {
 protected:
  void Select(const ItemHandleList& rows) {
    view->ClearSelection();
    for (const ItemHandle row : rows) view->SetItemSelected(row, true);
    client.Take();
  }

  // What the view says of the selection is what the control shows.
  void ExpectSelected(const ItemHandleList& rows) {
    EXPECT_EQ(SelectedRows(), rows);
    EXPECT_EQ(view->GetSelectedCount(), static_cast<int>(rows.size()));
    int index = 0;
    for (const ItemHandle row : rows) {
      EXPECT_EQ(view->GetSelectedItem(index++), row);
      EXPECT_TRUE(view->IsItemSelected(row));
    }
    EXPECT_EQ(view->GetSelectedItem(index), -1);
  }
};

TEST_F(ListSelectionTest, EachChangeOfARowIsReportedInABracketOfItsOwn) {
  Open(QVLS_CHECKBOXES);
  AddRows(4);
  QVLTreeViewItem selected;
  selected.SetSelected(true);
  selected.SetItemName(TEXT("row"));
  QVLTreeViewItem renamed;
  renamed.SetItemName(TEXT("new"));
  struct {
    const char* name;
    std::function<void()> operation;
    ItemHandleList reported;
    ItemHandleList after;
  } const cases[] = {
      {"SelectAll", [&] { view->SelectAll(); }, {0, 2}, {0, 1, 2, 3}},
      {"ClearSelection", [&] { view->ClearSelection(); }, {1, 3}, {}},
      {"InvertSelection", [&] { view->InvertSelection(); }, {0, 1, 2, 3}, {0, 2}},
      {"select", [&] { view->SetItemSelected(2, true); }, {2}, {1, 2, 3}},
      {"selected already", [&] { view->SetItemSelected(1, true); }, {}, {1, 3}},
      {"deselect", [&] { view->SetItemSelected(1, false); }, {1}, {3}},
      {"not selected", [&] { view->SetItemSelected(2, false); }, {}, {1, 3}},
      {"a selected record", [&] { view->UpdateItem(&selected, 0); }, {0}, {0, 1, 3}},
      {"text", [&] { view->UpdateItem(&renamed, 2); }, {2}, {1, 3}},
      {"box", [&] { view->SetItemChecked(1, true); }, {1}, {1, 3}},
      {"boxes", [&] { view->CheckAll(); }, {0, 2, 3}, {1, 3}},
      {"no boxes", [&] { view->UncheckAll(); }, {0, 1, 2, 3}, {1, 3}},
      {"focus", [&] { SetState(1, LVIS_FOCUSED, LVIS_FOCUSED); }, {1}, {1, 3}},
      {"cut", [&] { SetState(0, LVIS_CUT, LVIS_CUT); }, {0}, {1, 3}},
      {"all", [&] { SetState(-1, LVIS_SELECTED, LVIS_SELECTED); }, {0, 2}, {0, 1, 2, 3}},
      {"no row in particular", [&] { NotifyOf(-1, LVN_ITEMCHANGED); }, {-1}, {1, 3}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Select({1, 3});
    c.operation();
    EXPECT_EQ(client.Take(), Brackets(c.reported));
    ExpectSelected(c.after);
  }
}

TEST_F(ListSelectionTest, AnEmptyListIsOnlyCounted) {
  Open();
  const SentMessages sent;
  view->SelectAll();
  view->ClearSelection();
  view->InvertSelection();
  EXPECT_EQ(sent.all.size(), 3u);
  EXPECT_EQ(sent.Of(LVM_GETITEMCOUNT).size(), 3u);
}

TEST_F(ListSelectionTest, TheModeIsTheControlsOwn) {
  for (const bool many : {true, false}) {
    Open(many ? 0 : QVLS_SINGLESEL);
    AddRows(3);
    view->SetMultiSelect(!many);
    EXPECT_EQ(view->GetMultiSelect(), !many);
    view->SelectAll();
    EXPECT_EQ(view->GetSelectedCount(), many ? 3 : 1);
    EXPECT_EQ(client.depth, 0);
  }
}

TEST_F(ListSelectionTest, AHitSelectsTheRowAloneUnlessItIsSelected) {
  Open();
  AddRows(4);
  const POINT second = LabelOnScreen(1);
  const POINT below = ToScreen(OffPoint());
  struct {
    ItemHandleList before;
    const POINT* point;
    bool select;
    ItemHandleList reported, after;
  } const cases[] = {
      {{0, 2, 3}, &second, false, {}, {0, 2, 3}},
      {{0, 2, 3}, &second, true, {0, 2, 3, 1}, {1}},
      {{1, 2}, &second, true, {}, {1, 2}},
      {{1, 2}, &below, true, {}, {1, 2}},
  };
  for (const auto& c : cases) {
    Select(c.before);
    const SentMessages sent;
    std::uint32_t flags = 0xFFFF;
    EXPECT_EQ(view->HitTest(c.point, c.select, &flags), c.point == &second ? 1 : -1);
    EXPECT_EQ(flags, c.point == &second ? QVLHT_ONITEMLABEL : 0u);
    EXPECT_EQ(client.Take(), Brackets(c.reported));
    ExpectSelected(c.after);
    const auto updates = sent.Of(LVM_UPDATE);
    ASSERT_EQ(updates.size(), c.reported.empty() ? 0u : 1u);
    EXPECT_TRUE(updates.empty() || updates[0].wParam == 1);
  }
}

class ListGrowthTest : public ListTest {};

TEST_F(ListGrowthTest, TenTimesTheRowsTakeAboutTenTimesAsLong) {
  std::size_t dragged = 0;
  client.onBeginDrag = [&](ItemHandleList* items, FileNameList*) {
    dragged = items->size();
    return false;
  };
  struct {
    const char* name;
    std::function<void()> run;
    double fewSeconds;
  } operations[] = {
      {"SelectAll", [&] { view->SelectAll(); }, 0},
      {"drag", [&] { view->SetClient(&client), NotifyOf(0, LVN_BEGINDRAG); }, 0},
      {"ClearSelection", [&] { view->SetClient(nullptr), view->ClearSelection(); }, 0},
      {"InvertSelection", [&] { view->InvertSelection(); }, 0},
      {"CheckAll", [&] { view->CheckAll(); }, 0},
  };
  for (const int count : {10000, 100000}) {
    Open(QVLS_CHECKBOXES);
    Ask(WM_SETREDRAW, FALSE);
    view->SetClient(nullptr);
    AddRows(count);
    for (auto& operation : operations) {
      const auto start = std::chrono::steady_clock::now();
      operation.run();
      const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
      if (count == 10000) operation.fewSeconds = took.count();
      // Work that grows with the square of the rows takes a hundred times as long.
      EXPECT_LT(took.count(), operation.fewSeconds * 40) << operation.name;
    }
    EXPECT_EQ(dragged, static_cast<std::size_t>(count));
    EXPECT_EQ(view->GetSelectedCount(), count);
    EXPECT_EQ(view->GetCheckedCount(), count);
  }
}

}  // namespace
