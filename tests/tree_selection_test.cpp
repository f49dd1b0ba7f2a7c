// The selection of a tree: random gestures and operations beside a model of the rules, and the
// cases that the model does not have.
#include <functional>
#include <random>

#include "support/selection_model.h"
#include "support/sent_messages.h"
#include "support/tree_gestures.h"

namespace {

constexpr int kSeeds = kRealControl ? 24 : 200;
constexpr int kSteps = 300;
// All items stay in view, and empty space is left below them.
constexpr std::size_t kMostItems = 12;
// The control's answer to each press and key that the library forwards.
constexpr LRESULT kControlAnswer = 4711;

// No key that expands or collapses.
constexpr WPARAM kKeys[] = {VK_UP, VK_DOWN, VK_UP,    VK_DOWN,  VK_HOME,   VK_END,      VK_TAB,
                            'A',   VK_BACK, VK_SPACE, VK_SHIFT, VK_RETURN, VK_SPACE - 1};

int forwards = 0;

LRESULT CALLBACK CountForwards(WNDPROC procedure, HWND window, UINT message, WPARAM wParam,
                               LPARAM lParam) {
  const LRESULT answer = CallWindowProcW(procedure, window, message, wParam, lParam);
  if (message != WM_LBUTTONDOWN && message != WM_KEYDOWN) return answer;
  ++forwards;
  return kControlAnswer;
}

class TreeModelTest : public TreeTest, public ::testing::WithParamInterface<int> {
 protected:
  // Runs the next step on view and model. The result describes it.
  std::string Step() {
    any = Pick(Items(true));
    visible = Pick(Items(false));
    key = kKeys[Below(std::size(kKeys))];
    modifiers = (Below(3) == 0 ? MK_SHIFT : 0U) | (Below(4) == 0 ? MK_CONTROL : 0U);
    on = Below(3) != 0;
    unsigned roll = Below(any ? 1000 : 480);
    const Action* action = actions.data();
    while (roll >= action->weight) roll -= (action++)->weight;
    action->run();
    return action->name + (" " + client.Name(visible)) + " " + client.Name(any) + " key " +
           std::to_string(key) + " with " + std::to_string(modifiers) + (on ? " on" : " off");
  }

  void ExpectAgreement() {
    const ItemHandleList selected = model.Selected();
    for (const ItemHandle item : Items(false)) {
      EXPECT_EQ(view->IsItemSelected(item), std::ranges::count(selected, item) == 1);
    }
    EXPECT_EQ(view->GetSelectedCount(), std::ssize(selected));
    int index = 0;
    for (const ItemHandle item : selected) EXPECT_EQ(view->GetSelectedItem(index++), item);
    for (const int none : {-1, index}) EXPECT_EQ(view->GetSelectedItem(none), -1);
    EXPECT_EQ(CaretItem(), model.Caret());
    EXPECT_EQ(Callbacks(), model.TakeCallbacks());
  }

  void SyncStructure() {
    model.Restructure(Items(true), Items(false), CaretItem());
    client.Take();
  }

  void InsertBelow(ItemHandle parent) {
    if (Items(true).size() >= kMostItems) return;
    const WCHAR name[] = {static_cast<WCHAR>('a' + inserted % 26),
                          static_cast<WCHAR>('0' + inserted / 26 % 10), 0};
    ++inserted;
    Insert(name, parent);
  }

  SelectionModel model{client};

 private:
  struct Action {
    unsigned weight;
    const char* name;
    std::function<void()> run;
  };

  unsigned Below(std::size_t limit) { return static_cast<unsigned>(dice() % limit); }
  ItemHandle Pick(const ItemHandleList& items) {
    return items.empty() ? 0 : items[Below(items.size())];
  }

  // The items below a branch from the top down.
  ItemHandleList Items(bool withHidden, ItemHandle branch = 0) const {
    ItemHandleList items;
    ItemHandle item = Ask(TVM_GETNEXTITEM, branch ? TVGN_CHILD : TVGN_ROOT, branch);
    for (; item; item = Ask(TVM_GETNEXTITEM, TVGN_NEXT, item)) {
      items.push_back(item);
      if (!withHidden && !view->IsItemExpanded(item)) continue;
      const ItemHandleList below = Items(withHidden, item);
      items.insert(items.end(), below.begin(), below.end());
    }
    return items;
  }

  template <class Operation>
  std::function<void()> Both(Operation operation) {
    return [=, this] { operation(*view), operation(model); };
  }
  template <class Operation>
  std::function<void()> Structural(Operation operation) {
    return [=, this] { operation(), SyncStructure(); };
  }

  void ExpectAnswer(LRESULT answer, bool isControls, bool forwarded) {
    EXPECT_EQ(answer, isControls ? kControlAnswer : 0);
    EXPECT_EQ(std::exchange(forwards, 0), forwarded);
  }

  // The control decides which item is at the point. Only the press counts, not the keyboard.
  void PressThere(POINT point) {
    const auto hit = reinterpret_cast<ItemHandle>(HitAt(point).hItem);
    HoldDown(on ? 0 : MK_SHIFT);
    const LRESULT answer = PressAt(point, modifiers);
    HoldDown(0);
    ExpectAnswer(answer, model.LeftPress(hit, modifiers), true);
  }

  void PressKey() {
    const LRESULT answer = Key(key, modifiers);
    ExpectAnswer(answer, model.Key(key, (modifiers & MK_SHIFT) != 0, CaretItem()), answer != 0);
  }

  void SelectByHitTest() {
    const POINT point = on ? LabelPoint(visible) : OffPoint();
    const POINT screenPoint = ToScreen(point);
    const auto hit = reinterpret_cast<ItemHandle>(HitAt(point).hItem);
    EXPECT_EQ(view->HitTest(&screenPoint, true, nullptr), hit ? hit : -1);
    model.SelectByHitTest(hit);
  }

  // Weights in thousandths. The last ones need an item.
  const std::vector<Action> actions = {
      {50, "press off", [this] { PressThere(OffPoint()); }},
      {250, "key", [this] { PressKey(); }},
      {80, "insert", Structural([this] { InsertBelow(on ? any : 0); })},
      {15, "select all", Both([](auto& tree) { tree.SelectAll(); })},
      {15, "clear selection", Both([](auto& tree) { tree.ClearSelection(); })},
      {15, "invert selection", Both([](auto& tree) { tree.InvertSelection(); })},
      {30, "multiple selection", Both([this](auto& tree) { tree.SetMultiSelect(on); })},
      {25, "client", Both([this](auto& tree) { tree.SetClient(on ? &client : nullptr); })},
      {335, "press", [this] { PressThere(LabelPoint(visible)); }},
      {60, "expand", Structural([this] { view->ExpandItem(any, on); })},
      {43, "delete", Structural([this] { view->DeleteItem(any); })},
      {2, "delete all", Structural([this] { view->DeleteAllItems(); })},
      {20, "set selected", Both([this](auto& tree) { tree.SetItemSelected(any, on); })},
      {40, "hit test", [this] { SelectByHitTest(); }},
      {20, "drag", [this] { NotifyOf(visible, TVN_BEGINDRAGW), model.BeginDrag(visible); }},
  };

  std::mt19937 dice{static_cast<unsigned>(GetParam())};
  const ImportPatch patch{"CallWindowProcW", &CountForwards};
  int inserted = 0;

  // The choices of a step.
  ItemHandle any = 0;
  ItemHandle visible = 0;
  WPARAM key = 0;
  WPARAM modifiers = 0;
  bool on = false;
};

TEST_P(TreeModelTest, AgreesWithTheViewAfterEveryStep) {
  OpenEmpty(QVLS_HASBUTTONS | QVLS_LINESATROOT | QVLS_HASLINES);
  for (int count = 0; count < 6; ++count) InsertBelow(0);
  SyncStructure();
  std::string log;
  for (int count = 1; count <= kSteps && !HasFailure(); ++count) {
    log += "\n  " + Step();
    SCOPED_TRACE("after" + log);
    ExpectAgreement();
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, TreeModelTest, ::testing::Range(1, kSeeds + 1));

class TreeSelectionTest : public TreeTest {
 protected:
  void SetUp() override {
    TreeTest::SetUp();
    Open(QVLS_HASBUTTONS | QVLS_LINESATROOT | QVLS_HASLINES);
  }
};

TEST_F(TreeSelectionTest, DeletedAnchorIsNotFoundUnderItsReusedHandle) {
  Given("Q P PQ");
  NMTREEVIEWW record = {};
  record.itemOld.hItem = Native(Item('P'));
  Notify(record.hdr, TVN_DELETEITEMW);
  Press('R', MK_SHIFT);
  EXPECT_EQ(Selected(), "RS") << "from the target to the last item";
}

TEST_F(TreeSelectionTest, PressOnButtonSelectsItsItem) {
  Insert(TEXT("c"), Item('Q'));
  Given("S P PS");
  PressAt(PartPoint(Item('Q'), TVHT_ONITEMBUTTON));
  EXPECT_EQ(Callbacks(), "B P S 0 Q E Expanded Q");
  EXPECT_EQ(Selected(), "Q");
}

TEST_F(TreeSelectionTest, HitTestForgetsItemThatItsCallbackDeletes) {
  Given("P - PQ");
  client.onBeginSelectionChange = [this] { view->DeleteItem(Item('S')); };
  const POINT point = LabelOnScreen(Item('S'));
  std::uint32_t hitFlags = 99;
  EXPECT_EQ(view->HitTest(&point, true, &hitFlags), -1);
  EXPECT_EQ(hitFlags, 0u);
  EXPECT_EQ(Callbacks(), "B P Q E");
  EXPECT_EQ(CaretItem(), Item('P'));
}

TEST_F(TreeSelectionTest, GestureThatDestroysTheViewInItsBracketAnswersZero) {
  for (const WPARAM keys : {0, MK_CONTROL, MK_SHIFT}) {
    for (const bool byKey : {true, false}) {
      Open();
      Given("Q - Q");
      client.onBeginSelectionChange = [this] { view->Destroy(); };
      EXPECT_EQ(byKey ? Key(VK_DOWN, keys) : Press('S', keys), 0) << keys;
      EXPECT_EQ(Callbacks(), "B");
      client.onBeginSelectionChange = nullptr;
    }
  }
  view->SetClient(&client);
  view->SelectAll();
  view->InvertSelection();
  view->ClearSelection();
  EXPECT_EQ(Callbacks(), "B E B E B E") << "without a control the bracket remains";
}

// The control repaints only its caret, and at a right press only the pressed item.
TEST_F(TreeSelectionTest, FocusAndRightPressRepaintTheWholeSelection) {
  const LPARAM point = MAKELPARAM(LabelPoint(Item('P')).x, LabelPoint(Item('P')).y);
  const std::function<void()> gestures[] = {
      [&] { SetFocus(host); },
      [&] { SetFocus(control); },
      [&] { PostMessageW(control, WM_RBUTTONUP, 0, point), Ask(WM_RBUTTONDOWN, 0, point); },
  };
  for (const bool multiSelect : {true, false}) {
    Given("P - PS");
    view->SetMultiSelect(multiSelect);
    for (const auto& gesture : gestures) {
      UpdateWindow(control);
      const SentMessages sent;
      gesture();
      RECT waiting = {};
      GetUpdateRect(control, &waiting, FALSE);
      const bool all = waiting.top <= ItemRect(Item('P'), false).top &&
                       waiting.bottom >= ItemRect(Item('S'), false).bottom;
      EXPECT_EQ(all, multiSelect);
      EXPECT_EQ(!sent.Of(TVM_SELECTITEM).empty(), multiSelect && &gesture == &gestures[2]);
    }
  }
}

}  // namespace
