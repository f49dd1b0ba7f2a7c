// What the library relies on in the list control, on the control alone.
#include "support/contract_host.h"

#include <string>

namespace {

constexpr DWORD REPORT = LVS_REPORT | LVS_SHAREIMAGELISTS | LVS_NOSORTHEADER;
constexpr DWORD EXTENDED = LVS_EX_LABELTIP | LVS_EX_FULLROWSELECT | LVS_EX_SUBITEMIMAGES;
constexpr int HEADER = 17;
constexpr int ROW = 14;
constexpr int ON_LABEL = 24;
constexpr int ON_BOX = 8;

// Rows 0 to 5 in one column as wide as the control.
class ListContract : public ContractTest {
 protected:
  void MakeList(DWORD style = REPORT, DWORD extended = EXTENDED, int rows = 6) {
    MakeControl(WC_LISTVIEWW, style);
    Send(LVM_SETEXTENDEDLISTVIEWSTYLE, extended, static_cast<LPARAM>(extended));
    RECT client;
    GetClientRect(control, &client);
    InsertColumn(1, client.right);
    for (int i = 0; i < rows; ++i) {
      Insert(i);
    }
    SetFocus(host);
    Heard();
  }

  void SetUp() override {
    ContractTest::SetUp();
    MakeList();
  }

  LRESULT InsertColumn(int index, int width) {
    LVCOLUMNW column = {};
    column.mask = LVCF_FMT | LVCF_WIDTH | LVCF_SUBITEM;
    column.cx = width;
    return SendRecord(LVM_INSERTCOLUMNW, static_cast<WPARAM>(index), &column);
  }

  static LVITEMW Values(int row, UINT mask) {
    static WCHAR text[] = TEXT("row");
    LVITEMW values = {};
    values.mask = mask;
    values.iItem = row;
    values.pszText = text;
    values.iImage = -1;
    values.lParam = row;
    return values;
  }

  LRESULT Insert(int row, UINT state = 0, UINT stateMask = 0, int indent = 0) {
    LVITEMW values = Values(
        row, LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM | LVIF_INDENT | (stateMask ? LVIF_STATE : 0U));
    values.state = state;
    values.stateMask = stateMask;
    values.iIndent = indent;
    return SendRecord(LVM_INSERTITEMW, 0, &values);
  }

  LRESULT SetState(int row, UINT state, UINT mask) {
    LVITEMW values = {};
    values.state = state;
    values.stateMask = mask;
    return SendRecord(LVM_SETITEMSTATE, static_cast<WPARAM>(row), &values);
  }

  UINT State(int row, UINT mask = 0xFFFF) {
    return static_cast<UINT>(Send(LVM_GETITEMSTATE, static_cast<WPARAM>(row), mask));
  }

  std::string Selected() {
    std::string selected;
    const auto count = static_cast<int>(Send(LVM_GETITEMCOUNT));
    for (int row = 0; row < count; ++row) {
      selected += State(row, LVIS_SELECTED) ? std::to_string(row) : "";
    }
    EXPECT_EQ(Send(LVM_GETSELECTEDCOUNT), static_cast<LRESULT>(selected.size()));
    return selected;
  }

  int Hit(int x, int y, UINT* flags) {
    LVHITTESTINFO info = {};
    info.pt = {x, y};
    const auto row = static_cast<int>(SendRecord(LVM_HITTEST, 0, &info));
    *flags = info.flags;
    return row;
  }

  RECT Part(int row, int part) {
    RECT rect = {};
    rect.left = part;
    SendRecord(LVM_GETITEMRECT, static_cast<WPARAM>(row), &rect);
    return rect;
  }

  RECT Bounds(int row) { return Part(row, LVIR_BOUNDS); }

  static int Middle(int row) { return HEADER + row * ROW + ROW / 2; }
};

TEST_F(ListContract, RowsGoInWhereAskedOrAtTheEnd) {
  EXPECT_EQ(Insert(100), 6);
  EXPECT_EQ(Insert(2), 2);
  EXPECT_EQ(Insert(-1), -1);
  EXPECT_EQ(SendRecord<LVITEMW>(LVM_INSERTITEMW, 0, nullptr), -1);
  EXPECT_EQ(Send(LVM_GETITEMCOUNT), 8);
  EXPECT_EQ(Heard(), "");
}

TEST_F(ListContract, ANewRowTellsOfSelectionAlone) {
  Insert(0, 0x2004, 0xF004);
  EXPECT_EQ(Heard(), "");
  EXPECT_EQ(State(0), 0x2004U);
  Insert(0, 0x1002, 0xF006);
  EXPECT_EQ(Heard(), "changed 0");
  EXPECT_EQ(State(0), 0x1002U);
  MakeList(REPORT, EXTENDED | LVS_EX_CHECKBOXES);
  Insert(0, 0x2000, 0xF000);
  EXPECT_EQ(State(0), 0x1000U) << "a new row's box is empty, whatever was asked for";
  EXPECT_EQ(Heard(), "");
}

TEST_F(ListContract, IndentAndParameterAreReadBack) {
  Insert(1, 0, 0, 3);
  LVITEMW values = {};
  values.mask = LVIF_INDENT | LVIF_PARAM;
  values.iItem = 1;
  EXPECT_NE(SendRecord(LVM_GETITEMW, 0, &values), 0);
  EXPECT_EQ(values.iIndent, 3);
  EXPECT_EQ(values.lParam, 1);
  values.iItem = 99;
  EXPECT_EQ(SendRecord(LVM_GETITEMW, 0, &values), 0);
  values.iItem = -1;
  EXPECT_EQ(SendRecord(LVM_GETITEMW, 0, &values), 0);
}

TEST_F(ListContract, EveryKindOfChangeIsTold) {
  struct Case {
    UINT state, mask;
    const char* heard;
  };
  const Case cases[] = {
      {LVIS_SELECTED, LVIS_SELECTED, "changed 3"},
      {LVIS_SELECTED, LVIS_SELECTED, ""},
      {LVIS_FOCUSED, LVIS_FOCUSED, "changed 3"},
      {LVIS_CUT, LVIS_CUT, "changed 3"},
      {0x2000, LVIS_STATEIMAGEMASK, "changed 3"},
      {0x1000, LVIS_STATEIMAGEMASK, "changed 3"},
      {0, LVIS_SELECTED, "changed 3"},
      {0, LVIS_SELECTED, ""},
  };
  for (const Case& step : cases) {
    EXPECT_NE(SetState(3, step.state, step.mask), 0);
    EXPECT_EQ(Heard(), step.heard);
  }
  EXPECT_EQ(SetState(99, LVIS_SELECTED, LVIS_SELECTED), 0);
  EXPECT_EQ(Heard(), "");
}

TEST_F(ListContract, ARowSetAnewTellsOnceIfAnythingDiffers) {
  LVITEMW values = Values(3, LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM);
  EXPECT_NE(SendRecord(LVM_SETITEMW, 0, &values), 0);
  EXPECT_EQ(Heard(), "");
  values.lParam = 70;
  values.iImage = 1;
  EXPECT_NE(SendRecord(LVM_SETITEMW, 0, &values), 0);
  EXPECT_EQ(Heard(), "changed 3");
  WCHAR text[] = TEXT("other");
  values.pszText = text;
  values.mask |= LVIF_STATE;
  values.state = 0x2000;
  values.stateMask = 0xF004;
  EXPECT_NE(SendRecord(LVM_SETITEMW, 0, &values), 0);
  EXPECT_EQ(Heard(), "changed 3");
  EXPECT_EQ(State(3), 0x2000U);
  for (int row : {-1, 6, 99}) {
    values.iItem = row;
    EXPECT_EQ(SendRecord(LVM_SETITEMW, 0, &values), 0) << row;
  }
  EXPECT_EQ(Heard(), "");
}

TEST_F(ListContract, ACellIsSetSilentlyInAColumnThatIsThere) {
  InsertColumn(1, 50);
  LVITEMW values = Values(2, LVIF_TEXT);
  values.iSubItem = 1;
  EXPECT_NE(SendRecord(LVM_SETITEMW, 0, &values), 0);
  values.iSubItem = 2;
  EXPECT_EQ(SendRecord(LVM_SETITEMW, 0, &values), 0);
  values.iSubItem = 1;
  values.iItem = 99;
  EXPECT_EQ(SendRecord(LVM_SETITEMW, 0, &values), 0);
  EXPECT_EQ(Heard(), "");
  values.iItem = 2;
  values.mask |= LVIF_PARAM;
  EXPECT_EQ(SendRecord(LVM_SETITEMW, 0, &values), 0) << "a cell has no parameter";
}

TEST_F(ListContract, AllRowsAtOnceAreToldOneByOne) {
  SetState(2, LVIS_SELECTED, LVIS_SELECTED);
  Heard();
  SetState(-1, LVIS_SELECTED, LVIS_SELECTED);
  EXPECT_EQ(Heard(), "changed 0,changed 1,changed 3,changed 4,changed 5");
  SetState(-1, 0, LVIS_SELECTED);
  EXPECT_EQ(Heard(), "changed 0,changed 1,changed 2,changed 3,changed 4,changed 5");
}

TEST_F(ListContract, TheFocusIsTakenFromOneRowBeforeAnotherReports) {
  SetState(3, LVIS_FOCUSED, LVIS_FOCUSED);
  Heard();
  SetState(4, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
  EXPECT_EQ(Heard(), "changed 3,changed 4");
  EXPECT_EQ(State(3), 0U);
  MakeList(REPORT | LVS_SINGLESEL);
  SetState(1, LVIS_SELECTED, LVIS_SELECTED);
  SetState(2, LVIS_SELECTED, LVIS_SELECTED);
  EXPECT_EQ(Heard(), "changed 1,changed 1,changed 2");
  EXPECT_EQ(Selected(), "2");
  EXPECT_EQ(SetState(-1, LVIS_SELECTED, LVIS_SELECTED), 0);
  EXPECT_EQ(Selected(), "2");
}

TEST_F(ListContract, ADeletedRowGivesUpItsStatesFirst) {
  SetState(1, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  SetState(3, LVIS_SELECTED, LVIS_SELECTED);
  Heard();
  EXPECT_NE(Send(LVM_DELETEITEM, 0), 0);
  EXPECT_EQ(Heard(), "");
  EXPECT_EQ(State(0), static_cast<UINT>(LVIS_SELECTED | LVIS_FOCUSED));
  EXPECT_NE(Send(LVM_DELETEITEM, 0), 0);
  EXPECT_EQ(Heard(), "changed 0");
  EXPECT_EQ(State(0), static_cast<UINT>(LVIS_FOCUSED)) << "the row behind it has the focus now";
  EXPECT_EQ(Selected(), "1");
  EXPECT_EQ(Send(LVM_DELETEITEM, 99), 0);
  EXPECT_EQ(Send(LVM_DELETEITEM, static_cast<WPARAM>(-1)), 0);
  Send(LVM_DELETEALLITEMS);
  EXPECT_EQ(Heard(), "");
  EXPECT_EQ(Send(LVM_GETITEMCOUNT), 0);
  EXPECT_EQ(Send(LVM_GETSELECTEDCOUNT), 0);
}

TEST_F(ListContract, ColumnsAndTheirWidths) {
  EXPECT_EQ(InsertColumn(0, 60), 0);
  EXPECT_EQ(InsertColumn(9, 70), 2);
  EXPECT_EQ(InsertColumn(-1, 70), -1);
  EXPECT_EQ(Send(LVM_GETCOLUMNWIDTH, 1), 296);
  EXPECT_NE(Send(LVM_SETCOLUMNWIDTH, 0, 45), 0);
  EXPECT_EQ(Send(LVM_GETCOLUMNWIDTH, 0), 45);
  EXPECT_EQ(Send(LVM_SETCOLUMNWIDTH, 7, 45), 0);
}

TEST_F(ListContract, PartsOfARowAnswerWithTheirFlags) {
  MakeList(REPORT, EXTENDED | LVS_EX_CHECKBOXES);
  Insert(6, 0, 0, 2);
  Send(LVM_SETCOLUMNWIDTH, 0, 200);
  constexpr UINT WHOLE = LVHT_ONITEM;
  // How high a row is and where its label begins depends on the size of the boxes.
  const RECT first = Part(0, LVIR_BOUNDS);
  const RECT label = Part(1, LVIR_LABEL);
  const RECT deepLabel = Part(6, LVIR_LABEL);
  const int y = (label.top + label.bottom) / 2;
  const int deepY = (deepLabel.top + deepLabel.bottom) / 2;
  struct Case {
    int x, y, row;
    UINT flags;
  };
  const Case cases[] = {
      {0, y, 1, WHOLE},
      {2, y, 1, LVHT_ONITEMSTATEICON},
      {label.left - 1, y, 1, LVHT_ONITEMSTATEICON},
      {label.left, y, 1, LVHT_ONITEMLABEL},
      {199, y, 1, LVHT_ONITEMLABEL},
      {200, y, -1, LVHT_NOWHERE},
      {2 + deepLabel.left - label.left - 1, deepY, 6, WHOLE},
      {2 + deepLabel.left - label.left, deepY, 6, LVHT_ONITEMSTATEICON},
      {deepLabel.left, deepY, 6, LVHT_ONITEMLABEL},
      {20, first.top, 0, LVHT_ONITEMLABEL},
      {20, first.top - 1, -1, LVHT_ABOVE},
      {20, deepLabel.bottom + 3, -1, LVHT_NOWHERE},
      {20, 397, -1, LVHT_BELOW},
      {-1, y, -1, LVHT_TOLEFT},
      {297, y, -1, LVHT_TORIGHT},
  };
  UINT flags = 0;
  for (const Case& point : cases) {
    EXPECT_EQ(Hit(point.x, point.y, &flags), point.row) << point.x << "," << point.y;
    EXPECT_EQ(flags, point.flags) << point.x << "," << point.y;
  }
  const HIMAGELIST images = ImageList_Create(16, 40, ILC_COLOR16, 0, 1);
  SendRecord(LVM_SETIMAGELIST, LVSIL_SMALL, images);
  const RECT icon = Part(1, LVIR_ICON);
  EXPECT_GE(Part(1, LVIR_BOUNDS).top, 40) << "an image makes the rows higher";
  EXPECT_EQ(Hit(icon.left + 1, (icon.top + icon.bottom) / 2, &flags), 1);
  EXPECT_EQ(flags, static_cast<UINT>(LVHT_ONITEMICON));
  Send(LVM_SETIMAGELIST, LVSIL_SMALL, 0);
  ImageList_Destroy(images);
}

TEST_F(ListContract, BesideTheFirstColumnARowIsHitAsAWhole) {
  Send(LVM_SETCOLUMNWIDTH, 0, 100);
  InsertColumn(1, 60);
  UINT flags = 0;
  EXPECT_EQ(Hit(99, Middle(2), &flags), 2);
  EXPECT_EQ(flags, static_cast<UINT>(LVHT_ONITEMLABEL));
  EXPECT_EQ(Hit(100, Middle(2), &flags), 2);
  EXPECT_EQ(flags, static_cast<UINT>(LVHT_ONITEM));
  EXPECT_EQ(Hit(160, Middle(2), &flags), -1);
}

TEST_F(ListContract, ScrollingGoesByWholeRows) {
  MakeList(REPORT, EXTENDED, 60);
  struct Case {
    int x, y, top, left;
  };
  const Case cases[] = {{0, 14, 1, 0},      {0, 7, 2, 0},     {0, 20, 3, 0},     {0, -100000, 0, 0},
                        {0, 100000, 35, 0}, {50, 0, 35, -17}, {-10, -28, 33, -7}};
  for (const Case& step : cases) {
    Send(LVM_SCROLL, static_cast<WPARAM>(step.x), step.y);
    EXPECT_EQ(Send(LVM_GETTOPINDEX), step.top) << step.x << "," << step.y;
    EXPECT_EQ(Bounds(step.top).left, step.left) << step.x << "," << step.y;
    EXPECT_EQ(Bounds(step.top).top, HEADER);
    EXPECT_EQ(Bounds(step.top).bottom, HEADER + ROW);
  }
  Send(LVM_ENSUREVISIBLE, 10);
  EXPECT_EQ(Send(LVM_GETTOPINDEX), 10);
  Send(LVM_ENSUREVISIBLE, 50);
  EXPECT_EQ(Send(LVM_GETTOPINDEX), 26);
  Send(LVM_ENSUREVISIBLE, 27);
  EXPECT_EQ(Send(LVM_GETTOPINDEX), 26);
  RECT client;
  GetClientRect(control, &client);
  EXPECT_EQ(client.right, 279);
}

TEST_F(ListContract, PressesSelectAsTheKeysHeldSay) {
  struct Case {
    int row;
    WPARAM keys;
    const char* heard;
    const char* selected;
  };
  const Case cases[] = {
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
  for (const Case& press : cases) {
    Press(ON_LABEL, Middle(press.row), press.keys);
    EXPECT_EQ(Heard(), press.heard) << press.row << " " << press.keys;
    EXPECT_EQ(Selected(), press.selected) << press.row << " " << press.keys;
  }
}

TEST_F(ListContract, ADragKeepsWhatIsSelected) {
  SetState(1, LVIS_SELECTED, LVIS_SELECTED);
  SetState(2, LVIS_SELECTED, LVIS_SELECTED);
  Heard();
  Drag(ON_LABEL, Middle(2), 40, 40);
  EXPECT_EQ(Heard(), "changed 2,drag 2");
  EXPECT_EQ(Selected(), "12");
  Drag(ON_LABEL, Middle(4), 40, 0);
  EXPECT_EQ(Heard(), "changed 1,changed 2,changed 2,changed 4,drag 4");
  EXPECT_EQ(Selected(), "4");
  Drag(ON_LABEL, Middle(4), 3, 3);
  EXPECT_EQ(Heard(), "");
}

TEST_F(ListContract, KeysMoveSelectionAndFocus) {
  struct Case {
    WPARAM key;
    bool shift, control;
    const char* selected;
  };
  const Case cases[] = {
      {VK_DOWN, false, false, "0"},   {VK_DOWN, false, false, "1"},  {VK_DOWN, true, false, "12"},
      {VK_DOWN, true, false, "123"},  {VK_UP, true, false, "12"},    {VK_DOWN, false, true, "12"},
      {VK_SPACE, false, true, "123"}, {VK_END, false, false, "5"},   {VK_HOME, false, false, "0"},
      {VK_NEXT, false, false, "5"},   {VK_PRIOR, false, false, "0"}, {VK_UP, false, false, "0"},
  };
  for (const Case& step : cases) {
    Hold(VK_SHIFT, step.shift);
    Hold(VK_CONTROL, step.control);
    Key(step.key);
    EXPECT_EQ(Selected(), step.selected) << step.key;
  }
}

TEST_F(ListContract, BoxesAreTickedByPressAndSpace) {
  MakeList(REPORT, EXTENDED | LVS_EX_CHECKBOXES);
  Press(ON_BOX, Middle(1));
  EXPECT_EQ(State(1), 0x2000U);
  EXPECT_EQ(Heard(), "changed 1");
  Press(ON_BOX, Middle(1));
  EXPECT_EQ(State(1), 0x1000U);
  Press(ON_LABEL, Middle(2));
  Heard();
  Key(VK_SPACE);
  EXPECT_EQ(Heard(), "changed 2");
  EXPECT_EQ(State(2, LVIS_STATEIMAGEMASK), 0x2000U);
}

TEST_F(ListContract, BoxesThatComeLaterAreToldOfForEachRow) {
  Send(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_CHECKBOXES, LVS_EX_CHECKBOXES);
  EXPECT_EQ(Heard(), "changed 0,changed 1,changed 2,changed 3,changed 4,changed 5");
  EXPECT_EQ(State(5), 0x1000U);
}

TEST_F(ListContract, TheRightButtonSelectsAndAsksForTheMenu) {
  SetState(2, LVIS_SELECTED, LVIS_SELECTED);
  Heard();
  RightPress(ON_LABEL, Middle(3));
  EXPECT_EQ(Selected(), "3");
  EXPECT_TRUE(Heard().ends_with("menu"));
  SetState(4, LVIS_SELECTED, LVIS_SELECTED);
  RightPress(ON_LABEL, Middle(4));
  EXPECT_EQ(Selected(), "34");
  Heard();
  RightPress(ON_LABEL, Middle(20));
  EXPECT_EQ(Selected(), "");
  EXPECT_TRUE(Heard().ends_with("menu"));
}

TEST_F(ListContract, AColumnIsToldWhereTheHeaderHasButtons) {
  const auto click = [this](int x) {
    const auto header = reinterpret_cast<HWND>(Send(LVM_GETHEADER));
    PostMessageW(header, WM_LBUTTONUP, 0, MAKELPARAM(x, 5));
    SendMessageW(header, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, 5));
    Pump();
    return Heard();
  };
  EXPECT_EQ(click(50), "");
  MakeList(REPORT & ~static_cast<DWORD>(LVS_NOSORTHEADER));
  Send(LVM_SETCOLUMNWIDTH, 0, 100);
  InsertColumn(1, 60);
  UpdateWindow(control);
  Pump();
  Heard();
  EXPECT_EQ(click(50), "column 0");
  EXPECT_EQ(click(130), "column 1");
  EXPECT_EQ(click(250), "");
}

TEST_F(ListContract, AnAcceptedEditChangesTheRow) {
  EXPECT_EQ(Send(LVM_EDITLABELW, 1), 0);
  MakeList(REPORT | LVS_EDITLABELS);
  SetFocus(control);
  answer = 1;
  EXPECT_EQ(Send(LVM_EDITLABELW, 1), 0) << "refused";
  EXPECT_EQ(Heard(), "changed 1,edit 1");
  answer = 0;
  const auto edit = reinterpret_cast<HWND>(Send(LVM_EDITLABELW, 1));
  ASSERT_NE(edit, nullptr);
  SetWindowTextW(edit, TEXT("new"));
  answer = 1;
  SendMessageW(edit, WM_KEYDOWN, VK_RETURN, 1);
  EXPECT_EQ(Heard(), "edit 1,edited 1=new,changed 1");
  answer = 0;
  const auto again = reinterpret_cast<HWND>(Send(LVM_EDITLABELW, 1));
  SetWindowTextW(again, TEXT("newer"));
  SendMessageW(again, WM_KEYDOWN, VK_ESCAPE, 1);
  EXPECT_EQ(Heard(), "edit 1,edited 1");
}

TEST_F(ListContract, ADeletedWindowTellsNothingOfItsRows) {
  SetState(2, LVIS_SELECTED, LVIS_SELECTED);
  Heard();
  const auto toolTip = reinterpret_cast<HWND>(Send(LVM_GETTOOLTIPS));
  EXPECT_TRUE(IsWindow(toolTip));
  DestroyWindow(control);
  control = nullptr;
  EXPECT_EQ(Heard(), "");
}

}  // namespace
