// What the library relies on in the list control and what its own tests cannot tell from a control
// that does otherwise, on the control alone.
#include "support/contract_host.h"

#include <functional>
#include <string>

namespace {

constexpr int ON_BOX = 8;

// Rows 0 to 5 with boxes, in a column of 100 and one of 60.
class ListContract : public ContractTest {
 protected:
  void SetUp() override {
    ContractTest::SetUp();
    MakeControl(WC_LISTVIEWW, LVS_REPORT);
    constexpr DWORD EXTENDED = LVS_EX_FULLROWSELECT | LVS_EX_CHECKBOXES;
    Send(LVM_SETEXTENDEDLISTVIEWSTYLE, EXTENDED, static_cast<LPARAM>(EXTENDED));
    for (const int width : {60, 100}) {
      LVCOLUMNW column = {};
      column.mask = LVCF_FMT | LVCF_WIDTH | LVCF_SUBITEM;
      column.cx = width;
      SendRecord(LVM_INSERTCOLUMNW, 0, &column);
    }
    WCHAR text[] = TEXT("row");
    for (int row = 0; row < 6; ++row) {
      LVITEMW values = {};
      values.mask = LVIF_TEXT;
      values.iItem = row;
      values.pszText = text;
      SendRecord(LVM_INSERTITEMW, 0, &values);
    }
    ShowWindow(control, SW_SHOW);
    UpdateWindow(control);
    PumpMessages();
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

  POINT Label(int row) {
    RECT rect = {};
    rect.left = LVIR_LABEL;
    SendRecord(LVM_GETITEMRECT, static_cast<WPARAM>(row), &rect);
    return {rect.left + 5, (rect.top + rect.bottom) / 2};
  }

  void DragRow(int row, int by, WPARAM keys = 0) { Drag(Label(row).x, Label(row).y, by, by, keys); }
  void PressRow(int row, WPARAM keys = 0) { DragRow(row, 0, keys); }
  void RightPressRow(int row) { RightPress(Label(row).x, Label(row).y); }
  void KeyWith(int held, WPARAM key) {
    BYTE keys[256] = {};
    keys[held] = 0x80;
    SetKeyboardState(keys);
    Key(key);
    keys[held] = 0;
    SetKeyboardState(keys);
  }
};

TEST_F(ListContract, MouseAndKeysAreToldRowByRow) {
  const struct {
    const char* what;
    std::function<void()> act;
    const char* heard;
    const char* selected;
  } steps[] = {
      {"press", [this] { PressRow(1); }, "changed 1", "1"},
      {"Shift press", [this] { PressRow(3, MK_SHIFT); }, "changed 2,changed 3,changed 1,changed 3",
       "123"},
      {"Ctrl press", [this] { PressRow(5, MK_CONTROL); }, "changed 3,changed 5", "1235"},
      {"Ctrl press again", [this] { PressRow(5, MK_CONTROL); }, "changed 5,changed 5", "123"},
      {"press in a selection", [this] { PressRow(2); }, "changed 5,changed 2,changed 1,changed 3",
       "2"},
      {"the same press", [this] { PressRow(2); }, "", "2"},
      {"Shift press upwards", [this] { PressRow(0, MK_SHIFT); },
       "changed 0,changed 1,changed 2,changed 0", "012"},
      {"Ctrl press beside", [this] { Press(20, 350, MK_CONTROL); }, "", "012"},
      {"drag of a selection", [this] { DragRow(2, 40); }, "changed 0,changed 2,drag 2", "012"},
      {"drag of another row", [this] { DragRow(4, 40); },
       "changed 0,changed 1,changed 2,changed 2,changed 4,drag 4", "4"},
      {"three pixels", [this] { DragRow(4, 3); }, "", "4"},
      {"right press", [this] { RightPressRow(3); },
       "changed 4,changed 3,changed 4,changed 3,changed 3,menu", "3"},
      {"right press again", [this] { RightPressRow(3); }, "menu", "3"},
      {"right press beside", [this] { RightPress(20, 350); }, "changed 3,menu", ""},
      {"press on a box", [this] { Press(ON_BOX, Label(1).y); }, "changed 1", ""},
      {"Down", [this] { Key(VK_DOWN); }, "changed 3,changed 4", "4"},
      {"Space", [this] { Key(VK_SPACE); }, "changed 4", "4"},
      {"Shift and Up", [this] { KeyWith(VK_SHIFT, VK_UP); }, "changed 3,changed 4,changed 3", "34"},
      {"Ctrl and Up", [this] { KeyWith(VK_CONTROL, VK_UP); }, "changed 3,changed 2", "34"},
      {"Ctrl and Space", [this] { KeyWith(VK_CONTROL, VK_SPACE); }, "changed 2,changed 2", "234"},
      {"End", [this] { Key(VK_END); }, "changed 2,changed 3,changed 4,changed 2,changed 5", "5"},
      {"Home", [this] { Key(VK_HOME); }, "changed 5,changed 5,changed 0", "0"},
      {"Page down", [this] { Key(VK_NEXT); }, "changed 0,changed 0,changed 5", "5"},
      {"Page up", [this] { Key(VK_PRIOR); }, "changed 5,changed 5,changed 0", "0"},
  };
  for (const auto& step : steps) {
    step.act();
    EXPECT_EQ(Heard(), step.heard) << step.what;
    EXPECT_EQ(Selected(), step.selected) << step.what;
  }
  EXPECT_EQ(State(1, LVIS_STATEIMAGEMASK), 0x2000U);
  EXPECT_EQ(State(4, LVIS_STATEIMAGEMASK), 0x2000U);
}

}  // namespace
