// Random gestures on a tree, beside a model of its rules.
#include <random>
#include <sstream>

#include "support/selection_model.h"
#include "support/tree_gestures.h"

namespace {

constexpr int SEEDS = REAL_CONTROL ? 24 : 200;
constexpr int STEPS = 300;
// So that all of them show and empty space is left.
constexpr std::size_t MOST_ITEMS = 16;
constexpr int GREATEST_DEPTH = 4;

enum class Act {
  press,
  pressOff,
  pressButton,
  key,
  expand,
  insert,
  remove,
  removeAll,
  setSelected,
  selectAll,
  clearSelection,
  invertSelection,
  requestMenu,
  multiSelect,
  setClient,
};

struct Chance {
  Act act;
  unsigned weight;
  const char* name;
};

constexpr Chance CHANCES[] = {
    {Act::press, 300, "press"},
    {Act::pressOff, 50, "press off"},
    {Act::pressButton, 50, "press button of"},
    {Act::key, 240, "key"},
    {Act::expand, 60, "expand or collapse"},
    {Act::insert, 70, "insert below"},
    {Act::remove, 45, "delete"},
    {Act::removeAll, 2, "delete all"},
    {Act::setSelected, 30, "set selected"},
    {Act::selectAll, 15, "select all"},
    {Act::clearSelection, 15, "clear selection"},
    {Act::invertSelection, 15, "invert selection"},
    {Act::requestMenu, 40, "request menu at"},
    {Act::multiSelect, 30, "multiple selection"},
    {Act::setClient, 20, "set client"},
};

constexpr WPARAM KEYS[] = {VK_UP,    VK_DOWN,     VK_UP,    VK_DOWN,  VK_LEFT, VK_RIGHT,
                           VK_HOME,  VK_END,      VK_ADD,   VK_BACK,  'A',     VK_TAB,
                           VK_SPACE, VK_SUBTRACT, VK_SHIFT, VK_RETURN};

struct Step {
  const Chance* chance;
  unsigned pick;  // which item, as far as there are items
  WPARAM key;
  bool shift;
  bool control;
  bool on;
};

class Dice {
 public:
  explicit Dice(unsigned seed) : engine(seed) {}

  unsigned Below(unsigned limit) { return static_cast<unsigned>(engine() % limit); }

  Step NextStep() {
    return {Choose(),      Below(1000),   KEYS[Below(std::size(KEYS))],
            Below(3) == 0, Below(4) == 0, Below(3) != 0};
  }

 private:
  const Chance* Choose() {
    unsigned total = 0;
    for (const Chance& chance : CHANCES) total += chance.weight;
    unsigned left = Below(total);
    const Chance* chosen = CHANCES;
    for (; left >= chosen->weight; ++chosen) left -= chosen->weight;
    return chosen;
  }

  std::mt19937 engine;
};

class TreeModelTest : public TreeTest, public ::testing::WithParamInterface<int> {
 protected:
  void SetUp() override {
    TreeTest::SetUp();
    OpenEmpty(QVLS_HASBUTTONS | QVLS_LINESATROOT | QVLS_HASLINES);
    for (int count = 0; count < 6; ++count) InsertBelow(0);
  }

  void Do(const Step& step) {
    const ItemHandle visible = Pick(model.Visible(), step.pick);
    const ItemHandle any = Pick(model.Items(), step.pick);
    switch (step.chance->act) {
      case Act::key:
        Key(step.key, step.shift);
        return model.Key(step.key, step.shift);
      case Act::pressOff:
        return PressBoth(OffPoint(), step);
      case Act::insert:
        return InsertBelow(step.on ? any : 0);
      case Act::multiSelect:
        view->SetMultiSelect(step.on);
        model.multiSelect = step.on;
        return;
      case Act::setClient:
        view->SetClient(step.on ? &client : nullptr);
        model.heard = step.on;
        return;
      default:
        if (any) DoToItems(step, visible, any);
    }
  }

  // Told before the step is done, while its items are there.
  std::string Describe(const Step& step) const {
    std::ostringstream text;
    text << step.chance->name << " (" << client.Name(Pick(model.Visible(), step.pick)) << " "
         << client.Name(Pick(model.Items(), step.pick)) << (step.shift ? " Shift" : "")
         << (step.control ? " Ctrl" : "") << (step.on ? " on" : " off") << " key " << step.key
         << ")";
    return text.str();
  }

  std::string ViewState() {
    ItemHandleList visible;
    view->GetItems(&visible, true);
    return State(visible, ViewSelection(), CaretItem(), client.Take());
  }
  std::string ModelState() {
    return State(model.Visible(), model.SelectedVisible(), model.Caret(), model.Take());
  }

 private:
  static ItemHandle Pick(const std::vector<ItemHandle>& items, unsigned pick) {
    return items.empty() ? 0 : items[pick % items.size()];
  }

  // What needs an item to be there.
  void DoToItems(const Step& step, ItemHandle visible, ItemHandle any) {
    switch (step.chance->act) {
      case Act::press:
        return PressBoth(LabelPoint(visible), step);
      case Act::pressButton:
        if (!model.HasChildren(visible)) return;
        return PressBoth(PartPoint(visible, TVHT_ONITEMBUTTON), step);
      case Act::expand:
        view->ExpandItem(any, step.on);
        return model.Expand(any, step.on);
      case Act::remove:
        view->DeleteItem(any);
        return model.Delete(any);
      case Act::removeAll:
        view->DeleteAllItems();
        return model.DeleteAll();
      case Act::setSelected:
        view->SetItemSelected(any, step.on);
        return model.SetSelected(any, step.on);
      case Act::selectAll:
        view->SelectAll();
        return model.SelectAll();
      case Act::clearSelection:
        view->ClearSelection();
        return model.ClearSelection();
      case Act::invertSelection:
        view->InvertSelection();
        return model.InvertSelection();
      default:
        return SelectAtBoth(LabelPoint(visible));
    }
  }

  // What lies at the point is the control's word: in some layouts it draws two items as one.
  void PressBoth(POINT point, const Step& step) {
    const WPARAM keys = (step.shift ? MK_SHIFT : 0U) | (step.control ? MK_CONTROL : 0U);
    const TVHITTESTINFO hit = HitAt(point);
    PressAt(point, keys);
    model.LeftPress({reinterpret_cast<ItemHandle>(hit.hItem), step.shift, step.control,
                     (hit.flags & TVHT_ONITEMBUTTON) != 0});
  }

  void SelectAtBoth(POINT point) {
    const auto hit = reinterpret_cast<ItemHandle>(HitAt(point).hItem);
    const POINT screenPoint = ToScreen(point);
    EXPECT_EQ(view->HitTest(&screenPoint, true, nullptr), hit);
    model.SelectAt(hit);
  }

  void InsertBelow(ItemHandle parent) {
    if (model.Items().size() >= MOST_ITEMS || model.DepthOf(parent) >= GREATEST_DEPTH) return;
    const auto letter = static_cast<WCHAR>('a' + inserted % 26);
    const auto digit = static_cast<WCHAR>('0' + inserted / 26 % 10);
    const WCHAR name[] = {letter, digit, 0};
    ++inserted;
    model.Insert(Insert(name, parent), parent);
  }

  ItemHandleList ViewSelection() const {
    ItemHandleList items;
    for (int place = 0; place < view->GetSelectedCount(); ++place) {
      items.push_back(view->GetSelectedItem(place));
    }
    return items;
  }

  std::string NamesOf(const ItemHandleList& items) const {
    std::string names;
    for (const ItemHandle item : items) names += client.Name(item) + " ";
    return names;
  }

  std::string State(const ItemHandleList& visible, const ItemHandleList& selected, ItemHandle caret,
                    const Lines& heard) const {
    return "visible: " + NamesOf(visible) + "selected: " + NamesOf(selected) +
           "caret: " + client.Name(caret) + " heard: " + Short(heard);
  }

  SelectionModel model{client.labels};
  int inserted = 0;
};

TEST_P(TreeModelTest, AgreesWithTheViewAfterEveryStep) {
  Dice dice(static_cast<unsigned>(GetParam()));
  std::ostringstream story;
  for (int count = 1; count <= STEPS; ++count) {
    const Step step = dice.NextStep();
    story << "\n  " << count << ". " << Describe(step);
    Do(step);
    const std::string modelState = ModelState();
    ASSERT_EQ(ViewState(), modelState) << "after" << story.str();
    story << "\n      " << modelState;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, TreeModelTest, ::testing::Range(1, SEEDS + 1));

}  // namespace
