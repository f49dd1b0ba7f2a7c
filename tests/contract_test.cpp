// What the library relies on in the native controls, as far as neither its other tests nor the
// random scenarios compare it. Gestures go to the controls unchanged.
#include <string>
#include <utility>
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
// Instead of an item.
constexpr char kKey = 'k';
constexpr char kFocus = '-';

// A press on an item at x, with the mouse moved by `more`; or the key x with the modifiers `more`.
struct Step {
  char item;
  int x, more;
  const char* callbacks;
};

class ContractTest : public TreeTest {
 protected:
  // The tree a(b), e, f, with a collapsed and without a caret, or a list of rows.
  void OpenBranches(std::uint32_t style) {
    client.labels.clear();
    OpenView(style);
    InsertBranches("a- ba e- f-");
  }

  POINT PointOf(char name, int x) const {
    const POINT label = LabelPoint(Item(name));
    return {x == kLabel ? label.x : x, label.y};
  }

  void RunSteps(const std::vector<Step>& steps) {
    for (const auto& [item, x, more, callbacks] : steps) {
      if (item == kKey) {
        Key(x, more);
      } else if (item == kFocus) {
        SetFocus(host), SetFocus(control);
      } else {
        const POINT point = PointOf(item, x);
        const LPARAM end = MAKELPARAM(point.x + more, point.y);
        if (more) PostMessageW(control, WM_MOUSEMOVE, MK_LBUTTON, end);
        PressAt(point);
      }
      EXPECT_EQ(Callbacks(), callbacks) << item << " " << x << " " << more;
    }
  }

  void ExpectMenuAtRightPress(char name) {
    const LPARAM point = MAKELPARAM(PointOf(name, kLabel).x, PointOf(name, kLabel).y);
    PostMessageW(control, WM_RBUTTONUP, 0, point);
    Ask(WM_RBUTTONDOWN, MK_RBUTTON, point);
    PumpMessages();
    EXPECT_NE(Callbacks().find("ContextMenu"), std::string::npos);
  }
};

TEST_F(ContractTest, TreeGesturesCallBackOnTestRuntime) {
  OpenBranches(kTree | QVLS_CHECKBOXES);
  RunSteps({
      {'e', kBeside, 0, "a"},  // the first focus selects the first item
      {'e', kBeside, 0, ""},
      {'e', kButton, 0, ""},
      {'a', kButton, 0, "Expanded a"},
      {'b', kLabel, 0, "b"},
      {'a', kButton, 0, "Expanded a"},
      {'e', kBeside, 40, ""},
      {'e', kLabel, 4, "B e E BeginDrag e"},
      {'f', kTreeBox, 0, ""},
      {kKey, VK_SPACE, 0, ""},
      {kKey, VK_NEXT, 0, "f"},
      {kKey, VK_PRIOR, 0, "a"},
      {kKey, VK_MULTIPLY, 0, "Expanded a"},
      {kKey, VK_SUBTRACT, 0, "Expanded a"},
      {kFocus, 0, 0, ""},
  });
  EXPECT_TRUE(BoxOf(Item('e')) == 2 && BoxOf(Item('f')) == 2);
  EXPECT_FALSE(view->IsItemExpanded(Item('a')));
  ExpectMenuAtRightPress('f');
  EXPECT_EQ(CaretItem(), Item('a'));
  MoveCaret(Item('b'));
  const std::pair<POINT, UINT> parts[] = {
      {{kButton, 8}, TVHT_ONITEMBUTTON},
      {{kTreeBox, 8}, TVHT_ONITEMSTATEICON},
      {{kButton, 24}, TVHT_ONITEMINDENT},
      {LabelPoint(Item('b')), TVHT_ONITEMLABEL},
      {{kBeside, 24}, TVHT_ONITEMRIGHT},
      {{297, 24}, TVHT_TORIGHT},
      {{-1, -1}, TVHT_ABOVE | TVHT_TOLEFT},
      {{30, 397}, TVHT_BELOW},
      {{30, 200}, TVHT_NOWHERE},
  };
  for (const auto& [point, flags] : parts) EXPECT_EQ(HitAt(point).flags, flags) << point.x;
  OpenBranches(QVLS_SINGLESEL | QVLS_FULLROWSELECT);
  RunSteps({{kFocus, 0, 0, "a"}, {'e', kBeside, 0, "e"}});
  OpenBranches(kTree | QVLS_NODRAGDROP);
  RunSteps({{kFocus, 0, 0, "a"}, {'e', kLabel, 40, "e"}});
  view->Hide();
  EXPECT_EQ(GetFocus(), parent) << "a hidden control passes on the focus";
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
  OpenBranches(QVLS_LISTVIEW | QVLS_CHECKBOXES);
  RunSteps({
      {'a', kListBox, 0, "B a E"},
      {'e', kLabel, 0, "B e E"},
      {kKey, VK_SPACE, 0, "B e E"},
      {kKey, VK_UP, MK_CONTROL, "B e E B b E"},
      {kKey, VK_SPACE, MK_CONTROL, "B b E B b E"},
      {kKey, VK_NEXT, 0, "B b E B e E B b E B f E"},
      {kKey, VK_PRIOR, 0, "B f E B f E B a E"},
  });
  EXPECT_TRUE(BoxOf(0) == 2 && BoxOf(1) == 2 && BoxOf(2) == 2 && BoxOf(3) == 1);
  ExpectMenuAtRightPress('f');
  EXPECT_EQ(Selected(), "f");
  SetState(-1, LVIS_SELECTED, LVIS_SELECTED);
  EXPECT_EQ(Callbacks(), "B a E B b E B e E") << "a change of all rows";
}

}  // namespace
