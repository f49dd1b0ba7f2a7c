// What the library relies on in the native controls, as far as neither its other tests nor the
// random scenarios compare it. Gestures go to the controls unchanged.
#include <functional>
#include <string>
#include <vector>

#include "support/tree_gestures.h"

namespace {

constexpr std::uint32_t kTree = QVLS_SINGLESEL | QVLS_HASBUTTONS | QVLS_LINESATROOT;
// Positions in a row.
constexpr int kLabel = 0;
constexpr int kButton = 5;
constexpr int kListBox = 8;
constexpr int kTreeBox = 25;
constexpr int kBeside = 200;

class ContractTest : public TreeTest {
 protected:
  struct Step {
    std::function<void()> gesture;
    const char* callbacks;
  };

  // a(b), e, f, with a collapsed and without a caret.
  void OpenBranches(std::uint32_t style) {
    client.labels.clear();
    OpenView(style);
    Insert(TEXT("a"));
    Insert(TEXT("b"), Item('a'));
    Insert(TEXT("e"));
    Insert(TEXT("f"));
    PumpMessages();
  }

  void RunSteps(const std::vector<Step>& steps) {
    for (const Step& step : steps) {
      step.gesture();
      EXPECT_EQ(Heard(), step.callbacks) << "step " << &step - steps.data();
    }
  }

  // Gestures on an item; '-' is no item.
  std::function<void()> LeftPress(char name, int x = kLabel, int dragBy = 0) {
    return [=, this] {
      const POINT point = PointOf(name, x);
      const LPARAM end = MAKELPARAM(point.x + dragBy, point.y);
      if (dragBy) PostMessageW(control, WM_MOUSEMOVE, MK_LBUTTON, end);
      PressAt(point);
    };
  }
  std::function<void()> KeyDown(WPARAM key, WPARAM modifiers = 0) {
    return [=, this] { Key(key, modifiers); };
  }

  void ExpectMenuAtRightPress(char name) {
    const LPARAM point = MAKELPARAM(PointOf(name, kLabel).x, PointOf(name, kLabel).y);
    PostMessageW(control, WM_RBUTTONUP, 0, point);
    Ask(WM_RBUTTONDOWN, MK_RBUTTON, point);
    PumpMessages();
    EXPECT_NE(Heard().find("ContextMenu"), std::string::npos);
  }

 private:
  POINT PointOf(char name, int x) const {
    const POINT label = name == '-' ? OffPoint() : LabelPoint(Item(name));
    return {x == kLabel ? label.x : x, label.y};
  }
};

TEST_F(ContractTest, TreeGesturesCallBackOnTestRuntime) {
  const auto focus = [this] { SetFocus(host), SetFocus(control); };
  OpenBranches(kTree | QVLS_CHECKBOXES);
  RunSteps({
      {LeftPress('e', kBeside), "a"},  // the first focus selects the first item
      {LeftPress('e', kBeside), ""},
      {LeftPress('e', kButton), ""},
      {LeftPress('a', kButton), "Expanded a"},
      {LeftPress('b'), "b"},
      {LeftPress('a', kButton), "Expanded a"},
      {LeftPress('e', kBeside, 40), ""},
      {LeftPress('e', kLabel, 4), "B e E BeginDrag e"},
      {LeftPress('f', kTreeBox), ""},
      {KeyDown(VK_SPACE), ""},
      {KeyDown(VK_NEXT), "f"},
      {KeyDown(VK_PRIOR), "a"},
      {KeyDown(VK_MULTIPLY), "Expanded a"},
      {KeyDown(VK_SUBTRACT), "Expanded a"},
      {focus, ""},
  });
  EXPECT_TRUE(BoxOf(Item('e')) == 2 && BoxOf(Item('f')) == 2);
  EXPECT_FALSE(view->IsItemExpanded(Item('a')));
  ExpectMenuAtRightPress('f');
  EXPECT_EQ(CaretItem(), Item('a'));
  OpenBranches(QVLS_SINGLESEL | QVLS_FULLROWSELECT);
  RunSteps({{focus, "a"}, {LeftPress('e', kBeside), "e"}});
  OpenBranches(kTree | QVLS_NODRAGDROP);
  RunSteps({{focus, "a"}, {LeftPress('e', kLabel, 40), "e"}});
  view->Hide();
  EXPECT_EQ(GetFocus(), parent) << "a hidden control passes on the focus";
}

TEST_F(ContractTest, PartsOfTreeRowHaveTheirHitFlagsOnTestRuntime) {
  OpenBranches(kTree | QVLS_CHECKBOXES);
  MoveCaret(Item('b'));
  const struct {
    POINT point;
    char item;
    UINT flags;
  } cases[] = {
      {{kButton, 8}, 'a', TVHT_ONITEMBUTTON},
      {{kTreeBox, 8}, 'a', TVHT_ONITEMSTATEICON},
      {{kButton, 24}, 'b', TVHT_ONITEMINDENT},
      {LabelPoint(Item('b')), 'b', TVHT_ONITEMLABEL},
      {{kBeside, 24}, 'b', TVHT_ONITEMRIGHT},
      {{297, 24}, '-', TVHT_TORIGHT},
      {{-1, -1}, '-', TVHT_ABOVE | TVHT_TOLEFT},
      {{30, 397}, '-', TVHT_BELOW},
      {{30, 200}, '-', TVHT_NOWHERE},
  };
  for (const auto& [point, item, flags] : cases) {
    const TVHITTESTINFO hit = HitAt(point);
    EXPECT_EQ(hit.hItem, Native(Item(item))) << point.x << "," << point.y;
    EXPECT_EQ(hit.flags, flags) << point.x << "," << point.y;
  }
}

TEST_F(ContractTest, FirstPaintEmptiesTreeBoxesOnTestRuntime) {
  control = CreateWindowExW(0, WC_TREEVIEWW, TEXT(""), WS_CHILD | TVS_CHECKBOXES, 0, 0, 50, 50,
                            host, nullptr, GetModuleHandleW(nullptr), nullptr);
  TVINSERTSTRUCTW insert = {};
  const ItemHandle item = AskRecord(TVM_INSERTITEMW, 0, &insert);
  SetBox(item, 2);
  ShowWindow(control, SW_SHOW);
  UpdateWindow(control);
  EXPECT_EQ(BoxOf(item), 1u);
}

TEST_F(ContractTest, ListGesturesCallBackForEachChangedRowOnTestRuntime) {
  OpenView(QVLS_LISTVIEW | QVLS_CHECKBOXES);
  for (const WCHAR* name : {TEXT("a"), TEXT("b"), TEXT("c"), TEXT("d")}) Insert(name);
  client.Take();
  RunSteps({
      {LeftPress('a', kListBox), "B a E"},
      {LeftPress('c'), "B c E"},
      {KeyDown(VK_SPACE), "B c E"},
      {KeyDown(VK_UP, MK_CONTROL), "B c E B b E"},
      {KeyDown(VK_SPACE, MK_CONTROL), "B b E B b E"},
      {KeyDown(VK_NEXT), "B b E B c E B b E B d E"},
      {KeyDown(VK_PRIOR), "B d E B d E B a E"},
  });
  EXPECT_TRUE(BoxOf(0) == 2 && BoxOf(1) == 2 && BoxOf(2) == 2 && BoxOf(3) == 1);
  ExpectMenuAtRightPress('d');
  EXPECT_EQ(Selected(), "d");
}

}  // namespace
