// The list's selection: what the operations select, what the client hears of it, what lies under
// a point, and that the work grows with the rows.

#include <windows.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <iterator>
#include <string>

#include "support/fake_drag.h"
#include "support/list_test.h"
#include "support/sent_messages.h"

namespace {

// One bracket for each of the rows.
Lines Brackets(const ItemHandleList& rows) {
  Lines lines;
  for (const ItemHandle row : rows) {
    lines.insert(lines.end(), {"Begin", "Changed " + std::to_string(row), "End"});
  }
  return lines;
}

class ListSelectionTest : public ListTest {
 protected:
  void Select(const ItemHandleList& rows) {
    view->ClearSelection();
    for (const ItemHandle row : rows) view->SetItemSelected(row, true);
    client.Take();
  }
  std::uint32_t FlagsAt(POINT point) {
    std::uint32_t flags = 0xFFFF;
    hitRow = view->HitTest(&point, false, &flags);
    return flags;
  }

  ItemHandle hitRow = -2;
};

TEST_F(ListSelectionTest, EachChangedRowIsReportedInABracketOfItsOwn) {
  Open();
  AddRows(5);
  struct {
    const char* name;
    ItemHandleList before;
    std::function<void()> operation;
    ItemHandleList reported;
    ItemHandleList after;
  } const cases[] = {
      {"SelectAll", {1, 3}, [&] { view->SelectAll(); }, {0, 2, 4}, {0, 1, 2, 3, 4}},
      {"ClearSelection", {0, 2, 3}, [&] { view->ClearSelection(); }, {0, 2, 3}, {}},
      {"InvertSelection", {1, 3}, [&] { view->InvertSelection(); }, {0, 1, 2, 3, 4}, {0, 2, 4}},
      {"SetItemSelected", {1}, [&] { view->SetItemSelected(4, true); }, {4}, {1, 4}},
      {"selected already", {1}, [&] { view->SetItemSelected(1, true); }, {}, {1}},
      {"deselected", {1, 2}, [&] { view->SetItemSelected(1, false); }, {1}, {2}},
      {"not selected", {1}, [&] { view->SetItemSelected(2, false); }, {}, {1}},
      {"a selected record",
       {1},
       [&] {
         QVLTreeViewItem record;
         record.SetSelected(true);
         record.SetItemName(TEXT("row"));
         view->UpdateItem(&record, 0);
       },
       {0},
       {0, 1}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Select(c.before);
    c.operation();
    EXPECT_EQ(client.Take(), Brackets(c.reported));
    EXPECT_EQ(SelectedRows(), c.after);
    EXPECT_EQ(view->GetSelectedCount(), static_cast<int>(c.after.size()));
    for (int i = 0; i < static_cast<int>(c.after.size()); ++i) {
      EXPECT_EQ(view->GetSelectedItem(i), c.after[static_cast<std::size_t>(i)]);
    }
    EXPECT_EQ(view->GetSelectedItem(static_cast<int>(c.after.size())), -1);
    EXPECT_EQ(view->IsItemSelected(1), std::count(c.after.begin(), c.after.end(), 1) == 1);
  }
}

TEST_F(ListSelectionTest, AnEmptyListIsOnlyCounted) {
  Open();
  SentMessages sent;
  view->SelectAll();
  view->ClearSelection();
  view->InvertSelection();
  EXPECT_EQ(sent.all.size(), 3u);
  EXPECT_EQ(sent.Of(LVM_GETITEMCOUNT).size(), 3u);
  EXPECT_EQ(view->GetSelectedItem(0), -1);
}

TEST_F(ListSelectionTest, EveryOtherChangeOfARowIsReportedToo) {
  Open(QVLS_CHECKBOXES);
  AddRows(3);
  const auto setState = [&](int row, UINT state, UINT mask) {
    LVITEMW change = {};
    change.state = state;
    change.stateMask = mask;
    SendMessageW(control, LVM_SETITEMSTATE, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(&change));
  };
  QVLTreeViewItem record;
  record.SetItemName(TEXT("new"));
  struct {
    const char* name;
    std::function<void()> change;
    ItemHandleList reported;
  } const cases[] = {
      {"box", [&] { view->SetItemChecked(1, true); }, {1}},
      {"boxes", [&] { view->CheckAll(); }, {0, 2}},
      {"no boxes", [&] { view->UncheckAll(); }, {0, 1, 2}},
      {"text", [&] { view->UpdateItem(&record, 2); }, {2}},
      {"focus", [&] { setState(1, LVIS_FOCUSED, LVIS_FOCUSED); }, {1}},
      {"cut", [&] { setState(0, LVIS_CUT, LVIS_CUT); }, {0}},
      {"all rows", [&] { setState(-1, LVIS_SELECTED, LVIS_SELECTED); }, {0, 1, 2}},
      {"no row in particular", [&] { NotifyRow(LVN_ITEMCHANGED, -1); }, {-1}},
  };
  client.Take();
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    c.change();
    EXPECT_EQ(client.Take(), Brackets(c.reported));
  }
}

TEST_F(ListSelectionTest, TheModeIsTheControlsOwn) {
  Open(QVLS_SINGLESEL);
  AddRows(3);
  view->SetMultiSelect(true);
  EXPECT_TRUE(view->GetMultiSelect());
  view->SelectAll();
  EXPECT_EQ(view->GetSelectedCount(), 1);
  EXPECT_EQ(client.depth, 0);

  Open();
  AddRows(3);
  view->SetMultiSelect(false);
  EXPECT_FALSE(view->GetMultiSelect());
  view->SelectAll();
  EXPECT_EQ(view->GetSelectedCount(), 3);
}

TEST_F(ListSelectionTest, AHitSaysWhichPartOfTheRowItIsOn) {
  const HIMAGELIST images = ImageList_Create(16, 16, ILC_COLOR32, 1, 1);
  UseClientColumns({150, 50});
  Open(QVLS_CHECKBOXES);
  view->SetImageList(images);
  AddRows(3);
  const RECT icon = Part(1, LVIR_ICON);
  const RECT label = Part(1, LVIR_LABEL);
  const RECT bounds = Part(1, LVIR_BOUNDS);
  ASSERT_EQ(icon.right - icon.left, 16);
  const LONG middle = (bounds.top + bounds.bottom) / 2;
  const auto at = [&](LONG x, LONG y) { return OnScreen({x, y, x, y}); };

  struct {
    const char* name;
    POINT point;
    ItemHandle row;
    std::uint32_t flags;
  } const cases[] = {
      {"box", at(icon.left - 8, middle), 1, QVLHT_ABOVE | QVLHT_ONITEMSTATEICON},
      {"icon", at(icon.left + 8, middle), 1, QVLHT_ONITEMICON},
      {"label", at(label.left + 5, middle), 1, QVLHT_ONITEMLABEL},
      {"right of the columns", at(250, middle), -1, 0},
      {"below the rows", at(60, ClientRect().bottom - 20), -1, 0},
      {"left of the control", at(-10, middle), -1, 0},
      {"below the control", at(60, ClientRect().bottom + 10), -1, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(FlagsAt(c.point), c.flags);
    EXPECT_EQ(hitRow, c.row);
  }
  FlagsAt(at(175, middle));  // in the second column; controls differ in what part that is
  EXPECT_EQ(hitRow, 1);
  EXPECT_EQ(client.Take(), Lines());
  view->Destroy();
  ImageList_Destroy(images);
}

// Answers a hit test as a control might.
UINT answeredFlags;
LRESULT WINAPI AnswerHit(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != LVM_HITTEST) return SendMessageW(window, message, wParam, lParam);
  reinterpret_cast<LVHITTESTINFO*>(lParam)->flags = answeredFlags;
  return 0;
}

TEST_F(ListSelectionTest, EachNativeHitFlagHasItsOwn) {
  Open();
  AddRows(1);
  const ImportPatch patch("SendMessageW", &AnswerHit);
  struct {
    UINT native;
    std::uint32_t flags;
  } const cases[] = {{0x01, 0x004}, {0x02, 0x020}, {0x04, 0x080}, {0x08, 0x201}, {0x10, 0x002},
                     {0x20, 0x800}, {0x40, 0x400}, {0x0E, 0x2A1}, {0, 0},        {~0x7FU, 0}};
  for (const auto& c : cases) {
    answeredFlags = c.native;
    EXPECT_EQ(FlagsAt({0, 0}), c.flags) << c.native;
    EXPECT_EQ(hitRow, 0);
  }
}

TEST_F(ListSelectionTest, AHitSelectsTheRowAloneUnlessItIsSelected) {
  Open();
  AddRows(4);
  const auto hit = [&](POINT point, bool select, std::uint32_t* flags) {
    const POINT before = point;
    const ItemHandle row = view->HitTest(&point, select, flags);
    EXPECT_TRUE(point.x == before.x && point.y == before.y);
    return row;
  };
  const POINT second = OnScreen(Part(1, LVIR_LABEL));
  Select({0, 2, 3});
  SentMessages sent;
  EXPECT_EQ(hit(second, false, nullptr), 1);
  EXPECT_EQ(client.Take(), Lines());
  EXPECT_EQ(sent.Of(LVM_UPDATE).size(), 0u);
  EXPECT_EQ(hit(second, true, nullptr), 1);
  EXPECT_EQ(client.Take(), Brackets({0, 2, 3, 1}));
  EXPECT_EQ(SelectedRows(), ItemHandleList{1});
  ASSERT_EQ(sent.Of(LVM_UPDATE).size(), 1u);
  EXPECT_EQ(sent.Of(LVM_UPDATE)[0].wParam, 1u);

  Select({1, 2});
  EXPECT_EQ(hit(second, true, nullptr), 1);
  EXPECT_EQ(SelectedRows(), (ItemHandleList{1, 2}));
  std::uint32_t flags = 0xFF;
  EXPECT_EQ(hit(OnScreen({60, 350, 60, 350}), true, &flags), -1);
  EXPECT_EQ(flags, 0u);
  EXPECT_EQ(SelectedRows(), (ItemHandleList{1, 2}));
  EXPECT_EQ(client.Take(), Lines());
}

TEST_F(ListSelectionTest, AClientMayDeleteTheRowsThatAreBeingSelected) {
  Open();
  AddRows(5);
  client.onItemSelectionChanged = [&](ItemHandle row) {
    if (row == 1) view->DeleteAllItems();
  };
  view->SelectAll();
  EXPECT_EQ(RowCount(), 0);
  EXPECT_EQ(client.depth, 0);
  client.onItemSelectionChanged = nullptr;
  AddRows(1);
  EXPECT_EQ(view->GetSelectedCount(), 0);
}

// The time that each operation on all of `count` rows takes, in the order of OPERATIONS.
class ListGrowthTest : public ListSelectionTest {
 protected:
  static constexpr const char* OPERATIONS[] = {"SelectAll", "InvertSelection", "CheckAll", "drag",
                                               "ClearSelection"};

  std::vector<double> Measure(int count) {
    Open(QVLS_CHECKBOXES);
    SendMessageW(control, WM_SETREDRAW, FALSE, 0);
    view->SetClient(nullptr);
    AddRows(count);
    std::vector<double> times;
    times.push_back(Time([&] { view->SelectAll(); }));
    EXPECT_EQ(view->GetSelectedCount(), count);
    times.push_back(Time([&] { view->InvertSelection(); }));
    EXPECT_EQ(view->GetSelectedCount(), 0);
    times.push_back(Time([&] { view->CheckAll(); }));
    EXPECT_EQ(view->GetCheckedCount(), count);
    view->SelectAll();
    times.push_back(Time([&] { DragAll(count); }));
    times.push_back(Time([&] { view->ClearSelection(); }));
    EXPECT_EQ(view->GetSelectedCount(), 0);
    return times;
  }

 private:
  static double Time(const std::function<void()>& operation) {
    const auto start = std::chrono::steady_clock::now();
    operation();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  }

  void DragAll(int count) {
    client.onBeginDrag = [=](ItemHandleList* items, FileNameList* files) {
      EXPECT_EQ(items->size(), static_cast<std::size_t>(count));
      files->push_back(TEXT("C:\\file"));
      return true;
    };
    view->SetClient(&client);
    NotifyRow(LVN_BEGINDRAG, 0);
    view->SetClient(nullptr);
    EXPECT_EQ(client.Take().size(), 1u);
  }

  FakeDrag drag;
};

TEST_F(ListGrowthTest, TenTimesTheRowsTakeAboutTenTimesAsLong) {
  const std::vector<double> few = Measure(10000);
  const std::vector<double> many = Measure(100000);
  for (std::size_t i = 0; i < std::size(OPERATIONS); ++i) {
    // Work that grows with the square of the rows takes a hundred times as long.
    EXPECT_LT(many[i], few[i] * 40) << OPERATIONS[i];
    RecordProperty(OPERATIONS[i], std::to_string(few[i]) + " s, " + std::to_string(many[i]) + " s");
  }
  ReleaseView();
}

}  // namespace
