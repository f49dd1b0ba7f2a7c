// What a press of the left button does to selection, caret and anchor of a tree.
#include "support/tree_gestures.h"

namespace {

struct PressCase {
  const char* name;
  WPARAM keys;
  char hit;
  bool controlAnswers;

  char caret;
  char anchor;
  const char* selected;

  const char* heard;
  const char* selectedAfter;
  const char* caretAfter;
  const char* anchorAfter;
};

constexpr WPARAM BOTH = MK_CONTROL | MK_SHIFT;

constexpr PressCase CASES[] = {
    {"CtrlOff", MK_CONTROL, '-', true, 'P', 'Q', "PR", "", "PR", "P", "Q"},
    {"CtrlAdds", MK_CONTROL, 'S', false, 'Q', 'P', "Q", "B S S Q E", "QS", "S", "-"},
    {"CtrlRemoves", MK_CONTROL, 'Q', false, 'S', '-', "QS", "B Q Q S E", "S", "Q", "-"},
    {"CtrlRemovesTheCaret", MK_CONTROL, 'Q', false, 'Q', 'Q', "Q", "B 0 Q Q E", "", "Q", "-"},
    {"CtrlAddsTheCaret", MK_CONTROL, 'Q', false, 'Q', '-', "S", "B 0 Q Q E", "QS", "Q", "-"},
    {"CtrlWithoutCaret", MK_CONTROL, 'Q', false, '-', 'P', "S", "B Q Q E", "QS", "Q", "-"},
    {"CtrlLeavesTheCaretClear", MK_CONTROL, 'R', false, 'P', '-', "", "B R R P E", "R", "R", "-"},
    {"CtrlShiftIsCtrl", BOTH, 'S', false, 'Q', 'P', "Q", "B S S Q E", "QS", "S", "-"},
    {"CtrlShiftOff", BOTH, '-', true, 'P', 'Q', "PR", "", "PR", "P", "Q"},
    {"ShiftUpwards", MK_SHIFT, 'P', false, 'S', 'Q', "QRS", "B P P Q R S E", "PQ", "P", "Q"},
    {"ShiftDownwards", MK_SHIFT, 'S', false, 'P', 'R', "QR", "B S P Q R S E", "RS", "S", "R"},
    {"ShiftFromCaret", MK_SHIFT, 'S', false, 'Q', '-', "Q", "B S P Q R S E", "QRS", "S", "Q"},
    {"ShiftFromClearCaret", MK_SHIFT, 'R', false, 'Q', '-', "", "B R P Q R S E", "QR", "R", "Q"},
    {"ShiftOnTheAnchor", MK_SHIFT, 'Q', false, 'S', 'Q', "QRS", "B Q P Q R S E", "Q", "Q", "Q"},
    {"ShiftOnTheCaret", MK_SHIFT, 'S', false, 'S', 'Q', "QRS", "B 0 S P Q R S E", "QRS", "S", "Q"},
    {"ShiftCaretIsAnchor", MK_SHIFT, 'Q', false, 'Q', '-', "PQ", "B 0 Q P Q R S E", "Q", "Q", "Q"},
    {"ShiftFromNothing", MK_SHIFT, 'S', true, '-', '-', "P", "B S E", "PS", "S", "-"},
    {"ShiftOff", MK_SHIFT, '-', false, 'P', 'Q', "P", "B P 0 Q R S E", "QRS", "-", "Q"},
    {"ShiftOffFromCaret", MK_SHIFT, '-', false, 'R', '-', "P", "B P Q 0 R S E", "RS", "-", "R"},
    {"ShiftOffFromNothing", MK_SHIFT, '-', true, '-', '-', "PR", "B E", "PR", "-", "-"},
    {"Plain", 0, 'S', true, 'Q', '-', "QR", "B Q R 0 S E", "S", "S", "-"},
    {"PlainOnTheCaret", 0, 'Q', true, 'Q', 'S', "QR", "B Q R 0 Q E", "Q", "Q", "-"},
    {"PlainWithoutCaret", 0, 'S', true, '-', 'R', "P", "B P S E", "S", "S", "-"},
    {"PlainOff", 0, '-', true, 'Q', 'P', "QR", "B Q R E", "", "Q", "-"},
    {"PlainOffWithoutAnything", 0, '-', true, '-', '-', "", "B E", "", "-", "-"},
};

class TreePressTest : public TreeTest {
 protected:
  void SetUp() override {
    TreeTest::SetUp();
    Open();
  }

  // Shows an item of that name below `parent`.
  ItemHandle InsertShown(const WCHAR* name, char parent) {
    const ItemHandle item = Insert(name, Item(parent));
    view->ExpandItem(Item(parent), true);
    client.Take();
    return item;
  }
};

class EachPress : public TreePressTest, public ::testing::WithParamInterface<PressCase> {
 protected:
  void ExpectAfter(LRESULT result, const ForwardWatch& watch) {
    const PressCase& wanted = GetParam();
    EXPECT_EQ(result, wanted.controlAnswers ? ForwardWatch::ANSWER : 0);
    EXPECT_EQ(watch.Count(), 1);
    EXPECT_EQ(Selected(), wanted.selectedAfter);
    EXPECT_EQ(Caret(), wanted.caretAfter);
    EXPECT_EQ(ObserveAnchor(), wanted.anchorAfter);
  }
};

TEST_P(EachPress, ChangesSelectionCaretAndAnchor) {
  const PressCase& press = GetParam();
  Given(press.selected, press.caret, press.anchor);
  const ForwardWatch watch;
  const LRESULT result = Press(press.hit, press.keys);
  EXPECT_EQ(Heard(), press.heard);
  ExpectAfter(result, watch);
}

TEST_P(EachPress, DoesTheSameWithoutClient) {
  const PressCase& press = GetParam();
  Given(press.selected, press.caret, press.anchor);
  view->SetClient(nullptr);
  const ForwardWatch watch;
  const LRESULT result = Press(press.hit, press.keys);
  EXPECT_EQ(Heard(), "");
  ExpectAfter(result, watch);
}

INSTANTIATE_TEST_SUITE_P(Table, EachPress, ::testing::ValuesIn(CASES),
                         [](const auto& info) { return info.param.name; });

TEST_F(TreePressTest, WithMultipleSelectionOffTheControlDecides) {
  Given("PQR", 'Q', 'P');
  view->SetMultiSelect(false);
  EXPECT_EQ(Selected(), "PQR");
  const ForwardWatch watch;
  for (const WPARAM keys : {WPARAM{0}, WPARAM{MK_SHIFT}, WPARAM{MK_CONTROL}}) {
    MoveCaret(Item('Q'));
    client.Take();
    EXPECT_EQ(Press('S', keys), ForwardWatch::ANSWER);
    EXPECT_EQ(Heard(), "S") << "keys " << keys;
    EXPECT_EQ(Selected(), "PRS");
  }
  EXPECT_EQ(Press('-'), ForwardWatch::ANSWER);
  EXPECT_EQ(Heard(), "");
  EXPECT_EQ(watch.Count(), 4);
  EXPECT_EQ(ObserveAnchor(), "P");
}

TEST_F(TreePressTest, TheMessageAloneTellsTheModifiers) {
  Given("Q", 'Q', '-');
  BYTE keys[256] = {};
  keys[VK_SHIFT] = 0x80;
  SetKeyboardState(keys);
  Press('S');
  keys[VK_SHIFT] = 0;
  SetKeyboardState(keys);
  EXPECT_EQ(Selected(), "S");
}

TEST_F(TreePressTest, ShiftPressesInARowMeasureFromTheSameItem) {
  Given("R", 'R', '-');
  const char* const stretches[] = {"PQR", "RS", "R", "QR"};
  const char targets[] = {'P', 'S', 'R', 'Q'};
  for (int step = 0; step < 4; ++step) {
    Press(targets[step], MK_SHIFT);
    EXPECT_EQ(Selected(), stretches[step]);
  }
}

TEST_F(TreePressTest, APressOnTheButtonCountsForTheItem) {
  view->Destroy();
  client.labels.clear();
  Open(QVLS_HASBUTTONS | QVLS_LINESATROOT | QVLS_HASLINES);
  InsertShown(TEXT("c"), 'Q');
  Given("PS", 'S', 'P');
  const POINT button = PartPoint(Item('Q'), TVHT_ONITEMBUTTON);
  PressAt(button);
  EXPECT_EQ(Heard(), "B P S 0 Q E Expanded Q");
  EXPECT_FALSE(view->IsItemExpanded(Item('Q')));
  EXPECT_EQ(Selected(), "Q");
  PressAt(button, MK_CONTROL);
  EXPECT_TRUE(view->IsItemExpanded(Item('Q')));
}

// The walk then meets the target alone, or nothing at all.
TEST_F(TreePressTest, AnAnchorThatIsGoneDoesNoHarm) {
  InsertShown(TEXT("c"), 'Q');
  for (const bool hidden : {true, false}) {
    Given("P", 'P', 'c');
    if (hidden) {
      view->ExpandItem(Item('Q'), false);
    } else {
      view->ExpandItem(Item('Q'), true);
      view->DeleteItem(Item('c'));
    }
    client.Take();
    Press('R', MK_SHIFT);
    EXPECT_EQ(Heard(), "B R P Q R S E");
    EXPECT_EQ(Selected(), "RS");
    PressOff(MK_SHIFT);
    EXPECT_EQ(Heard(), "B P Q R S E");
    EXPECT_EQ(Selected(), "");
    EXPECT_EQ(Caret(), "R");
    view->ExpandItem(Item('Q'), true);
    client.Take();
  }
}

TEST_F(TreePressTest, AHiddenAnchorComesBackWithItsBranch) {
  InsertShown(TEXT("c"), 'Q');
  Given("P", 'P', 'c');
  view->ExpandItem(Item('Q'), false);
  Press('R', MK_SHIFT);
  view->ExpandItem(Item('Q'), true);
  Press('S', MK_SHIFT);
  EXPECT_EQ(Selected(), "cRS");
}

}  // namespace
