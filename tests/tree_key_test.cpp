// What a key does to selection, caret and anchor of a tree.
#include "support/tree_gestures.h"

namespace {

struct KeyCase {
  const char* name;
  WPARAM key;
  bool shift;

  char caret;
  char anchor;
  const char* selected;

  const char* heard;
  const char* selectedAfter;
  const char* caretAfter;
  const char* anchorAfter;
};

// Shift with Up or Down is all that the control never sees.
bool IsSwallowed(const KeyCase& row) {
  return row.shift && (row.key == VK_UP || row.key == VK_DOWN);
}

constexpr KeyCase CASES[] = {
    {"ShiftDownGrows", VK_DOWN, true, 'Q', '-', "Q", "B Q R Q E", "QR", "R", "Q"},
    {"ShiftDownStartsAfresh", VK_DOWN, true, 'Q', '-', "PS", "B P S R Q E", "QR", "R", "Q"},
    {"ShiftDownGrowsOn", VK_DOWN, true, 'R', 'Q', "QR", "B S R E", "QRS", "S", "Q"},
    {"ShiftUpGrows", VK_UP, true, 'R', '-', "R", "B R Q R E", "QR", "Q", "R"},
    {"ShiftUpShrinks", VK_UP, true, 'R', 'Q', "QR", "B Q E", "Q", "Q", "Q"},
    {"ShiftDownShrinks", VK_DOWN, true, 'P', 'R', "PQR", "B Q E", "QR", "Q", "R"},
    {"ShiftDownFromTheLast", VK_DOWN, true, 'S', '-', "S", "B S E", "", "S", "S"},
    {"ShiftDownOnTheLast", VK_DOWN, true, 'S', 'Q', "QRS", "B E", "QRS", "S", "Q"},
    {"ShiftUpOnTheFirst", VK_UP, true, 'P', 'R', "PQR", "B E", "PQR", "P", "R"},
    {"ShiftDownWithoutCaret", VK_DOWN, true, '-', '-', "PR", "B P R E", "", "-", "-"},
    {"ShiftUpWithoutCaret", VK_UP, true, '-', 'Q', "PR", "B E", "PR", "-", "Q"},
    {"Down", VK_DOWN, false, 'Q', 'P', "PQ", "B P Q E R", "R", "R", "-"},
    {"Up", VK_UP, false, 'Q', 'S', "QS", "B Q S E P", "P", "P", "-"},
    {"DownOnTheLast", VK_DOWN, false, 'S', 'R', "RS", "B R S E", "", "S", "-"},
    {"Home", VK_HOME, false, 'R', 'Q', "QR", "B Q R E P", "P", "P", "-"},
    {"ShiftEnd", VK_END, true, 'Q', 'P', "QR", "B Q R E S", "S", "S", "-"},
    {"Space", VK_SPACE, false, 'R', 'Q', "QR", "B Q R E", "", "R", "-"},
    {"Left", VK_LEFT, false, 'R', 'Q', "QR", "B Q R E", "", "R", "-"},
    {"ShiftRight", VK_RIGHT, true, 'R', 'Q', "QR", "B Q R E", "", "R", "-"},
    {"Letter", 'A', false, 'R', 'Q', "QR", "B Q R E", "", "R", "-"},
    {"Delete", VK_DELETE, false, 'R', 'Q', "QR", "B Q R E", "", "R", "-"},
    {"F2WithNothing", VK_F2, false, '-', 'Q', "", "B E", "", "-", "-"},
    {"Back", VK_BACK, false, 'R', 'Q', "QR", "", "QR", "R", "Q"},
    {"Tab", VK_TAB, true, 'R', 'Q', "QR", "", "QR", "R", "Q"},
    {"Return", VK_RETURN, false, 'R', 'Q', "QR", "", "QR", "R", "Q"},
    {"Shift", VK_SHIFT, true, 'R', 'Q', "QR", "", "QR", "R", "Q"},
    {"Control", VK_CONTROL, false, 'R', 'Q', "QR", "", "QR", "R", "Q"},
    {"Escape", VK_ESCAPE, false, 'R', 'Q', "QR", "", "QR", "R", "Q"},
    {"BelowSpace", VK_SPACE - 1, false, 'R', 'Q', "QR", "", "QR", "R", "Q"},
};

class TreeKeyTest : public TreeTest {
 protected:
  void SetUp() override {
    TreeTest::SetUp();
    Open();
  }
};

class EachKey : public TreeKeyTest, public ::testing::WithParamInterface<KeyCase> {};

TEST_P(EachKey, ChangesSelectionCaretAndAnchor) {
  const KeyCase& row = GetParam();
  for (const bool heard : {true, false}) {
    Given(row.selected, row.caret, row.anchor);
    if (!heard) view->SetClient(nullptr);
    const ForwardWatch watch;
    const LRESULT result = Key(row.key, row.shift);
    EXPECT_EQ(result, IsSwallowed(row) ? 0 : ForwardWatch::ANSWER);
    EXPECT_EQ(watch.Count(), IsSwallowed(row) ? 0 : 1);
    EXPECT_EQ(Heard(), heard ? row.heard : "");
    EXPECT_EQ(Selected(), row.selectedAfter);
    EXPECT_EQ(Caret(), row.caretAfter);
    EXPECT_EQ(ObserveAnchor(), row.anchorAfter);
  }
}

INSTANTIATE_TEST_SUITE_P(Table, EachKey, ::testing::ValuesIn(CASES),
                         [](const auto& info) { return info.param.name; });

TEST_F(TreeKeyTest, ShiftWithControlExtendsToo) {
  Given("Q", 'Q', '-');
  Key(VK_DOWN, true, true);
  EXPECT_EQ(Selected(), "QR");
}

struct Sequence {
  char from;
  std::string keys;  // 'd' and 'u' with Shift held
  std::vector<std::string> selected;
};

TEST_F(TreeKeyTest, AGestureGrowsShrinksAndCrossesItsAnchor) {
  const Sequence sequences[] = {
      {'Q', "ddu", {"QR", "QRS", "QR"}},
      {'R', "duuu", {"RS", "R", "QR", "PQR"}},
      {'Q', "udddu", {"PQ", "Q", "QR", "QRS", "QR"}},
  };
  for (const Sequence& sequence : sequences) {
    Given(std::string(1, sequence.from), sequence.from, '-');
    for (std::size_t step = 0; step < sequence.keys.size(); ++step) {
      Key(sequence.keys[step] == 'd' ? VK_DOWN : VK_UP, true);
      EXPECT_EQ(Selected(), sequence.selected[step]) << sequence.keys << " step " << step;
    }
    EXPECT_EQ(ObserveAnchor(), std::string(1, sequence.from));
  }
}

TEST_F(TreeKeyTest, WithMultipleSelectionOffTheControlDecides) {
  Given("PQ", 'Q', 'P');
  view->SetMultiSelect(false);
  const ForwardWatch watch;
  EXPECT_EQ(Key(VK_DOWN, true), ForwardWatch::ANSWER);
  EXPECT_EQ(Heard(), "R");
  EXPECT_EQ(Selected(), "PR");
  EXPECT_EQ(Key(VK_SPACE), ForwardWatch::ANSWER);
  EXPECT_EQ(Heard(), "");
  EXPECT_EQ(watch.Count(), 2);
  EXPECT_EQ(ObserveAnchor(), "P");
}

TEST_F(TreeKeyTest, ShiftPressesAndKeysShareTheAnchor) {
  Given("Q", 'Q', '-');
  Key(VK_DOWN, true);
  Press('P', MK_SHIFT);
  EXPECT_EQ(Selected(), "PQ");
  Key(VK_DOWN, true);
  EXPECT_EQ(Selected(), "Q");
  Key(VK_DOWN, true);
  EXPECT_EQ(Selected(), "QR");
}

}  // namespace
