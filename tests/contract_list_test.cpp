// What the library relies on in the list control and what its own tests cannot tell from a control
// that does otherwise, on the control alone.
#include <functional>
#include <string>

#include "support/contract_host.h"
#include "support/list_test.h"

namespace {

constexpr int ON_BOX = 8;
constexpr POINT BESIDE = {20, 350};

// Rows 0 to 5 with boxes, in one column.
class ListContract : public ContractTest<ListTest> {
 protected:
  void SetUp() override {
    ContractTest::SetUp();
    MakeControl(WC_LISTVIEWW, LVS_REPORT);
    constexpr DWORD EXTENDED = LVS_EX_FULLROWSELECT | LVS_EX_CHECKBOXES;
    Ask(LVM_SETEXTENDEDLISTVIEWSTYLE, EXTENDED, static_cast<LPARAM>(EXTENDED));
    LVCOLUMNW column = {};
    column.mask = LVCF_WIDTH;
    column.cx = 100;
    AskRecord(LVM_INSERTCOLUMNW, 0, &column);
    WCHAR text[] = TEXT("row");
    for (int row = 0; row < 6; ++row) {
      LVITEMW values = {};
      values.mask = LVIF_TEXT;
      values.iItem = row;
      values.pszText = text;
      AskRecord(LVM_INSERTITEMW, 0, &values);
    }
    ShowControl();
    Told();
  }

  std::string Selected() const {
    std::string selected;
    for (const ItemHandle row : SelectedRows()) selected += std::to_string(row);
    return selected;
  }

  POINT Label(int row) const {
    const RECT rect = ItemRect(row);
    return {rect.left + 5, (rect.top + rect.bottom) / 2};
  }
};

TEST_F(ListContract, MouseAndKeysAreToldRowByRow) {
  const struct {
    const char* what;
    std::function<void()> act;
    const char* told;
    const char* selected;
  } steps[] = {
      {"press", [this] { Press(Label(1)); }, "changed 1", "1"},
      {"Shift press", [this] { Press(Label(3), MK_SHIFT); },
       "changed 2,changed 3,changed 1,changed 3", "123"},
      {"Ctrl press", [this] { Press(Label(5), MK_CONTROL); }, "changed 3,changed 5", "1235"},
      {"Ctrl press again", [this] { Press(Label(5), MK_CONTROL); }, "changed 5,changed 5", "123"},
      {"press in a selection", [this] { Press(Label(2)); },
       "changed 5,changed 2,changed 1,changed 3", "2"},
      {"the same press", [this] { Press(Label(2)); }, "", "2"},
      {"Shift press upwards", [this] { Press(Label(0), MK_SHIFT); },
       "changed 0,changed 1,changed 2,changed 0", "012"},
      {"Ctrl press beside", [this] { Press(BESIDE, MK_CONTROL); }, "", "012"},
      {"drag of a selection", [this] { Drag(Label(2), 40, 40); }, "changed 0,changed 2,drag 2",
       "012"},
      {"drag of another row", [this] { Drag(Label(4), 40, 40); },
       "changed 0,changed 1,changed 2,changed 2,changed 4,drag 4", "4"},
      {"three pixels", [this] { Drag(Label(4), 3, 3); }, "", "4"},
      {"right press", [this] { RightPress(Label(3)); },
       "changed 4,changed 3,changed 4,changed 3,changed 3,menu", "3"},
      {"right press again", [this] { RightPress(Label(3)); }, "menu", "3"},
      {"right press beside", [this] { RightPress(BESIDE); }, "changed 3,menu", ""},
      {"press on a box",
       [this] {
         Press({ON_BOX, Label(1).y});
       },
       "changed 1", ""},
      {"Down", [this] { Key(VK_DOWN); }, "changed 3,changed 4", "4"},
      {"Space", [this] { Key(VK_SPACE); }, "changed 4", "4"},
      {"Shift and Up", [this] { Key(VK_UP, VK_SHIFT); }, "changed 3,changed 4,changed 3", "34"},
      {"Ctrl and Up", [this] { Key(VK_UP, VK_CONTROL); }, "changed 3,changed 2", "34"},
      {"Ctrl and Space", [this] { Key(VK_SPACE, VK_CONTROL); }, "changed 2,changed 2", "234"},
      {"End", [this] { Key(VK_END); }, "changed 2,changed 3,changed 4,changed 2,changed 5", "5"},
      {"Home", [this] { Key(VK_HOME); }, "changed 5,changed 5,changed 0", "0"},
      {"Page down", [this] { Key(VK_NEXT); }, "changed 0,changed 0,changed 5", "5"},
      {"Page up", [this] { Key(VK_PRIOR); }, "changed 5,changed 5,changed 0", "0"},
  };
  for (const auto& step : steps) {
    step.act();
    EXPECT_EQ(Told(), step.told) << step.what;
    EXPECT_EQ(Selected(), step.selected) << step.what;
  }
  EXPECT_EQ(BoxOf(1), 2u);
  EXPECT_EQ(BoxOf(4), 2u);
}

}  // namespace
