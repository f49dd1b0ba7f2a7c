// What presses of the left button, keys and hit tests do to selection, caret and anchor of a tree,
// and what of them the control gets to see. tree_model_test has the rest, at random.
#include <functional>
#include <span>

#include "support/sent_messages.h"
#include "support/tree_gestures.h"

namespace {

constexpr WPARAM CTRL = MK_CONTROL;
constexpr WPARAM SHIFT = MK_SHIFT;
constexpr LRESULT ANSWER = ForwardWatch::ANSWER;

struct Gesture {
  const char* name;
  WPARAM modifiers;
  WPARAM target;       // the name of the item that is pressed, '-' beside them, or the key
  const char* before;  // caret, anchor and selection
  const char* heard;
  const char* after;
  LRESULT answer;
};

constexpr Gesture PRESSES[] = {
    {"Ctrl off", CTRL, '-', "P Q PR", "", "P Q PR", ANSWER},
    {"Ctrl adds", CTRL, 'S', "Q P Q", "B S S Q E", "S - QS", 0},
    {"Ctrl removes", CTRL, 'Q', "S - QS", "B Q Q S E", "Q - S", 0},
    {"Ctrl removes the caret", CTRL, 'Q', "Q Q Q", "B 0 Q Q E", "Q - ", 0},
    {"Shift upwards", SHIFT, 'P', "S Q QRS", "B P P Q R S E", "P Q PQ", 0},
    {"Shift from the caret", SHIFT, 'S', "Q - Q", "B S P Q R S E", "S Q QRS", 0},
    {"Shift on the caret", SHIFT, 'S', "S Q QRS", "B 0 S P Q R S E", "S Q QRS", 0},
    {"Shift from nothing", SHIFT, 'S', "- - P", "B S E", "S - PS", ANSWER},
    {"Shift off", SHIFT, '-', "P Q P", "B P 0 Q R S E", "- Q QRS", 0},
    {"plain", 0, 'S', "Q - QR", "B Q R 0 S E", "S - S", ANSWER},
    {"plain off", 0, '-', "Q P QR", "B Q R E", "Q - ", ANSWER},
};

constexpr Gesture SINGLE_PRESSES[] = {
    {"plain", 0, 'S', "Q P PQR", "S", "S P PRS", ANSWER},
    {"Shift", SHIFT, 'S', "Q P PQR", "S", "S P PRS", ANSWER},
    {"plain off", 0, '-', "Q P PQR", "", "Q P PQR", ANSWER},
};

constexpr Gesture KEYS[] = {
    {"Shift+Down starts afresh", SHIFT, VK_DOWN, "Q - PS", "B P S R Q E", "R Q QR", 0},
    {"Shift+Down grows on", SHIFT, VK_DOWN, "R Q QR", "B S R E", "S Q QRS", 0},
    {"Shift+Down shrinks", SHIFT, VK_DOWN, "P R PQR", "B Q E", "Q R QR", 0},
    {"Shift+Down from the last", SHIFT, VK_DOWN, "S - S", "B S E", "S S ", 0},
    {"Shift+Up grows", SHIFT, VK_UP, "R - R", "B R Q R E", "Q R QR", 0},
    {"Ctrl+Shift is Shift", CTRL | SHIFT, VK_DOWN, "R Q QR", "B S R E", "S Q QRS", 0},
    {"Down", 0, VK_DOWN, "Q P PQ", "B P Q E R", "R - R", ANSWER},
    {"Shift+End", SHIFT, VK_END, "Q P QR", "B Q R E S", "S - S", ANSWER},
    {"Space", 0, VK_SPACE, "R Q QR", "B Q R E", "R - ", ANSWER},
    {"below Space", 0, VK_SPACE - 1, "R Q QR", "", "R Q QR", ANSWER},
};

constexpr Gesture SINGLE_KEYS[] = {
    {"Shift+Down", SHIFT, VK_DOWN, "Q P PQ", "R", "R P PR", ANSWER},
    {"Space", 0, VK_SPACE, "Q P PQ", "", "Q P PQ", ANSWER},
};

class TreeSelectionTest : public TreeTest {
 protected:
  void SetUp() override {
    TreeTest::SetUp();
    Open(QVLS_HASBUTTONS | QVLS_LINESATROOT | QVLS_HASLINES | QVLS_CHECKBOXES);
  }

  ItemHandle HitTest(POINT point, bool select, std::uint32_t* hitFlags = nullptr) {
    const POINT asked = ToScreen(point);
    const ItemHandle item = view->HitTest(&asked, select, hitFlags);
    EXPECT_EQ(asked.x, ToScreen(point).x);
    EXPECT_EQ(asked.y, ToScreen(point).y);
    return item;
  }

  // Each of them with a client and without.
  void ExpectEffects(std::span<const Gesture> gestures, bool multiSelect, bool keys) {
    for (const Gesture& gesture : gestures) {
      for (const bool heard : {true, false}) {
        SCOPED_TRACE(gesture.name);
        Given(gesture.before);
        view->SetMultiSelect(multiSelect);
        if (!heard) view->SetClient(nullptr);
        const ForwardWatch watch;
        const LRESULT answer = keys ? Key(gesture.target, gesture.modifiers)
                                    : Press(static_cast<char>(gesture.target), gesture.modifiers);
        EXPECT_EQ(answer, gesture.answer);
        EXPECT_EQ(watch.Count(), keys && !gesture.answer ? 0 : 1);
        EXPECT_EQ(Heard(), heard ? gesture.heard : "");
        EXPECT_EQ(State(), gesture.after);
      }
    }
  }
};

TEST_F(TreeSelectionTest, PressesMoveCaretAndAnchorAndSelect) {
  ExpectEffects(PRESSES, true, false);
}

TEST_F(TreeSelectionTest, KeysMoveCaretAndAnchorAndSelect) { ExpectEffects(KEYS, true, true); }

TEST_F(TreeSelectionTest, WithMultipleSelectionOffTheControlDecides) {
  ExpectEffects(SINGLE_PRESSES, false, false);
  ExpectEffects(SINGLE_KEYS, false, true);
}

TEST_F(TreeSelectionTest, ThePressAloneTellsItsModifiers) {
  Given("Q - Q");
  HoldDown(MK_SHIFT);
  Press('S');
  HoldDown(0);
  EXPECT_EQ(Selected(), "S");
}

TEST_F(TreeSelectionTest, AnAnchorThatWasDeletedIsNotFoundAgain) {
  Given("Q P PQ");
  NMTREEVIEWW record = {};
  record.itemOld.hItem = Native(Item('P'));
  Notify(record.hdr, TVN_DELETEITEMW);  // P is now another item under the same handle
  Press('R', MK_SHIFT);
  EXPECT_EQ(Selected(), "RS") << "from the target to the last item";
}

TEST_F(TreeSelectionTest, APressOnTheButtonCountsForTheItem) {
  Insert(TEXT("c"), Item('Q'));
  Given("S P PS");
  PressAt(PartPoint(Item('Q'), TVHT_ONITEMBUTTON));
  EXPECT_EQ(Heard(), "B P S 0 Q E Expanded Q");
  EXPECT_EQ(State(), "Q - Q");
}

TEST_F(TreeSelectionTest, TheSelectionIsListedFromTheTopDown) {
  Given("- - PRS");
  EXPECT_EQ(view->GetSelectedCount(), 3);
  EXPECT_EQ(view->GetSelectedItem(1), Item('R'));
  EXPECT_EQ(view->GetSelectedItem(3), -1);
  EXPECT_EQ(view->GetSelectedItem(-1), -1);
  EXPECT_FALSE(view->IsItemSelected(Item('Q')));
}

TEST_F(TreeSelectionTest, WithoutItemsOrControlTheBracketRemains) {
  for (const bool destroyed : {false, true}) {
    view->DeleteAllItems();
    if (destroyed) view->Destroy();
    view->SetClient(&client);
    client.Take();
    EXPECT_EQ(view->GetSelectedItem(0), destroyed ? 0 : -1);
    view->SelectAll();
    view->InvertSelection();
    view->ClearSelection();
    EXPECT_EQ(Heard(), "B E B E B E");
  }
}

TEST_F(TreeSelectionTest, HitTestForgetsAnItemThatIsDeletedMeanwhile) {
  Given("P - PQ");
  client.onBeginSelectionChange = [this] { view->DeleteItem(Item('S')); };
  std::uint32_t hitFlags = 99;
  EXPECT_EQ(HitTest(LabelPoint(Item('S')), true, &hitFlags), -1);
  EXPECT_EQ(hitFlags, 0u);
  EXPECT_EQ(Heard(), "B P Q E");
  EXPECT_EQ(CaretItem(), Item('P'));
}

TEST_F(TreeSelectionTest, HitFlagsAreEmptyWhereNoItemLies) {
  Given("P - PQ");
  for (const POINT point :
       {OffPoint(), POINT{-5, 5}, POINT{WIDTH + 5, 5}, POINT{5, -5}, POINT{5, HEIGHT + 5}}) {
    std::uint32_t hitFlags = 99;
    EXPECT_EQ(HitTest(point, true, &hitFlags), -1);
    EXPECT_EQ(hitFlags, 0U);
  }
  EXPECT_EQ(Heard(), "");
  EXPECT_EQ(Selected(), "PQ");
}

// Selected items show whether the tree has the focus, and a right press has the real control paint
// one of them alone.
TEST_F(TreeSelectionTest, AllSelectedItemsArePaintedAnew) {
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
      const auto highlights = sent.Of(TVM_SELECTITEM);
      EXPECT_EQ(!highlights.empty(), multiSelect && &gesture == &gestures[2]);
    }
  }
}

// The bracket of a drag's start; which items are dragged is what the client is then asked about.
TEST_F(TreeSelectionTest, ADragTakesItsItemIntoTheSelection) {
  struct Drag {
    bool multiSelect;
    char item;
    const char* heard;
    const char* after;
  };
  const Drag cases[] = {
      {true, 'S', "B S E BeginDrag P R S", "P Q PRS"},
      {true, 'R', "BeginDrag P R", "P Q PR"},
      {false, 'S', "B S E BeginDrag R S", "S Q RS"},
      {false, 'P', "B E BeginDrag P R", "P Q PR"},
  };
  for (const Drag& drag : cases) {
    Given("P Q PR");
    view->SetMultiSelect(drag.multiSelect);
    NotifyOf(Item(drag.item), TVN_BEGINDRAGW);
    EXPECT_EQ(Heard(), drag.heard);
    EXPECT_EQ(State(), drag.after);
  }
}

}  // namespace
