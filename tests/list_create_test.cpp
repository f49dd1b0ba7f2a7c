// The list's columns, and the way of its messages.

#include <string>

#include "support/import_patch.h"
#include "support/list_test.h"
#include "support/sent_messages.h"

namespace {

BOOL WINAPI NotUnicode(HWND) { return FALSE; }

// Something else puts a procedure of its own on each control that is made, before the library can.
struct Other {
  HWND control;
  WNDPROC former;
  int messages;
};
Other others[2];
int otherCount = 0;

template <int NUMBER>
LRESULT CALLBACK OtherProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  EXPECT_EQ(window, others[NUMBER].control) << "a message of the other control";
  ++others[NUMBER].messages;
  return CallWindowProcW(others[NUMBER].former, window, message, wParam, lParam);
}

HWND WINAPI CreateReplaced(DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style, int x,
                           int y, int width, int height, HWND parent, HMENU menu,
                           HINSTANCE instance, LPVOID parameter) {
  const HWND made = CreateWindowExW(exStyle, className, title, style, x, y, width, height, parent,
                                    menu, instance, parameter);
  if (className != std::basic_string<WCHAR>(WC_LISTVIEWW)) return made;
  const auto procedure = otherCount == 0 ? OtherProc<0> : OtherProc<1>;
  others[otherCount++] = {made,
                          reinterpret_cast<WNDPROC>(SetWindowLongPtrW(
                              made, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure))),
                          0};
  return made;
}

class ListCreateTest : public ListTest {
 protected:
  LRESULT ColumnCount() const {
    return SendMessageW(reinterpret_cast<HWND>(Ask(LVM_GETHEADER)), HDM_GETITEMCOUNT, 0, 0);
  }
};

TEST_F(ListCreateTest, TheDefaultColumnIsAsWideAsTheControlAndFollowsMove) {
  for (const bool listening : {false, true}) {
    SentMessages sent;
    view->SetClient(listening ? &client : nullptr);
    control = view->Create(host, CONTROL_ID, 0, 0, 200, 100, QVLS_LISTVIEW, nullptr);
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
  client.onCreateColumns = [](HWND, RECT* rect) {
    *rect = {0, 0, 5, 5};
    return false;
  };
  Open();
  EXPECT_EQ(ColumnWidth(), ClientRect().right) << "the rectangle is the client's to change";
  EXPECT_TRUE(view->Move(5, 6, 150, 120));
  const int widthWithoutBar = ClientRect().right;
  EXPECT_LT(widthWithoutBar, 150);
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
  const SentMessages sent;
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

// The library hears what a host asks of the drawing by a procedure of its own, and only where it
// can hand on exactly; without it, drawing is not suspended.
TEST_F(ListCreateTest, NobodysProcedureIsBypassedOrMixedUp) {
  IQVLTreeView* views[2] = {view, GetIQVLTreeView()};
  otherCount = 0;
  {
    const ImportPatch replaced("CreateWindowExW", &CreateReplaced);
    for (IQVLTreeView* each : views) {
      ASSERT_NE(each->Create(host, 1, 0, 0, 50, 50, QVLS_LISTVIEW, nullptr), nullptr);
    }
  }
  SentMessages sent;
  for (const int number : {0, 1}) {
    const int before = others[number].messages;
    for (int i = 0; i < 20; ++i) SendMessageW(others[number].control, LVM_GETITEMCOUNT, 0, 0);
    EXPECT_GE(others[number].messages, before + 20);
    for (int i = 0; i < 20; ++i) {
      QVLTreeViewItem record;
      views[number]->InsertItem(&record, -1);
    }
    views[number]->SelectAll();
    EXPECT_EQ(views[number]->GetSelectedCount(), 20);
  }
  EXPECT_EQ(sent.Of(WM_SETREDRAW).size(), 0u);
  ReleaseIQVLTreeView(views[1]);
  {
    const ImportPatch patch("IsWindowUnicode", &NotUnicode);
    Open();
  }
  AddRows(20);
  view->SelectAll();
  EXPECT_EQ(sent.Of(WM_SETREDRAW).size(), 0u) << "a procedure that cannot be called directly";
  Open();
  AddRows(20);
  view->SelectAll();
  EXPECT_EQ(sent.Of(WM_SETREDRAW).size(), 2u) << "any other control";
}

}  // namespace
