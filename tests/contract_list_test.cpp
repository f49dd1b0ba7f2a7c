// What the library relies on in the list control and what its own tests cannot tell from a control
// that does otherwise, on the control alone.
#include "support/contract_host.h"

#include <string>

namespace {

constexpr DWORD REPORT = LVS_REPORT | LVS_SHAREIMAGELISTS;
constexpr int HEADER = 17;
constexpr int ROW = 14;
constexpr int ON_LABEL = 24;
constexpr int ON_BOX = 8;

constexpr int Middle(int row) { return HEADER + row * ROW + ROW / 2; }

void Hold(int key, bool down) {
  BYTE keys[256];
  GetKeyboardState(keys);
  keys[key] = down ? 0x80 : 0;
  SetKeyboardState(keys);
}

// Rows 0 to 5, the last indented by two, in a column of 100 and one of 60.
class ListContract : public ContractTest {
 protected:
  void SetUp() override {
    ContractTest::SetUp();
    MakeList();
  }

  void MakeList(DWORD extended = 0, int rows = 6) {
    MakeControl(WC_LISTVIEWW, REPORT);
    extended |= LVS_EX_FULLROWSELECT | LVS_EX_SUBITEMIMAGES;
    Send(LVM_SETEXTENDEDLISTVIEWSTYLE, extended, static_cast<LPARAM>(extended));
    for (const int width : {60, 100}) {
      LVCOLUMNW column = {};
      column.mask = LVCF_FMT | LVCF_WIDTH | LVCF_SUBITEM;
      column.cx = width;
      SendRecord(LVM_INSERTCOLUMNW, 0, &column);
    }
    WCHAR text[] = TEXT("row");
    for (int row = 0; row < rows; ++row) {
      LVITEMW values = {};
      values.mask = LVIF_TEXT | LVIF_IMAGE | LVIF_INDENT;
      values.iItem = row;
      values.pszText = text;
      values.iImage = -1;
      values.iIndent = row == 5 ? 2 : 0;
      SendRecord(LVM_INSERTITEMW, 0, &values);
    }
    ShowWindow(control, SW_SHOW);
    UpdateWindow(control);
    PumpMessages();
    Heard();
  }

  void SelectRow(int row) {
    LVITEMW values = {};
    values.state = values.stateMask = LVIS_SELECTED;
    SendRecord(LVM_SETITEMSTATE, static_cast<WPARAM>(row), &values);
    Heard();
  }

  UINT State(int row, UINT mask) {
    return static_cast<UINT>(Send(LVM_GETITEMSTATE, static_cast<WPARAM>(row), mask));
  }

  std::string Selected() {
    std::string selected;
    for (int row = 0; row < 6; ++row) {
      if (State(row, LVIS_SELECTED)) selected += std::to_string(row);
    }
    return selected;
  }

  RECT Part(int row, int part) {
    RECT rect = {};
    rect.left = part;
    SendRecord(LVM_GETITEMRECT, static_cast<WPARAM>(row), &rect);
    return rect;
  }
};

TEST_F(ListContract, PartsOfARowAnswerWithTheirFlags) {
  MakeList(LVS_EX_CHECKBOXES);
  // How high a row is and where its label begins depends on the size of the boxes.
  const RECT first = Part(0, LVIR_BOUNDS);
  const RECT label = Part(1, LVIR_LABEL);
  const RECT deep = Part(5, LVIR_LABEL);
  const int y = (label.top + label.bottom) / 2;
  const int deepY = (deep.top + deep.bottom) / 2;
  const int deepBox = 2 + deep.left - label.left;
  const struct {
    int x, y, row;
    UINT flags;
  } cases[] = {
      {0, y, 1, LVHT_ONITEM},
      {2, y, 1, LVHT_ONITEMSTATEICON},
      {label.left - 1, y, 1, LVHT_ONITEMSTATEICON},
      {label.left, y, 1, LVHT_ONITEMLABEL},
      {99, y, 1, LVHT_ONITEMLABEL},
      {100, y, 1, LVHT_ONITEM},
      {160, y, -1, LVHT_NOWHERE},
      {deepBox - 1, deepY, 5, LVHT_ONITEM},
      {deepBox, deepY, 5, LVHT_ONITEMSTATEICON},
      {deep.left, deepY, 5, LVHT_ONITEMLABEL},
      {20, first.top - 1, -1, LVHT_ABOVE},
      {20, deep.bottom + 3, -1, LVHT_NOWHERE},
      {20, 397, -1, LVHT_BELOW},
      {-1, y, -1, LVHT_TOLEFT},
      {297, y, -1, LVHT_TORIGHT},
  };
  for (const auto& point : cases) {
    LVHITTESTINFO hit = {};
    hit.pt = {point.x, point.y};
    EXPECT_EQ(SendRecord(LVM_HITTEST, 0, &hit), point.row) << point.x << "," << point.y;
    EXPECT_EQ(hit.flags, point.flags) << point.x << "," << point.y;
  }
}

TEST_F(ListContract, ScrollingGoesByWholeRows) {
  MakeList(0, 60);
  const struct {
    int y, top;
  } cases[] = {{14, 1}, {7, 2}, {20, 3}, {-100000, 0}, {100000, 33}, {-28, 31}};
  for (const auto& step : cases) {
    Send(LVM_SCROLL, 0, step.y);
    EXPECT_EQ(Send(LVM_GETTOPINDEX), step.top) << step.y;
    EXPECT_EQ(Part(step.top, LVIR_BOUNDS).top, HEADER);
  }
}

TEST_F(ListContract, PressesSelectAsTheKeysHeldSay) {
  const struct {
    int row;
    WPARAM keys;
    const char* heard;
    const char* selected;
  } cases[] = {
      {1, 0, "changed 1", "1"},
      {3, MK_SHIFT, "changed 2,changed 3,changed 1,changed 3", "123"},
      {5, MK_CONTROL, "changed 3,changed 5", "1235"},
      {5, MK_CONTROL, "changed 5,changed 5", "123"},
      {2, 0, "changed 5,changed 2,changed 1,changed 3", "2"},
      {2, 0, "", "2"},
      {0, MK_SHIFT, "changed 0,changed 1,changed 2,changed 0", "012"},
      {20, MK_CONTROL, "", "012"},
      {20, 0, "changed 0,changed 1,changed 2", ""},
  };
  for (const auto& press : cases) {
    Press(ON_LABEL, Middle(press.row), press.keys);
    EXPECT_EQ(Heard(), press.heard) << press.row << " " << press.keys;
    EXPECT_EQ(Selected(), press.selected) << press.row << " " << press.keys;
  }
}

TEST_F(ListContract, ADragKeepsWhatIsSelected) {
  SelectRow(1);
  SelectRow(2);
  Drag(ON_LABEL, Middle(2), 40, 40);
  EXPECT_EQ(Heard(), "changed 2,drag 2");
  EXPECT_EQ(Selected(), "12");
  Drag(ON_LABEL, Middle(4), 40, 0);
  EXPECT_EQ(Heard(), "changed 1,changed 2,changed 2,changed 4,drag 4");
  Drag(ON_LABEL, Middle(4), 3, 3);
  EXPECT_EQ(Heard(), "");
}

TEST_F(ListContract, KeysMoveSelectionAndFocus) {
  const struct {
    WPARAM key;
    bool shift, control;
    const char* selected;
  } cases[] = {
      {VK_DOWN, false, false, "0"},   {VK_DOWN, false, false, "1"},  {VK_DOWN, true, false, "12"},
      {VK_DOWN, true, false, "123"},  {VK_UP, true, false, "12"},    {VK_DOWN, false, true, "12"},
      {VK_SPACE, false, true, "123"}, {VK_END, false, false, "5"},   {VK_HOME, false, false, "0"},
      {VK_NEXT, false, false, "5"},   {VK_PRIOR, false, false, "0"}, {VK_UP, false, false, "0"},
  };
  for (const auto& step : cases) {
    Hold(VK_SHIFT, step.shift);
    Hold(VK_CONTROL, step.control);
    Key(step.key);
    EXPECT_EQ(Selected(), step.selected) << step.key;
  }
}

TEST_F(ListContract, BoxesAreTickedByPressAndSpace) {
  MakeList(LVS_EX_CHECKBOXES);
  Press(ON_LABEL, Middle(1));
  Heard();
  for (const UINT state : {0x2000U, 0x1000U}) {
    Press(ON_BOX, Middle(1));
    EXPECT_EQ(State(1, LVIS_STATEIMAGEMASK), state);
    EXPECT_EQ(Heard(), "changed 1");
  }
  Key(VK_SPACE);
  EXPECT_EQ(State(1, LVIS_STATEIMAGEMASK), 0x2000U);
  EXPECT_EQ(Heard(), "changed 1");
}

TEST_F(ListContract, TheRightButtonSelectsAndAsksForTheMenu) {
  SelectRow(2);
  RightPress(ON_LABEL, Middle(3));
  EXPECT_EQ(Selected(), "3");
  SelectRow(4);
  RightPress(ON_LABEL, Middle(4));
  EXPECT_EQ(Selected(), "34") << "a selection is kept";
  RightPress(ON_LABEL, Middle(20));
  EXPECT_EQ(Selected(), "");
  EXPECT_TRUE(Heard().ends_with("menu"));
}

TEST_F(ListContract, AClickOnATitleNamesItsColumn) {
  const auto header = reinterpret_cast<HWND>(Send(LVM_GETHEADER));
  const struct {
    int x;
    const char* heard;
  } cases[] = {{50, "column 0"}, {130, "column 1"}, {250, ""}};
  for (const auto& click : cases) {
    PostMessageW(header, WM_LBUTTONUP, 0, MAKELPARAM(click.x, 5));
    SendMessageW(header, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(click.x, 5));
    PumpMessages();
    EXPECT_EQ(Heard(), click.heard);
  }
}

}  // namespace
