// Random gestures and operations on a tree, beside a model of its rules.
#include <functional>
#include <random>
#include <sstream>

#include "support/selection_model.h"
#include "support/tree_gestures.h"

namespace {

constexpr int SEEDS = REAL_CONTROL ? 24 : 200;
constexpr int STEPS = 300;
// So that all of them show and empty space is left.
constexpr std::size_t MOST_ITEMS = 16;

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
    const unsigned place = Below(1000);
    any = Pick(Items(true), place);
    visible = Pick(Items(false), place);
    key = KEYS[Below(std::size(KEYS))];
    shift = Below(3) == 0 ? MK_SHIFT : 0;
    modifiers = shift | (Below(4) == 0 ? MK_CONTROL : 0U);
    on = Below(3) != 0;
    const Act& act = ChooseAct();
    std::ostringstream text;
    text << act.name << " (" << client.Name(visible) << " " << client.Name(any) << " key " << key
         << " with " << modifiers << (on ? " on)" : " off)");
    if (!any && act.needsItem) return text.str();
    act.ofView();
    if (act.ofModel) {
      act.ofModel();
    } else {
      TellStructure();
    }
    return text.str();
  }

  std::string ViewState() {
    ItemHandleList selected;
    for (int place = 0; place < view->GetSelectedCount(); ++place) {
      selected.push_back(view->GetSelectedItem(place));
    }
    return State(selected, CaretItem(), client.Take());
  }
  std::string ModelState() { return State(model.SelectedVisible(), model.Caret(), model.Take()); }

 private:
  struct Act {
    unsigned weight;
    bool needsItem;
    const char* name;
    std::function<void()> ofView;
    std::function<void()> ofModel;  // none if only the structure changes
  };

  unsigned Below(std::size_t limit) { return static_cast<unsigned>(dice() % limit); }

  static ItemHandle Pick(const ItemHandleList& items, unsigned place) {
    return items.empty() ? 0 : items[place % items.size()];
  }

  const Act& ChooseAct() {
    unsigned total = 0;
    for (const Act& act : ACTS) total += act.weight;
    unsigned left = Below(total);
    auto chosen = ACTS.begin();
    for (; left >= chosen->weight; ++chosen) left -= chosen->weight;
    return *chosen;
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

  void TellStructure() {
    model.Restructure(Items(true), Items(false), CaretItem());
    client.Take();
  }

  // To the third level at most, so that labels stay within the window.
  void InsertBelow(ItemHandle parent) {
    const bool deep =
        parent && view->GetParentItem(parent) && view->GetParentItem(view->GetParentItem(parent));
    if (deep || Items(true).size() >= MOST_ITEMS) return;
    const auto letter = static_cast<WCHAR>('a' + inserted % 26);
    const auto digit = static_cast<WCHAR>('0' + inserted / 26 % 10);
    const WCHAR name[] = {letter, digit, 0};
    ++inserted;
    Insert(name, parent);
  }

  // What lies at the point is the control's word: in some layouts it draws two items as one.
  void PressThere(POINT point) {
    hit = reinterpret_cast<ItemHandle>(HitAt(point).hItem);
    const int before = forwards.Count();
    answer = PressAt(point, modifiers);
    EXPECT_EQ(forwards.Count(), before + 1);
  }

  void PressTheKey() {
    const int before = forwards.Count();
    answer = Key(key, shift);
    EXPECT_EQ(forwards.Count(), before + (answer ? 1 : 0));
  }

  void ExpectAnswer(bool ofControl) { EXPECT_EQ(answer, ofControl ? ForwardWatch::ANSWER : 0); }

  void SelectByHitTest() {
    const POINT point = LabelPoint(visible);
    hit = reinterpret_cast<ItemHandle>(HitAt(point).hItem);
    const POINT screenPoint = ToScreen(point);
    EXPECT_EQ(view->HitTest(&screenPoint, true, nullptr), hit);
  }

  std::string State(const ItemHandleList& selected, ItemHandle caret, const Lines& heard) const {
    std::string text;
    for (const ItemHandle item : selected) text += client.Name(item) + " ";
    return "selected: " + text + "caret: " + client.Name(caret) + " heard: " + Short(heard);
  }

  const std::vector<Act> ACTS = {
      {350, true, "press", [this] { PressThere(LabelPoint(visible)); },
       [this] { ExpectAnswer(model.LeftPress(hit, modifiers)); }},
      {50, false, "press off", [this] { PressThere(OffPoint()); },
       [this] { ExpectAnswer(model.LeftPress(0, modifiers)); }},
      {240, false, "key", [this] { PressTheKey(); },
       [this] { ExpectAnswer(model.Key(key, shift != 0, CaretItem())); }},
      {60, true, "expand", [this] { view->ExpandItem(any, on); }, nullptr},
      {70, false, "insert", [this] { InsertBelow(on ? any : 0); }, nullptr},
      {45, true, "delete", [this] { view->DeleteItem(any); }, nullptr},
      {2, true, "delete all", [this] { view->DeleteAllItems(); }, nullptr},
      {30, true, "set selected", [this] { view->SetItemSelected(any, on); },
       [this] { model.SetSelected(any, on); }},
      {15, false, "select all", [this] { view->SelectAll(); }, [this] { model.SelectAll(); }},
      {15, false, "clear selection", [this] { view->ClearSelection(); },
       [this] { model.ClearSelection(); }},
      {15, false, "invert selection", [this] { view->InvertSelection(); },
       [this] { model.InvertSelection(); }},
      {40, true, "hit test", [this] { SelectByHitTest(); }, [this] { model.SelectAt(hit); }},
      {30, false, "multiple selection", [this] { view->SetMultiSelect(on); },
       [this] { model.multiSelect = on; }},
      {20, false, "client", [this] { view->SetClient(on ? &client : nullptr); },
       [this] { model.heard = on; }},
  };

  std::mt19937 dice{static_cast<unsigned>(GetParam())};
  SelectionModel model{client.labels};
  const ForwardWatch forwards;
  int inserted = 0;

  // What each step rolls anew, and what it meets.
  ItemHandle any = 0;
  ItemHandle visible = 0;
  WPARAM key = 0;
  WPARAM shift = 0;
  WPARAM modifiers = 0;
  bool on = false;
  ItemHandle hit = 0;
  LRESULT answer = 0;
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
