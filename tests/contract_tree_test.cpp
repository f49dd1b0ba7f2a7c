// What the library relies on in the tree control and what its own tests cannot tell from a control
// that does otherwise, on the control alone.
#include <functional>
#include <string>

#include "support/contract_host.h"
#include "support/tree_gestures.h"

namespace {

constexpr DWORD PLAIN = TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT;
constexpr int ROW = 16;
constexpr int ON_BUTTON = 5;
constexpr int ON_BOX = 25;
constexpr int ON_LABEL = 24;
constexpr int BESIDE = 200;

// A point in the middle of a row, which count from 0.
constexpr POINT At(int x, int row) { return {x, row * ROW + ROW / 2}; }

// The tree a(b, c(d)), e, f, all collapsed.
class TreeContract : public ContractTest<TreeTest> {
 protected:
  void MakeTree(DWORD style = PLAIN) {
    MakeControl(WC_TREEVIEWW, style);
    ShowControl();
    client.labels = {{0, "-"}};
    Insert('a');
    Insert('b', Item('a'));
    Insert('c', Item('a'));
    Insert('d', Item('c'));
    Insert('e');
    Insert('f');
    PumpMessages();
    Told();
  }

  // The same with the focus and the caret.
  void MakeTreeAt(char caret, DWORD style = PLAIN) {
    MakeTree(style);
    SetFocus(control);
    MoveCaret(Item(caret));
    Told();
  }

  ItemHandle Insert(char name, ItemHandle parent = 0) {
    WCHAR text[] = {static_cast<WCHAR>(name), 0};
    TVINSERTSTRUCTW insert = {};
    insert.hParent = Native(parent);
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT | TVIF_PARAM;
    insert.item.pszText = text;
    insert.item.lParam = text[0];
    const ItemHandle item = AskRecord(TVM_INSERTITEMW, 0, &insert);
    client.labels[item] = name;
    return item;
  }

  void Collapse(char name) { Ask(TVM_EXPAND, TVE_COLLAPSE, Item(name)); }
  void Delete(char name) { Ask(TVM_DELETEITEM, 0, Item(name)); }
};

TEST_F(TreeContract, WhatIsDoneIsToldAndMovesTheCaret) {
  const struct {
    const char* what;
    const char* caret;  // before and after
    std::function<void()> act;
    const char* told;
    DWORD style = PLAIN;
  } cases[] = {
      {"selection of a hidden item", "ad", [this] { MoveCaret(Item('d')); }, "+c,+a,caret d"},
      {"selection of nothing", "a-", [this] { MoveCaret(0); }, "clear"},
      {"collapse over the caret", "da", [this] { Collapse('a'); }, ""},
      {"deletion of an only child", "dc", [this] { Delete('d'); }, "deleted d,caret c"},
      {"deletion of a first item", "bc", [this] { Delete('b'); }, "deleted b,caret c"},
      {"deletion of a last item", "fe", [this] { Delete('f'); }, "deleted f,caret e"},
      {"deletion above the caret", "de", [this] { Delete('a'); },
       "deleted b,deleted d,deleted c,deleted a,caret e"},
      {"deletion of all", "e-",
       [this] { Ask(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT)); },
       "deleted b,deleted d,deleted c,deleted a,deleted e,deleted f"},
      {"press", "fe", [this] { Press(At(ON_LABEL, 1)); }, "caret e"},
      {"press on a button", "ff", [this] { Press(At(ON_BUTTON, 0)); }, "+a"},
      {"press that closes over the caret", "da", [this] { Press(At(ON_BUTTON, 0)); }, "-a"},
      {"press where a button could be", "ff", [this] { Press(At(ON_BUTTON, 1)); }, ""},
      {"press beside a label", "ff", [this] { Press(At(BESIDE, 1)); }, ""},
      {"press below the items", "ff", [this] { Press(At(ON_LABEL, 10)); }, ""},
      {"press on a whole row", "fe", [this] { Press(At(BESIDE, 1)); }, "caret e",
       TVS_FULLROWSELECT},
      {"three pixels", "fe", [this] { Drag(At(ON_LABEL, 1), 3, 3); }, "caret e"},
      {"four pixels", "ff", [this] { Drag(At(ON_LABEL, 1), 4, 0); }, "drag e"},
      {"drag upwards", "ff", [this] { Drag(At(ON_LABEL, 1), 0, -5); }, "drag e"},
      {"drag beside a label", "ff", [this] { Drag(At(BESIDE, 1), 40, 40); }, ""},
      {"drag where there is none", "fe", [this] { Drag(At(ON_LABEL, 1), 40, 40); }, "caret e",
       PLAIN | TVS_DISABLEDRAGDROP},
      {"right press", "ff", [this] { RightPress(At(ON_LABEL, 1)); }, "menu"},
      {"focus", "bb", [this] { SetFocus(host), SetFocus(control); }, ""},
      {"hiding", "ee", [this] { ShowWindow(control, SW_HIDE); }, ""},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.what);
    MakeTreeAt(test.caret[0], test.style);
    test.act();
    EXPECT_EQ(Told(), test.told);
    EXPECT_EQ(CaretItem(), Item(test.caret[1]));
  }
  EXPECT_EQ(GetFocus(), host) << "a hidden control hands on the focus";
}

TEST_F(TreeContract, TheFirstFocusPutsTheCaretOnTheFirstItem) {
  MakeTree();
  Press(At(BESIDE, 1));
  EXPECT_EQ(GetFocus(), control);
  EXPECT_EQ(Told(), "caret a");
}

TEST_F(TreeContract, ItemsAreToldOfWhileTheWindowsGo) {
  MakeTree();
  DestroyWindow(host);
  EXPECT_EQ(Told(), "destroy,deleted b,deleted d,deleted c,deleted a,deleted e,deleted f,gone");
}

TEST_F(TreeContract, KeysMoveTheCaretAndOpenBranches) {
  const struct {
    WPARAM key;
    const char* told;
  } steps[] = {
      {VK_DOWN, "caret e"},  {VK_UP, "caret a"},     {VK_UP, ""},          {VK_RIGHT, "+a"},
      {VK_RIGHT, "caret b"}, {VK_RIGHT, ""},         {VK_LEFT, "caret a"}, {VK_LEFT, "-a"},
      {VK_LEFT, ""},         {VK_END, "caret f"},    {VK_HOME, "caret a"}, {VK_NEXT, "caret f"},
      {VK_PRIOR, "caret a"}, {VK_MULTIPLY, "+a,+c"}, {VK_SUBTRACT, "-a"},  {VK_ADD, "+a"},
      {VK_SPACE, ""},        {VK_DELETE, ""},        {VK_TAB, ""},
  };
  MakeTreeAt('a');
  for (const auto& step : steps) {
    Key(step.key);
    EXPECT_EQ(Told(), step.told) << "key " << step.key;
  }
  MoveCaret(0);
  Told();
  Key(VK_DOWN);
  EXPECT_EQ(Told(), "");
}

TEST_F(TreeContract, PartsOfARowAnswerWithTheirFlags) {
  MakeTree(PLAIN | TVS_CHECKBOXES);
  MoveCaret(Item('b'));
  const HIMAGELIST images = ImageList_Create(24, 24, ILC_COLOR16, 0, 1);
  AskRecord(TVM_SETIMAGELIST, TVSIL_NORMAL, images);
  SetBox(Item('c'), 0);
  const struct {
    int x, y;
    char item;
    UINT flags;
  } cases[] = {
      {0, 12, 'a', TVHT_ONITEMBUTTON},     {23, 12, 'a', TVHT_ONITEMBUTTON},
      {26, 12, 'a', TVHT_ONITEMSTATEICON}, {50, 12, 'a', TVHT_ONITEMICON},
      {63, 12, 'a', TVHT_ONITEMLABEL},     {200, 23, 'a', TVHT_ONITEMRIGHT},
      {23, 36, 'b', TVHT_ONITEMINDENT},    {24, 36, 'b', TVHT_ONITEMBUTTON},
      {50, 36, 'b', TVHT_ONITEMSTATEICON}, {50, 60, 'c', TVHT_ONITEMICON},
      {296, 36, 'b', TVHT_ONITEMRIGHT},    {297, 36, '-', TVHT_TORIGHT},
      {-1, 36, '-', TVHT_TOLEFT},          {30, -1, '-', TVHT_ABOVE},
      {30, 397, '-', TVHT_BELOW},          {-1, -1, '-', TVHT_ABOVE | TVHT_TOLEFT},
      {30, 200, '-', TVHT_NOWHERE},
  };
  for (const auto& point : cases) {
    const TVHITTESTINFO hit = HitAt({point.x, point.y});
    EXPECT_EQ(hit.hItem, Native(Item(point.item))) << point.x << "," << point.y;
    EXPECT_EQ(hit.flags, point.flags) << point.x << "," << point.y;
  }
  Ask(TVM_SETIMAGELIST, TVSIL_NORMAL, 0);
  ImageList_Destroy(images);
}

TEST_F(TreeContract, TheFirstPaintEmptiesBoxesUnlessTheStyleCameLater) {
  for (const bool later : {false, true}) {
    MakeControl(WC_TREEVIEWW, TVS_CHECKBOXES);
    if (later) {
      const LONG_PTR style = GetWindowLongPtrW(control, GWL_STYLE);
      SetWindowLongPtrW(control, GWL_STYLE, style & ~TVS_CHECKBOXES);
      SetWindowLongPtrW(control, GWL_STYLE, style);
    }
    const ItemHandle ticked = Insert('t');
    SetBox(ticked, 2);
    EXPECT_EQ(Ask(TVM_GETIMAGELIST, TVSIL_STATE) != 0, later);
    ShowControl();
    EXPECT_NE(Ask(TVM_GETIMAGELIST, TVSIL_STATE), 0);
    EXPECT_EQ(BoxOf(ticked), later ? 2U : 1U);
    EXPECT_EQ(BoxOf(Insert('n')), 1U) << "a new item's box is empty";
  }
}

TEST_F(TreeContract, BoxesAreTickedByPressAndSpace) {
  MakeTreeAt('f', PLAIN | TVS_CHECKBOXES);
  SetBox(Item('a'), 3);
  for (const UINT box : {2U, 1U}) {
    Press(At(ON_BOX, 1));
    EXPECT_EQ(BoxOf(Item('e')), box);
    Key(VK_SPACE);
    EXPECT_EQ(BoxOf(Item('f')), box);
    Press(At(ON_BOX, 0));
    EXPECT_EQ(BoxOf(Item('a')), 3U) << "an image of the host's stays";
  }
  EXPECT_EQ(Told(), "");
  EXPECT_EQ(CaretItem(), Item('f'));
}

}  // namespace
