// The operations on rows of the list that are there already, and on its control.

#include <windows.h>

#include <shellapi.h>

#include <string>
#include <vector>

#include "support/import_patch.h"
#include "support/list_test.h"
#include "support/sent_messages.h"

namespace {

// Handles that no row can have, though their low halves look like one.
constexpr ItemHandle NO_ROWS[] = {-1,         0x100000000,  0x100000001,
                                  0xFFFFFFFF, -0x100000000, 0x7FFFFFFF00000000};

class ListItemsTest : public ListTest {
 protected:
  UINT StateImage(int row) const { return State(row, LVIS_STATEIMAGEMASK) >> 12; }
  void SetStateImage(int row, UINT image) {
    LVITEMW change = {};
    change.state = image << 12;
    change.stateMask = LVIS_STATEIMAGEMASK;
    SendMessageW(control, LVM_SETITEMSTATE, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(&change));
  }
};

TEST_F(ListItemsTest, TheNeighboursOfARowAreTheRowsBesideIt) {
  Open();
  QVLTreeViewItem record;
  for (int row = 0; row < 10; ++row) view->InsertItem(&record, row - 1);
  struct {
    ItemHandle row, parent, after;
  } const cases[] = {{0, -1, 1}, {2, 1, 3}, {5, 4, 6}, {9, 8, -1}, {-1, -1, -1}};
  for (const auto& c : cases) {
    EXPECT_EQ(view->GetParentItem(c.row), c.parent) << c.row;
    EXPECT_EQ(view->GetFirstChildItem(c.row), c.after) << c.row;
    EXPECT_EQ(view->GetNextSiblingItem(c.row), c.after) << c.row;
  }
  view->ExpandItem(0, true);
  view->ExpandAll();
  view->CollapseAll();
  EXPECT_FALSE(view->IsItemExpanded(0));
  EXPECT_EQ(RowCount(), 10);
}

TEST_F(ListItemsTest, AllRowsAreAppendedToTheList) {
  Open();
  ItemHandleList items = {7, 8, 9};
  EXPECT_EQ(view->GetItems(&items, true), 3);
  AddRows(2);
  EXPECT_EQ(view->GetItems(&items, true), 5);
  EXPECT_EQ(items, (ItemHandleList{7, 8, 9, 0, 1}));
  EXPECT_EQ(view->GetItems(&items, false), 7);
}

TEST_F(ListItemsTest, AHandleThatNoRowHasTouchesNothing) {
  Open(QVLS_CHECKBOXES);
  AddRows(3);
  client.Take();
  QVLTreeViewItem record;
  record.SetItemName(TEXT("changed"));
  record.SetSelected(true);
  for (const ItemHandle handle : NO_ROWS) {
    SCOPED_TRACE(handle);
    SentMessages sent;
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
  int x = -1;
  int y = -1;
  {
    SentMessages sent;
    view->EnsureVisible(0);
    EXPECT_EQ(sent.all.size(), 1u);
    EXPECT_EQ(sent.all[0].message, static_cast<UINT>(LVM_GETITEMCOUNT));
  }
  EXPECT_TRUE(view->GetScrollPosition(&x, &y));
  EXPECT_TRUE(x == 0 && y == 0);

  AddRows(100);
  const int height = Part(0, LVIR_BOUNDS).bottom - Part(0, LVIR_BOUNDS).top;
  view->EnsureVisible(99);
  const auto top = static_cast<int>(SendMessageW(control, LVM_GETTOPINDEX, 0, 0));
  EXPECT_GT(top, 50);
  EXPECT_LE(Part(99, LVIR_BOUNDS).bottom, ClientRect().bottom);
  EXPECT_TRUE(view->GetScrollPosition(&x, &y));
  EXPECT_TRUE(x == 0 && y == top * height);

  SentMessages sent;
  view->SetScrollPosition(-3, -2 * height);
  const auto scrolls = sent.Of(LVM_SCROLL);
  ASSERT_EQ(scrolls.size(), 1u);
  EXPECT_EQ(static_cast<INT_PTR>(scrolls[0].wParam), -3);
  EXPECT_EQ(scrolls[0].lParam, -2 * height);
  EXPECT_TRUE(view->GetScrollPosition(&x, &y));
  EXPECT_EQ(y, (top - 2) * height);

  view->EnsureVisible(-1);
  EXPECT_TRUE(view->GetScrollPosition(&x, &y));
  EXPECT_EQ(y, 0);
}

TEST_F(ListItemsTest, TheToolTipTakesWidthAndDelay) {
  Open(QVLS_INFOTIP);
  const auto tip = reinterpret_cast<HWND>(SendMessageW(control, LVM_GETTOOLTIPS, 0, 0));
  ASSERT_NE(tip, nullptr);
  SentMessages sent;
  view->SetToolTipWidth(-1);
  view->SetToolTipWidth(70000);
  view->SetToolTipDelay(0x12345);
  const auto widths = sent.Of(TTM_SETMAXTIPWIDTH);
  ASSERT_EQ(widths.size(), 2u);
  EXPECT_TRUE(widths[0].window == tip && widths[0].lParam == -1 && widths[1].lParam == 70000);
  const auto delays = sent.Of(TTM_SETDELAYTIME);
  ASSERT_EQ(delays.size(), 1u);
  EXPECT_TRUE(delays[0].window == tip && delays[0].wParam == 3 && delays[0].lParam == 0x2345);

  sent.Forget();
  sent.answers[LVM_GETTOOLTIPS] = 0;
  view->SetToolTipWidth(5);
  view->SetToolTipDelay(5);
  EXPECT_EQ(sent.all.size(), 2u);
}

TEST_F(ListItemsTest, ColoursAndImagesReachTheControl) {
  Open(QVLS_CHECKBOXES);
  EXPECT_TRUE(view->SetBkColor(RGB(1, 2, 3)) && view->SetTextColor(RGB(4, 5, 6)));
  EXPECT_EQ(SendMessageW(control, LVM_GETBKCOLOR, 0, 0), static_cast<LRESULT>(RGB(1, 2, 3)));
  EXPECT_EQ(SendMessageW(control, LVM_GETTEXTBKCOLOR, 0, 0), static_cast<LRESULT>(RGB(1, 2, 3)));
  EXPECT_EQ(SendMessageW(control, LVM_GETTEXTCOLOR, 0, 0), static_cast<LRESULT>(RGB(4, 5, 6)));

  const HIMAGELIST images = ImageList_Create(16, 16, ILC_COLOR32, 1, 1);
  const HIMAGELIST states = ImageList_Create(16, 16, ILC_COLOR32, 1, 1);
  EXPECT_TRUE(view->SetImageList(images) && view->SetStateImageList(states));
  const auto listOf = [&](WPARAM kind) {
    return reinterpret_cast<HIMAGELIST>(SendMessageW(control, LVM_GETIMAGELIST, kind, 0));
  };
  EXPECT_EQ(listOf(LVSIL_SMALL), images);
  EXPECT_EQ(listOf(LVSIL_STATE), states);
  view->Destroy();
  // The lists stay the host's.
  int width = 0;
  int height = 0;
  EXPECT_TRUE(ImageList_GetIconSize(images, &width, &height) && width == 16);
  EXPECT_TRUE(ImageList_Destroy(images) && ImageList_Destroy(states));
}

// A shell that numbers the icons it is asked for, and keeps the names.
class IconShell {
 public:
  IconShell() { current = this; }
  ~IconShell() {
    current = nullptr;
    ImageList_Destroy(list);
  }

  HIMAGELIST list = ImageList_Create(16, 16, ILC_COLOR32, 1, 1);
  bool answers = true;
  std::vector<std::basic_string<WCHAR>> names;

 private:
  static DWORD_PTR WINAPI Answer(LPCWSTR name, DWORD attributes, SHFILEINFOW* info, UINT size,
                                 UINT flags) {
    EXPECT_EQ(attributes, 0x80u);
    EXPECT_EQ(size, sizeof *info);
    EXPECT_EQ(flags, 0x4011u);
    current->names.push_back(name);
    info->iIcon = static_cast<int>(current->names.size()) + 40;
    return current->answers ? reinterpret_cast<DWORD_PTR>(current->list) : 0;
  }

  static inline IconShell* current = nullptr;
  ImportPatch patch{"SHGetFileInfoW", &Answer};
};

TEST_F(ListItemsTest, WithSystemIconsTheShellIsAskedForEachRow) {
  IconShell shell;
  UseClientColumns({100, 100});
  Open();
  QVLTreeViewItem record;
  record.SetFileName(TEXT("C:\\folder.d\\file.txt"));
  record.SetImageIndex(6);
  SentMessages sent;
  shell.answers = false;
  EXPECT_FALSE(view->UseSystemImageList());
  EXPECT_EQ(sent.Of(LVM_SETIMAGELIST).size(), 0u);
  view->InsertItem(&record, -1);
  EXPECT_EQ(sent.Of(LVM_INSERTITEMW)[0].item.iImage, 6);

  shell.answers = true;
  EXPECT_TRUE(view->UseSystemImageList());
  EXPECT_EQ(sent.Of(LVM_SETIMAGELIST)[0].wParam, 1u);
  EXPECT_EQ(sent.Of(LVM_SETIMAGELIST)[0].lParam, reinterpret_cast<LPARAM>(shell.list));
  EXPECT_TRUE(view->SetImageList(nullptr));  // does not end the system icons
  shell.names.clear();
  sent.Forget();

  view->InsertItem(&record, -1);
  record.SetType(1);
  view->InsertItem(&record, -1);
  record.SetType(2);
  view->InsertItem(&record, -1);
  record.SetType(1);
  view->UpdateItem(&record, 0);
  record.SetSubItem(1);
  view->InsertItem(&record, 0);
  view->UpdateItem(&record, 0);
  using Names = std::vector<std::basic_string<WCHAR>>;
  const auto whole = TEXT("C:\\folder.d\\file.txt");
  EXPECT_EQ(shell.names, (Names{whole, TEXT("file.txt"), whole, whole}));
  const auto inserted = sent.Of(LVM_INSERTITEMW);
  EXPECT_EQ(inserted[0].item.iImage, 41);
  EXPECT_EQ(inserted[1].item.iImage, 42);
  EXPECT_EQ(sent.Of(LVM_SETITEMW)[0].item.iImage, 44);

  view->Destroy();
  Open();
  record.SetSubItem(0);
  sent.Forget();
  view->InsertItem(&record, -1);
  EXPECT_EQ(sent.Of(LVM_INSERTITEMW)[0].item.iImage, 6);
}

TEST_F(ListItemsTest, ChecksAreStateImagesOneAndTwo) {
  for (const std::uint32_t flags : {0u, QVLS_CHECKBOXES}) {
    Open(flags);
    EXPECT_EQ(view->GetCheckedItem(0), -1);
    AddRows(5);
    for (int row = 0; row < 5; ++row) SetStateImage(row, static_cast<UINT>(row > 3 ? 2 : row));
    const auto states = [&] {
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
    return GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE;
  };
  view->Hide();
  EXPECT_TRUE(!isShown(control) && isShown(parent));
  view->Show();
  EXPECT_TRUE(isShown(control) && isShown(parent));
  const ImportPatch patch("InvalidateRect", &NoteInvalidation);
  view->Redraw();
  EXPECT_EQ(invalidated.left, -1);
  EXPECT_EQ(invalidated.bottom, TRUE);
}

}  // namespace
