// What the library relies on in the tree control and what its own tests cannot tell from a control
// that does otherwise, on the control alone.
#include "support/contract_host.h"

#include <functional>

namespace {

constexpr DWORD PLAIN = TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT;
constexpr int ROW = 16;
constexpr int ON_BUTTON = 5;
constexpr int ON_BOX = 25;
constexpr int ON_LABEL = 24;
constexpr int BESIDE = 200;

constexpr int Middle(int row) { return row * ROW + ROW / 2; }

// The tree a(b, c(d)), e, f, all collapsed. Rows count from 0.
class TreeContract : public ContractTest {
 protected:
  void MakeTree(DWORD style = PLAIN) {
    MakeControl(WC_TREEVIEWW, style);
    ShowWindow(control, SW_SHOW);
    UpdateWindow(control);
    a = Insert('a');
    b = Insert('b', a);
    c = Insert('c', a);
    d = Insert('d', c);
    e = Insert('e');
    f = Insert('f');
    PumpMessages();
    Heard();
  }

  // The same with the focus and the caret.
  void MakeTreeAt(HTREEITEM* caret, DWORD style = PLAIN) {
    MakeTree(style);
    SetFocus(control);
    Select(*caret);
    Heard();
  }

  HTREEITEM Insert(char name, HTREEITEM parent = nullptr, UINT box = 0) {
    WCHAR text[] = {static_cast<WCHAR>(name), 0};
    TVINSERTSTRUCTW insert = {};
    insert.hParent = parent;
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT | TVIF_PARAM | (box ? TVIF_STATE : 0U);
    insert.item.pszText = text;
    insert.item.lParam = name;
    insert.item.state = box << 12;
    insert.item.stateMask = TVIS_STATEIMAGEMASK;
    return reinterpret_cast<HTREEITEM>(SendRecord(TVM_INSERTITEMW, 0, &insert));
  }

  LRESULT SendItem(UINT message, WPARAM wParam, HTREEITEM item) {
    return Send(message, wParam, reinterpret_cast<LPARAM>(item));
  }
  void Select(HTREEITEM item) { SendItem(TVM_SELECTITEM, TVGN_CARET, item); }
  void Expand(HTREEITEM item) { SendItem(TVM_EXPAND, TVE_EXPAND, item); }
  void Collapse(HTREEITEM item) { SendItem(TVM_EXPAND, TVE_COLLAPSE, item); }
  void Delete(HTREEITEM item) { SendItem(TVM_DELETEITEM, 0, item); }

  char Name(HTREEITEM item) {
    TVITEMW values = {};
    values.mask = TVIF_PARAM;
    values.hItem = item;
    SendRecord(TVM_GETITEMW, 0, &values);
    return item ? static_cast<char>(values.lParam) : '-';
  }
  char Caret() { return Name(reinterpret_cast<HTREEITEM>(Send(TVM_GETNEXTITEM, TVGN_CARET))); }

  UINT Box(HTREEITEM item) {
    const auto wanted = reinterpret_cast<WPARAM>(item);
    return static_cast<UINT>(Send(TVM_GETITEMSTATE, wanted, TVIS_STATEIMAGEMASK)) >> 12;
  }
  void SetBox(HTREEITEM item, UINT box) {
    TVITEMW values = {};
    values.mask = TVIF_STATE;
    values.hItem = item;
    values.state = box << 12;
    values.stateMask = TVIS_STATEIMAGEMASK;
    SendRecord(TVM_SETITEMW, 0, &values);
  }

  TVHITTESTINFO Hit(int x, int y) {
    TVHITTESTINFO info = {};
    info.pt = {x, y};
    SendRecord(TVM_HITTEST, 0, &info);
    return info;
  }

  HTREEITEM a = nullptr, b = nullptr, c = nullptr, d = nullptr, e = nullptr, f = nullptr;
};

TEST_F(TreeContract, TheCaretMovesAlongWithItsWords) {
  struct Case {
    const char* what;
    HTREEITEM* caret;
    std::function<void()> act;
    const char* heard;
    char caretAfter;
  };
  const Case cases[] = {
      {"to a hidden item", &a, [this] { Select(d); }, "+c,+a,caret d", 'd'},
      {"nowhere", &a, [this] { Select(nullptr); }, "clear", '-'},
      {"into a branch that closes", &d, [this] { Collapse(a); }, "", 'a'},
      {"up from the only child", &d, [this] { Delete(d); }, "deleted d,caret c", 'c'},
      {"on from the first", &b, [this] { Delete(b); }, "deleted b,caret c", 'c'},
      {"back from the last", &f, [this] { Delete(f); }, "deleted f,caret e", 'e'},
      {"on from the branch that holds it", &d, [this] { Delete(a); },
       "deleted b,deleted d,deleted c,deleted a,caret e", 'e'},
      {"nowhere with the last items", &e, [this] { Delete(TVI_ROOT); },
       "deleted b,deleted d,deleted c,deleted a,deleted e,deleted f", '-'},
      {"nowhere when the control hides", &e, [this] { ShowWindow(control, SW_HIDE); }, "", 'e'},
  };
  for (const Case& move : cases) {
    SCOPED_TRACE(move.what);
    MakeTreeAt(move.caret);
    move.act();
    EXPECT_EQ(Heard(), move.heard);
    EXPECT_EQ(Caret(), move.caretAfter);
  }
  EXPECT_EQ(GetFocus(), host) << "a hidden control hands on the focus";
}

TEST_F(TreeContract, TheFirstFocusPutsTheCaretOnTheFirstItem) {
  MakeTree();
  Press(BESIDE, Middle(1));
  EXPECT_EQ(GetFocus(), control);
  EXPECT_EQ(Heard(), "caret a");
}

TEST_F(TreeContract, ItemsAreToldOfWhileTheWindowsGo) {
  MakeTree();
  DestroyWindow(host);
  EXPECT_EQ(Heard(), "destroy,deleted b,deleted d,deleted c,deleted a,deleted e,deleted f,gone");
}

TEST_F(TreeContract, KeysMoveTheCaretAndOpenBranches) {
  const struct {
    WPARAM key;
    const char* heard;
  } steps[] = {
      {VK_DOWN, "caret e"},  {VK_UP, "caret a"},     {VK_UP, ""},          {VK_RIGHT, "+a"},
      {VK_RIGHT, "caret b"}, {VK_RIGHT, ""},         {VK_LEFT, "caret a"}, {VK_LEFT, "-a"},
      {VK_LEFT, ""},         {VK_END, "caret f"},    {VK_HOME, "caret a"}, {VK_NEXT, "caret f"},
      {VK_PRIOR, "caret a"}, {VK_MULTIPLY, "+a,+c"}, {VK_SUBTRACT, "-a"},  {VK_ADD, "+a"},
      {VK_SPACE, ""},        {VK_DELETE, ""},        {VK_TAB, ""},
  };
  MakeTreeAt(&a);
  for (const auto& step : steps) {
    Key(step.key);
    EXPECT_EQ(Heard(), step.heard) << "key " << step.key;
  }
  Select(nullptr);
  Heard();
  Key(VK_DOWN);
  EXPECT_EQ(Heard(), "");
}

TEST_F(TreeContract, TheMouseSelectsOpensAndDrags) {
  const struct {
    const char* what;
    DWORD style;
    int x, row, dx, dy;
    const char* heard;
  } cases[] = {
      {"press on a label", PLAIN, ON_LABEL, 1, 0, 0, "caret e"},
      {"press on a button", PLAIN, ON_BUTTON, 0, 0, 0, "+a"},
      {"press where a button could be", PLAIN, ON_BUTTON, 1, 0, 0, ""},
      {"press beside the label", PLAIN, BESIDE, 1, 0, 0, ""},
      {"press below the items", PLAIN, ON_LABEL, 10, 0, 0, ""},
      {"press on a whole row", TVS_FULLROWSELECT, BESIDE, 1, 0, 0, "caret e"},
      {"three pixels", PLAIN, ON_LABEL, 1, 3, 3, "caret e"},
      {"four pixels", PLAIN, ON_LABEL, 1, 4, 0, "drag e"},
      {"upwards", PLAIN, ON_LABEL, 1, 0, -5, "drag e"},
      {"from beside the label", PLAIN, BESIDE, 1, 40, 40, ""},
      {"without dragging", PLAIN | TVS_DISABLEDRAGDROP, ON_LABEL, 1, 40, 40, "caret e"},
  };
  for (const auto& mouse : cases) {
    SCOPED_TRACE(mouse.what);
    MakeTreeAt(&f, mouse.style);
    Drag(mouse.x, Middle(mouse.row), mouse.dx, mouse.dy);
    EXPECT_EQ(Heard(), mouse.heard);
  }
  MakeTreeAt(&f);
  RightPress(ON_LABEL, Middle(1));
  EXPECT_EQ(Heard(), "menu");
  EXPECT_EQ(Caret(), 'f');
}

TEST_F(TreeContract, TheButtonTakesTheCaretOutOfItsBranchSilently) {
  MakeTreeAt(&d);
  Press(ON_BUTTON, Middle(0));
  EXPECT_EQ(Heard(), "-a");
  EXPECT_EQ(Caret(), 'a');
  Press(ON_BUTTON, Middle(0));
  EXPECT_EQ(Heard(), "+a") << "each time, not the first time alone";
}

TEST_F(TreeContract, PartsOfARowAnswerWithTheirFlags) {
  MakeTree(PLAIN | TVS_CHECKBOXES);
  Expand(a);
  const HIMAGELIST images = ImageList_Create(24, 24, ILC_COLOR16, 0, 1);
  SendRecord(TVM_SETIMAGELIST, TVSIL_NORMAL, images);
  SetBox(c, 0);
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
    const TVHITTESTINFO hit = Hit(point.x, point.y);
    EXPECT_EQ(Name(hit.hItem), point.item) << point.x << "," << point.y;
    EXPECT_EQ(hit.flags, point.flags) << point.x << "," << point.y;
  }
  Send(TVM_SETIMAGELIST, TVSIL_NORMAL, 0);
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
    const HTREEITEM ticked = Insert('t', nullptr, 2);
    SetBox(ticked, 2);
    EXPECT_EQ(Send(TVM_GETIMAGELIST, TVSIL_STATE) != 0, later);
    ShowWindow(control, SW_SHOW);
    UpdateWindow(control);
    EXPECT_NE(Send(TVM_GETIMAGELIST, TVSIL_STATE), 0);
    EXPECT_EQ(Box(ticked), later ? 2U : 1U);
    EXPECT_EQ(Box(Insert('n')), 1U) << "a new item's box is empty";
  }
}

TEST_F(TreeContract, BoxesAreTickedByPressAndSpace) {
  MakeTreeAt(&f, PLAIN | TVS_CHECKBOXES);
  SetBox(a, 3);
  for (const UINT box : {2U, 1U}) {
    Press(ON_BOX, Middle(1));
    EXPECT_EQ(Box(e), box);
    Key(VK_SPACE);
    EXPECT_EQ(Box(f), box);
    Press(ON_BOX, Middle(0));
    EXPECT_EQ(Box(a), 3U) << "an image of the host's stays";
  }
  EXPECT_EQ(Heard(), "");
  EXPECT_EQ(Caret(), 'f');
}

}  // namespace
