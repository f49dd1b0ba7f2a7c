// The operations on rows of the list that are there already, and on its control.

#include <windows.h>

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

TEST_F(ListItemsTest, AHandleThatNoRowHasTouchesNothing) {
  Open(QVLS_CHECKBOXES);
  AddRows(3);
  QVLTreeViewItem record;
  record.SetItemName(TEXT("changed"));
  record.SetSelected(true);
  // Their low halves look like a row, or like all of them.
  for (const ItemHandle handle : {ItemHandle{-1}, 0x100000000, 0x100000001, ItemHandle{0xFFFFFFFF},
                                  -0x100000000, 0x7FFFFFFF00000000}) {
    SCOPED_TRACE(handle);
    const SentMessages sent;
    EXPECT_FALSE(view->UpdateItem(&record, handle) || view->DeleteItem(handle));
    EXPECT_EQ(view->GetParentItem(handle), -1);
    EXPECT_EQ(view->GetFirstChildItem(handle), -1);
    EXPECT_EQ(view->GetNextSiblingItem(handle), -1);
    EXPECT_EQ(view->GetItemClientPtr(handle), 0);
    for (const bool on : {true, false}) {
      view->SetItemSelected(handle, on);
      view->SetItemChecked(handle, on);
    }
    EXPECT_FALSE(view->IsItemSelected(handle) || view->IsItemChecked(handle));
    EXPECT_EQ(sent.Of(LVM_SETITEMSTATE).size() + sent.Of(LVM_SETITEMW).size(), 0u);
    view->EnsureVisible(handle);
  }
  EXPECT_EQ(client.Take(), Lines());
  EXPECT_EQ(RowCount(), 3);
  EXPECT_EQ(Text(0), TEXT("row"));
}

TEST_F(ListItemsTest, ScrollingIsCountedInRowsAndMovedByPixels) {
  Open();
  SentMessages sent;
  view->EnsureVisible(0);
  EXPECT_EQ(sent.Of(LVM_ENSUREVISIBLE).size(), 0u) << "there is no row";
  const auto expectAt = [this](int top) {
    const RECT row = RowCount() ? Part(top, LVIR_BOUNDS) : RECT{};
    int x = -1;
    int y = -1;
    EXPECT_TRUE(view->GetScrollPosition(&x, &y));
    EXPECT_EQ(x, 0);
    EXPECT_EQ(y, top * (row.bottom - row.top));
  };
  expectAt(0);
  AddRows(100);
  const int height = Part(0, LVIR_BOUNDS).bottom - Part(0, LVIR_BOUNDS).top;
  view->EnsureVisible(99);
  const auto top = static_cast<int>(Ask(LVM_GETTOPINDEX));
  EXPECT_GT(top, 50);
  EXPECT_LE(Part(99, LVIR_BOUNDS).bottom, ClientRect().bottom);
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

TEST_F(ListItemsTest, TheToolTipTakesWidthAndDelay) {
  Open(QVLS_INFOTIP);
  const auto tip = reinterpret_cast<HWND>(Ask(LVM_GETTOOLTIPS));
  ASSERT_NE(tip, nullptr);
  const SentMessages sent;
  view->SetToolTipWidth(70000);
  view->SetToolTipDelay(0x12345);
  const auto widths = sent.Of(TTM_SETMAXTIPWIDTH);
  const auto delays = sent.Of(TTM_SETDELAYTIME);
  ASSERT_TRUE(widths.size() == 1 && delays.size() == 1);
  EXPECT_TRUE(widths[0].window == tip && widths[0].lParam == 70000);
  EXPECT_TRUE(delays[0].window == tip && delays[0].wParam == 3 && delays[0].lParam == 0x2345);
}

TEST_F(ListItemsTest, ColoursAndImagesReachTheControl) {
  Open(QVLS_CHECKBOXES);
  EXPECT_TRUE(view->SetBkColor(RGB(1, 2, 3)) && view->SetTextColor(RGB(4, 5, 6)));
  EXPECT_EQ(Ask(LVM_GETBKCOLOR), static_cast<LRESULT>(RGB(1, 2, 3)));
  EXPECT_EQ(Ask(LVM_GETTEXTBKCOLOR), static_cast<LRESULT>(RGB(1, 2, 3)));
  EXPECT_EQ(Ask(LVM_GETTEXTCOLOR), static_cast<LRESULT>(RGB(4, 5, 6)));

  const HIMAGELIST images = ImageList_Create(16, 16, ILC_COLOR32, 1, 1);
  const HIMAGELIST states = ImageList_Create(16, 16, ILC_COLOR32, 1, 1);
  EXPECT_TRUE(view->SetImageList(images) && view->SetStateImageList(states));
  EXPECT_EQ(reinterpret_cast<HIMAGELIST>(Ask(LVM_GETIMAGELIST, LVSIL_SMALL)), images);
  EXPECT_EQ(reinterpret_cast<HIMAGELIST>(Ask(LVM_GETIMAGELIST, LVSIL_STATE)), states);
  view->Destroy();
  EXPECT_TRUE(ImageList_Destroy(images) && ImageList_Destroy(states)) << "they stay the host's";
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

TEST_F(ListItemsTest, ChecksAreStateImagesOneAndTwo) {
  for (const std::uint32_t flags : {0u, QVLS_CHECKBOXES}) {
    Open(flags);
    EXPECT_EQ(view->GetCheckedItem(0), -1);
    AddRows(5);
    for (int row = 0; row < 5; ++row) {
      SetState(row, static_cast<UINT>(row > 3 ? 2 : row) << 12, LVIS_STATEIMAGEMASK);
    }
    const auto states = [this] {
      std::string text;
      for (int row = 0; row < 5; ++row) text += std::to_string(StateImage(row));
      return text;
    };
    ASSERT_EQ(states(), "01232");
    EXPECT_EQ(view->GetCheckedCount(), 2);
    EXPECT_EQ(view->GetCheckedItem(0), 2);
    EXPECT_EQ(view->GetCheckedItem(1), 4);
    EXPECT_EQ(view->GetCheckedItem(2), -1);
    EXPECT_TRUE(view->IsItemChecked(0) && view->IsItemChecked(2) && view->IsItemChecked(3));
    EXPECT_FALSE(view->IsItemChecked(1));
    view->CheckAll();
    EXPECT_EQ(states(), "02232");
    view->UncheckAll();
    EXPECT_EQ(states(), "01131");
    view->SetItemChecked(0, true);
    view->SetItemChecked(3, false);
    EXPECT_EQ(states(), "21111");
  }
}

RECT invalidated;
BOOL WINAPI NoteInvalidation(HWND, const RECT* rect, BOOL erase) {
  invalidated = rect ? *rect : RECT{-1, -1, -1, erase};
  return TRUE;
}

TEST_F(ListItemsTest, ShowingAndDrawingConcernTheControlAlone) {
  Open();
  const auto isShown = [](HWND window) {
    return (GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0;
  };
  view->Hide();
  EXPECT_TRUE(!isShown(control) && isShown(parent));
  view->Show();
  EXPECT_TRUE(isShown(control) && isShown(parent));
  const ImportPatch patch("InvalidateRect", &NoteInvalidation);
  view->Redraw();
  EXPECT_TRUE(invalidated.left == -1 && invalidated.bottom == TRUE);
}

}  // namespace
