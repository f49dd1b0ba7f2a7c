// Random gestures and operations on a tree, beside a model of its rules.
#include <functional>
#include <random>
#include <sstream>

#include "support/selection_model.h"
#include "support/tree_gestures.h"

namespace {

constexpr int SEEDS = REAL_CONTROL ? 24 : 200;
constexpr int STEPS = 300;
// So that all of them show and empty space is left, however deep they are.
constexpr std::size_t MOST_ITEMS = 12;

// None that expands or collapses.
constexpr WPARAM KEYS[] = {VK_UP,  VK_DOWN, VK_UP,   VK_DOWN,  VK_HOME,  VK_END,
                           VK_TAB, 'A',     VK_BACK, VK_SPACE, VK_SHIFT, VK_RETURN};

class TreeModelTest : public TreeTest, public ::testing::WithParamInterface<int> {
 protected:
  void SetUp() override {
    TreeTest::SetUp();
    OpenEmpty(QVLS_HASBUTTONS | QVLS_LINESATROOT | QVLS_HASLINES);
    for (int count = 0; count < 6; ++count) InsertBelow(0);
    TellStructure();
  }

  // Has view and model do the next step, and tells which it was.
  std::string Step() {
    any = Pick(Items(true));
    visible = Pick(Items(false));
    key = KEYS[Below(std::size(KEYS))];
    shift = Below(3) == 0 ? MK_SHIFT : 0;
    modifiers = shift | (Below(4) == 0 ? MK_CONTROL : 0U);
    on = Below(3) != 0;
    const unsigned roll = Below(any ? ACTS.back().upTo : ACTS_WITHOUT_ITEM);
    const Act& act =
        *std::find_if(ACTS.begin(), ACTS.end(), [roll](const Act& one) { return roll < one.upTo; });
    std::ostringstream text;
    text << act.name << " (" << client.Name(visible) << " " << client.Name(any) << " key " << key
         << " with " << modifiers << (on ? " on)" : " off)");
    act.run();
    if (act.changesStructure) TellStructure();
    return text.str();
  }

  std::string ViewState() {
    ItemHandleList selected;
    for (int place = 0; place < view->GetSelectedCount(); ++place) {
      selected.push_back(view->GetSelectedItem(place));
    }
    return State(selected, CaretItem(), Heard());
  }
  std::string ModelState() { return State(model.SelectedVisible(), model.Caret(), model.Take()); }

 private:
  struct Act {
    unsigned upTo;  // the act is done if the roll is less, and no act before this one is
    const char* name;
    std::function<void()> run;
    bool changesStructure = false;  // what items there are or which of them are visible
  };

  unsigned Below(std::size_t limit) { return static_cast<unsigned>(dice() % limit); }

  ItemHandle Pick(const ItemHandleList& items) {
    return items.empty() ? 0 : items[Below(items.size())];
  }

  // The items below a branch from the top down, asked of the control.
  ItemHandleList Items(bool hiddenToo, ItemHandle branch = 0) const {
    ItemHandleList items;
    ItemHandle item = Ask(TVM_GETNEXTITEM, branch ? TVGN_CHILD : TVGN_ROOT, branch);
    for (; item; item = Ask(TVM_GETNEXTITEM, TVGN_NEXT, item)) {
      items.push_back(item);
      if (!hiddenToo && !view->IsItemExpanded(item)) continue;
      const ItemHandleList below = Items(hiddenToo, item);
      items.insert(items.end(), below.begin(), below.end());
    }
    return items;
  }

  // An operation that view and model have in common.
  template <class Operation>
  std::function<void()> Both(Operation operation) {
    return [=, this] {
      operation(*view);
      operation(model);
    };
  }

  void TellStructure() {
    model.Restructure(Items(true), Items(false), CaretItem());
    client.Take();
  }

  void InsertBelow(ItemHandle parent) {
    if (Items(true).size() >= MOST_ITEMS) return;
    const WCHAR name[] = {static_cast<WCHAR>('a' + inserted % 26),
                          static_cast<WCHAR>('0' + inserted / 26 % 10), 0};
    ++inserted;
    Insert(name, parent);
  }

  // What lies at the point is the control's word: in some layouts it draws two items as one.
  ItemHandle HitBy(POINT point) const { return reinterpret_cast<ItemHandle>(HitAt(point).hItem); }

  void PressThere(POINT point) {
    const ItemHandle hit = HitBy(point);
    const int before = forwards.Count();
    const LRESULT answer = PressAt(point, modifiers);
    EXPECT_EQ(forwards.Count(), before + 1);
    EXPECT_EQ(answer, model.LeftPress(hit, modifiers) ? ForwardWatch::ANSWER : 0);
  }

  void PressTheKey() {
    const int before = forwards.Count();
    const LRESULT answer = Key(key, shift);
    EXPECT_EQ(forwards.Count(), before + (answer ? 1 : 0));
    EXPECT_EQ(answer, model.Key(key, shift != 0, CaretItem()) ? ForwardWatch::ANSWER : 0);
  }

  void SelectByHitTest() {
    const POINT point = LabelPoint(visible);
    const POINT screenPoint = ToScreen(point);
    const ItemHandle hit = HitBy(point);
    EXPECT_EQ(view->HitTest(&screenPoint, true, nullptr), hit);
    model.SelectAt(hit);
  }

  std::string State(const ItemHandleList& selected, ItemHandle caret,
                    const std::string& heard) const {
    std::string text;
    for (const ItemHandle item : selected) text += client.Name(item) + " ";
    return "selected: " + text + "caret: " + client.Name(caret) + " heard: " + heard;
  }

  static constexpr unsigned ACTS_WITHOUT_ITEM = 455;
  const std::vector<Act> ACTS = {
      {50, "press off", [this] { PressThere(OffPoint()); }},
      {290, "key", [this] { PressTheKey(); }},
      {360, "insert", [this] { InsertBelow(on ? any : 0); }, true},
      {375, "select all", Both([](auto& tree) { tree.SelectAll(); })},
      {390, "clear selection", Both([](auto& tree) { tree.ClearSelection(); })},
      {405, "invert selection", Both([](auto& tree) { tree.InvertSelection(); })},
      {435, "multiple selection", Both([this](auto& tree) { tree.SetMultiSelect(on); })},
      {455, "client", Both([this](auto& tree) { tree.SetClient(on ? &client : nullptr); })},
      {805, "press", [this] { PressThere(LabelPoint(visible)); }},
      {865, "expand", [this] { view->ExpandItem(any, on); }, true},
      {910, "delete", [this] { view->DeleteItem(any); }, true},
      {912, "delete all", [this] { view->DeleteAllItems(); }, true},
      {942, "set selected", Both([this](auto& tree) { tree.SetItemSelected(any, on); })},
      {982, "hit test", [this] { SelectByHitTest(); }},
  };

  std::mt19937 dice{static_cast<unsigned>(GetParam())};
  SelectionModel model{client.labels};
  const ForwardWatch forwards;
  int inserted = 0;

  // What each step rolls anew.
  ItemHandle any = 0;
  ItemHandle visible = 0;
  WPARAM key = 0;
  WPARAM shift = 0;
  WPARAM modifiers = 0;
  bool on = false;
};

TEST_P(TreeModelTest, AgreesWithTheViewAfterEveryStep) {
  std::string story;
  for (int count = 1; count <= STEPS; ++count) {
    story += "\n  " + std::to_string(count) + ". " + Step();
    const std::string modelState = ModelState();
    ASSERT_EQ(ViewState(), modelState) << "after" << story;
    story += "\n      " + modelState;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, TreeModelTest, ::testing::Range(1, SEEDS + 1));

}  // namespace
