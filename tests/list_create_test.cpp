// The list's windows: their styles and places, their columns, and what is left without them.

#include <windows.h>

#include <string>
#include <tuple>
#include <vector>

#include "support/import_patch.h"
#include "support/list_test.h"
#include "support/sent_messages.h"

namespace {

struct CreatedWindow {
  DWORD exStyle;
  std::basic_string<WCHAR> className;
  std::basic_string<WCHAR> title;
  DWORD style;
  std::tuple<int, int, int, int> place;
  HWND parent;
  INT_PTR id;
  HINSTANCE module;
};

// The windows that the library makes and the class that it registers. One window can be refused.
class Creations {
 public:
  Creations() { current = this; }
  ~Creations() { current = nullptr; }

  std::vector<CreatedWindow> windows;
  std::vector<WNDCLASSW> classes;
  std::basic_string<WCHAR> classOfNone;  // windows of this class cannot be made

 private:
  static HWND WINAPI MakeWindow(DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style, int x,
                                int y, int width, int height, HWND parent, HMENU id,
                                HINSTANCE module, void* parameter) {
    current->windows.push_back({exStyle,
                                className,
                                title,
                                style,
                                {x, y, width, height},
                                parent,
                                reinterpret_cast<INT_PTR>(id),
                                module});
    EXPECT_EQ(parameter, nullptr);
    if (className == current->classOfNone) return nullptr;
    return CreateWindowExW(exStyle, className, title, style, x, y, width, height, parent, id,
                           module, parameter);
  }
  static ATOM WINAPI Register(const WNDCLASSW* windowClass) {
    current->classes.push_back(*windowClass);
    return RegisterClassW(windowClass);
  }

  static inline Creations* current = nullptr;
  ImportPatch makeWindow{"CreateWindowExW", &MakeWindow};
  ImportPatch registerClass{"RegisterClassW", &Register};
};

constexpr DWORD STYLE = 0x50008041;
constexpr DWORD LIST_STYLE = 0x4022;

class ListCreateTest : public ListTest {
 protected:
  LRESULT ExtendedListStyle() const {
    return SendMessageW(control, LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0);
  }

  void ExpectNoControl();
};

TEST_F(ListCreateTest, EachFlagGivesItsStyles) {
  struct {
    std::uint32_t flags;
    DWORD style;
    DWORD listStyle;
  } const cases[] = {
      {0, STYLE, LIST_STYLE},
      {QVLS_SHOWSELALWAYS, 0x50008049, LIST_STYLE},
      {QVLS_BORDER, 0x50808041, LIST_STYLE},
      {QVLS_CHECKBOXES, STYLE, 0x4026},
      {QVLS_HASBUTTONS, STYLE, LIST_STYLE},
      {QVLS_HASLINES, STYLE, 0x4023},
      {QVLS_LINESATROOT, STYLE, LIST_STYLE},
      {QVLS_INFOTIP, STYLE, 0x4422},
      {QVLS_NODRAGDROP, STYLE, LIST_STYLE},
      {QVLS_NOCOLUMNHEADER, 0x5000C041, LIST_STYLE},
      {QVLS_SINGLESEL, 0x50008045, LIST_STYLE},
      {QVLS_EDITLABELS, STYLE, LIST_STYLE},
      {QVLS_FULLROWSELECT, STYLE, LIST_STYLE},
      {QVLS_SORTHEADER, 0x50000041, LIST_STYLE},
      {0x3FFF, 0x5080404D, 0x4427},
      {0xFFFFC000, STYLE, LIST_STYLE},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.flags);
    Creations made;
    SentMessages sent;
    Open(c.flags);
    ASSERT_EQ(made.windows.size(), 2u);
    EXPECT_EQ(made.windows[0].style, 0x50000000u);
    EXPECT_EQ(made.windows[0].exStyle, 0u);
    EXPECT_EQ(made.windows[1].style, c.style);
    EXPECT_EQ(made.windows[1].exStyle, 0x200u);
    const auto styles = sent.Of(LVM_SETEXTENDEDLISTVIEWSTYLE);
    ASSERT_EQ(styles.size(), 1u);
    EXPECT_EQ(styles[0].wParam, c.listStyle);
    EXPECT_EQ(styles[0].lParam, static_cast<LPARAM>(c.listStyle));
    EXPECT_EQ(static_cast<DWORD>(GetWindowLongPtrW(control, GWL_STYLE)), c.style);
    EXPECT_EQ(ExtendedListStyle(), static_cast<LRESULT>(c.listStyle));
    EXPECT_FALSE(view->GetMultiSelect());
  }
}

TEST_F(ListCreateTest, TheStyleRecordAddsToAllThreeStyles) {
  QVLTreeViewStyleExt styles;
  styles.SetStyle(LVS_EDITLABELS | LVS_SHOWSELALWAYS);
  styles.SetStyleEx(WS_EX_ACCEPTFILES);
  styles.SetStyleExCtrl(LVS_EX_HEADERDRAGDROP);
  Creations made;
  Open(QVLS_CHECKBOXES, &styles);
  EXPECT_EQ(made.windows[1].style, STYLE | LVS_EDITLABELS | LVS_SHOWSELALWAYS);
  EXPECT_EQ(made.windows[1].exStyle, 0x210u);
  EXPECT_EQ(ExtendedListStyle(), 0x4036);
  EXPECT_EQ(made.windows[0].style, 0x50000000u);
  EXPECT_EQ(made.windows[0].exStyle, 0u);
}

TEST_F(ListCreateTest, TheControlCoversAWindowOfTheLibrary) {
  Creations made;
  control = view->Create(host, -7, 10, 20, 200, 100, QVLS_LISTVIEW, nullptr);
  parent = GetParent(control);
  EXPECT_EQ(view->GetViewType(), 2);
  EXPECT_EQ(view->GetControlWindow(), control);

  ASSERT_EQ(made.classes.size(), 1u);
  EXPECT_EQ(made.classes[0].style, 3u);
  EXPECT_NE(made.classes[0].hCursor, nullptr);
  EXPECT_TRUE(!made.classes[0].hbrBackground && !made.classes[0].hIcon);
  EXPECT_TRUE(!made.classes[0].lpszMenuName && !made.classes[0].cbWndExtra);

  ASSERT_EQ(made.windows.size(), 2u);
  const CreatedWindow& outer = made.windows[0];
  EXPECT_EQ(outer.className, TEXT("QVLListViewParent"));
  EXPECT_EQ(outer.title, TEXT("QVL Tree View Parent"));
  EXPECT_EQ(outer.place, std::make_tuple(10, 20, 200, 100));
  EXPECT_EQ(outer.parent, host);
  EXPECT_EQ(outer.id, 0);
  EXPECT_EQ(outer.module, made.classes[0].hInstance);
  const CreatedWindow& inner = made.windows[1];
  EXPECT_EQ(inner.className, TEXT("SysListView32"));
  EXPECT_EQ(inner.title, TEXT("QVL Tree View"));
  EXPECT_EQ(inner.place, std::make_tuple(0, 0, 200, 100));
  EXPECT_EQ(inner.parent, parent);
  EXPECT_EQ(inner.id, -7);
  EXPECT_EQ(inner.module, outer.module);
  EXPECT_EQ(GetParent(parent), host);
}

// What every operation answers where there is no control.
void ListCreateTest::ExpectNoControl() {
  QVLTreeViewItem record;
  ItemHandleList items = {5};
  int x = 11;
  int y = 12;
  std::uint32_t flags = 0xFF;
  const POINT point = {60, 60};
  EXPECT_EQ(view->GetViewType(), 2);
  EXPECT_EQ(view->GetControlWindow(), nullptr);
  EXPECT_FALSE(view->SetImageList(nullptr) || view->SetStateImageList(nullptr));
  EXPECT_FALSE(view->UseSystemImageList());
  EXPECT_FALSE(view->SetBkColor(1) || view->SetTextColor(1));
  EXPECT_FALSE(view->Move(0, 0, 1, 1));
  EXPECT_FALSE(view->GetScrollPosition(&x, &y));
  EXPECT_TRUE(x == 11 && y == 12);
  EXPECT_EQ(view->InsertItem(&record, -1), -1);
  EXPECT_FALSE(view->UpdateItem(&record, 0) || view->DeleteItem(0));
  EXPECT_EQ(view->GetItems(&items, false), 0);
  EXPECT_EQ(items, ItemHandleList{5});
  EXPECT_EQ(view->GetParentItem(1), -1);
  EXPECT_EQ(view->GetFirstChildItem(0), -1);
  EXPECT_EQ(view->GetNextSiblingItem(0), -1);
  EXPECT_EQ(view->HitTest(&point, true, &flags), -1);
  EXPECT_EQ(flags, 0u);
  EXPECT_EQ(view->HitTest(&point, true, nullptr), -1);
  EXPECT_EQ(view->GetItemClientPtr(0), 0);
  EXPECT_TRUE(view->GetSelectedCount() == 0 && view->GetSelectedItem(0) == 0);
  EXPECT_TRUE(view->GetCheckedCount() == 0 && view->GetCheckedItem(0) == 0);
  EXPECT_FALSE(view->IsItemSelected(0) || view->IsItemChecked(0) || view->IsItemExpanded(0));
  EXPECT_FALSE(view->ShowContextMenu(1, 1));
  for (const auto operation :
       {&IQVLTreeView::DeleteAllItems, &IQVLTreeView::Hide, &IQVLTreeView::Show,
        &IQVLTreeView::Redraw, &IQVLTreeView::ExpandAll, &IQVLTreeView::CollapseAll,
        &IQVLTreeView::SelectAll, &IQVLTreeView::ClearSelection, &IQVLTreeView::InvertSelection,
        &IQVLTreeView::CheckAll, &IQVLTreeView::UncheckAll}) {
    (view->*operation)();
  }
  view->SetScrollPosition(1, 1);
  view->SetToolTipWidth(1);
  view->SetToolTipDelay(1);
  view->EnsureVisible(0);
  view->ExpandItem(0, true);
  view->SetItemSelected(0, true);
  view->SetItemChecked(0, true);
  view->SetMultiSelect(true);
  EXPECT_TRUE(view->GetMultiSelect());
}

TEST_F(ListCreateTest, WithoutAControlEveryOperationGivesItsFailureValue) {
  view->SetClient(&client);
  for (const WCHAR* missing : {TEXT("QVLListViewParent"), TEXT("SysListView32")}) {
    Creations made;
    SentMessages sent;
    made.classOfNone = missing;
    EXPECT_EQ(CreateView(QVLS_LISTVIEW), nullptr);
    ExpectNoControl();
    EXPECT_EQ(sent.all.size(), 0u);
  }
  // The outer window is there by now and has no list in it.
  parent = GetWindow(host, GW_CHILD);
  ASSERT_NE(parent, nullptr);
  SendMessageW(parent, WM_CONTEXTMENU, 0, MAKELPARAM(60, 70));
  EXPECT_EQ(client.Take(), Lines{"ContextMenu 60,70 -1 0x0000"});
  view->Destroy();
  EXPECT_EQ(GetWindow(host, GW_CHILD), nullptr);
  ExpectNoControl();
}

TEST_F(ListCreateTest, DestroyForgetsAllButTheProxysClient) {
  Open();
  view->SetMultiSelect(true);
  AddRows(2);
  view->Destroy();
  EXPECT_FALSE(IsWindow(control) || IsWindow(parent));
  EXPECT_FALSE(view->GetMultiSelect());
  ExpectNoControl();

  Open();
  EXPECT_FALSE(view->GetMultiSelect());
  EXPECT_EQ(RowCount(), 0);
  SentMessages sent;
  AddRows(1);
  EXPECT_EQ(sent.Of(LVM_INSERTITEMW)[0].item.iItem, 0);
  view->SetItemSelected(0, true);
  EXPECT_EQ(client.Take(), (Lines{"Begin", "Changed 0", "End"}));
}

TEST_F(ListCreateTest, TheDefaultColumnIsAsWideAsTheControl) {
  for (const bool listening : {false, true}) {
    SentMessages sent;
    view->SetClient(listening ? &client : nullptr);
    control = view->Create(host, CONTROL_ID, 0, 0, 200, 100, QVLS_LISTVIEW, nullptr);
    view->SetClient(&client);
    const RECT rect = ClientRect();
    const std::string size = std::to_string(rect.right) + "x" + std::to_string(rect.bottom);
    EXPECT_EQ(client.Take(), listening ? Lines{"CreateColumns " + size} : Lines());

    const auto columns = sent.Of(LVM_INSERTCOLUMNW);
    ASSERT_EQ(columns.size(), 1u);
    EXPECT_EQ(columns[0].wParam, 1u);
    EXPECT_EQ(columns[0].column.mask, 0xBu);
    EXPECT_EQ(columns[0].column.fmt, 0);
    EXPECT_EQ(columns[0].column.cx, rect.right);
    EXPECT_EQ(columns[0].column.iSubItem, 0);
    EXPECT_EQ(ColumnCount(), 1);
    EXPECT_EQ(ColumnWidth(), rect.right);
  }
}

TEST_F(ListCreateTest, TheDefaultColumnFollowsMove) {
  Open();
  EXPECT_TRUE(view->Move(5, 6, 150, 120));
  RECT outer = {};
  GetWindowRect(parent, &outer);
  EXPECT_EQ(outer.right - outer.left, 150);
  EXPECT_EQ(outer.bottom - outer.top, 120);
  POINT corner = {outer.left, outer.top};
  ScreenToClient(host, &corner);
  EXPECT_TRUE(corner.x == 5 && corner.y == 6);
  const int widthWithoutBar = ClientRect().right;
  EXPECT_EQ(ColumnWidth(), widthWithoutBar);

  AddRows(50);
  EXPECT_TRUE(view->Move(5, 6, 150, 120));
  EXPECT_LT(ClientRect().right, widthWithoutBar);
  EXPECT_EQ(ColumnWidth(), ClientRect().right);
}

BOOL WINAPI GiantClientRect(HWND, RECT* rect) {
  *rect = {0x10, 0, 0x12355, 100};
  return TRUE;
}

TEST_F(ListCreateTest, TheWidthOfAMoveHasSixteenBits) {
  Open();
  const ImportPatch patch("GetClientRect", &GiantClientRect);
  SentMessages sent;
  view->Move(0, 0, 10, 10);
  const auto widths = sent.Of(LVM_SETCOLUMNWIDTH);
  ASSERT_EQ(widths.size(), 1u);
  EXPECT_EQ(widths[0].wParam, 0u);
  EXPECT_EQ(widths[0].lParam, 0x2345);
}

TEST_F(ListCreateTest, TheClientsColumnsAreItsOwn) {
  UseClientColumns({90, 40});
  Open();
  EXPECT_EQ(ColumnCount(), 2);
  EXPECT_TRUE(view->Move(0, 0, 150, 120));
  EXPECT_EQ(ColumnWidth(0), 90);
  EXPECT_EQ(ColumnWidth(1), 40);

  // A client that comes too late is not asked, and what an earlier list's client did is forgotten.
  view->SetClient(nullptr);
  control = view->Create(host, CONTROL_ID, 0, 0, 200, 100, QVLS_LISTVIEW, nullptr);
  view->SetClient(&client);
  EXPECT_EQ(client.Take(), Lines());
  EXPECT_EQ(ColumnCount(), 1);
  view->Move(0, 0, 120, 100);
  EXPECT_EQ(ColumnWidth(), ClientRect().right);
}

}  // namespace
