// Rows of the list: neighbours, scrolling, icons.

#include <string>
#include <vector>

#include "support/fake_icons.h"
#include "support/list_test.h"
#include "support/sent_messages.h"

namespace {

class ListItemsTest : public ListTest {};

TEST_F(ListItemsTest, TheNeighboursOfARowAreTheRowsBesideIt) {
  Open();
  QVLTreeViewItem record;
  for (int row = 0; row < 10; ++row) view->InsertItem(&record, row - 1);
  struct {
    ItemHandle row, before, after;
  } const cases[] = {{0, -1, 1}, {1, 0, 2}, {5, 4, 6}, {8, 7, 9}, {9, 8, -1}};
  for (const auto& c : cases) {
    EXPECT_EQ(view->GetParentItem(c.row), c.before) << c.row;
    EXPECT_EQ(view->GetFirstChildItem(c.row), c.after) << c.row;
    EXPECT_EQ(view->GetNextSiblingItem(c.row), c.after) << c.row;
  }
  view->ExpandItem(0, true);
  view->ExpandAll();
  view->CollapseAll();
  EXPECT_FALSE(view->IsItemExpanded(0));

  ItemHandleList items = {7, 8, 9};
  for (const bool visibleOnly : {true, false}) {
    items.resize(3);
    EXPECT_EQ(view->GetItems(&items, visibleOnly), 13);
    EXPECT_EQ(items, (ItemHandleList{7, 8, 9, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
  }
}

TEST_F(ListItemsTest, ScrollingIsCountedInRowsAndMovedByPixels) {
  Open();
  SentMessages sent;
  view->EnsureVisible(0);
  EXPECT_EQ(sent.Of(LVM_ENSUREVISIBLE).size(), 0u) << "there is no row";
  const auto expectAt = [this](int top) {
    const RECT row = RowCount() ? ItemRect(top, false) : RECT{};
    int x = -1;
    int y = -1;
    EXPECT_TRUE(view->GetScrollPosition(&x, &y));
    EXPECT_EQ(x, 0);
    EXPECT_EQ(y, top * (row.bottom - row.top));
  };
  expectAt(0);
  AddRows(100);
  const int height = ItemRect(0, false).bottom - ItemRect(0, false).top;
  view->EnsureVisible(99);
  const auto top = static_cast<int>(Ask(LVM_GETTOPINDEX));
  EXPECT_GT(top, 50);
  EXPECT_LE(ItemRect(99, false).bottom, ClientRect().bottom);
  expectAt(top);

  view->SetScrollPosition(-3, -2 * height);
  const auto scrolls = sent.Of(LVM_SCROLL);
  ASSERT_EQ(scrolls.size(), 1u);
  EXPECT_EQ(static_cast<INT_PTR>(scrolls[0].wParam), -3);
  EXPECT_EQ(scrolls[0].lParam, -2 * height);
  expectAt(top - 2);
  view->EnsureVisible(-1);
  expectAt(0);
}

TEST_F(ListItemsTest, WithSystemIconsTheShellIsAskedForEachRow) {
  FakeIcons shell;
  UseClientColumns({100, 100});
  Open();
  QVLTreeViewItem record;
  record.SetFileName(TEXT("C:\\folder.d\\file.txt"));
  record.SetImageIndex(6);
  SentMessages sent;
  const auto insert = [&](int type, int index) {
    shell.index = index;
    record.SetType(type);
    view->InsertItem(&record, -1);
    return sent.Of(LVM_INSERTITEMW).back().item.iImage;
  };
  shell.refuses = true;
  EXPECT_FALSE(view->UseSystemImageList());
  EXPECT_EQ(sent.Of(LVM_SETIMAGELIST).size(), 0u);
  EXPECT_EQ(insert(0, 41), 6);

  shell.refuses = false;
  EXPECT_TRUE(view->UseSystemImageList());
  EXPECT_EQ(sent.Of(LVM_SETIMAGELIST)[0].wParam, 1u);
  EXPECT_EQ(sent.Of(LVM_SETIMAGELIST)[0].lParam, reinterpret_cast<LPARAM>(shell.list));
  EXPECT_TRUE(view->SetImageList(nullptr)) << "does not end the system icons";
  shell.asked.clear();
  EXPECT_EQ(insert(0, 42), 42);
  EXPECT_EQ(insert(1, 43), 43);
  EXPECT_EQ(insert(2, 44), 44);
  record.SetType(1);
  view->UpdateItem(&record, 0);
  EXPECT_EQ(sent.Of(LVM_SETITEMW)[0].item.iImage, 44);
  record.SetSubItem(1);
  view->InsertItem(&record, 0);
  view->UpdateItem(&record, 0);
  const std::basic_string<WCHAR> whole = TEXT("C:\\folder.d\\file.txt");
  const std::vector<std::basic_string<WCHAR>> asked = {whole, TEXT("file.txt"), whole, whole};
  EXPECT_EQ(shell.asked, asked) << "and a cell has no icon";
}

}  // namespace
