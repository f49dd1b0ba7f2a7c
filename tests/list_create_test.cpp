// The list's columns, and the way of its messages.

#include <string>

#include "support/import_patch.h"
#include "support/list_test.h"
#include "support/sent_messages.h"

namespace {

int handedOn = 0;

LRESULT WINAPI CountHandedOn(WNDPROC procedure, HWND window, UINT message, WPARAM wParam,
                             LPARAM lParam) {
  ++handedOn;
  return CallWindowProcW(procedure, window, message, wParam, lParam);
}

BOOL WINAPI NotUnicode(HWND) { return FALSE; }

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

// A control of the other character set has a procedure that only the platform can call.
TEST_F(ListCreateTest, MessagesGoByThePlatformToAControlThatIsNotUnicode) {
  {
    const ImportPatch patch("IsWindowUnicode", &NotUnicode);
    Open();
  }
  const ImportPatch patch("CallWindowProcW", &CountHandedOn);
  handedOn = 0;
  AddRows(1);
  EXPECT_GT(handedOn, 0);
  EXPECT_EQ(TextOf(0), TEXT("row"));
  Open();
  handedOn = 0;
  AddRows(1);
  EXPECT_EQ(handedOn, 0) << "a detour that every message would pay for";
  EXPECT_EQ(TextOf(0), TEXT("row"));
}

}  // namespace
