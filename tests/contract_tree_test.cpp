// What the library relies on in the tree control, on the control alone.
#include "support/contract_host.h"

#include <string>
#include <vector>

namespace {

constexpr DWORD PLAIN = TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT;
constexpr int ROW = 16;
constexpr int ON_BUTTON = 5;
constexpr int ON_LABEL = 24;
constexpr int BESIDE = 200;

// The tree a(a1, a2(a21)), b, c, all collapsed. Rows count from 0.
class TreeContract : public ContractTest {
 protected:
  void MakeTree(DWORD style = PLAIN) {
    MakeControl(WC_TREEVIEWW, style);
    a = Insert("a");
    a1 = Insert("a1", a);
    a2 = Insert("a2", a);
    a21 = Insert("a21", a2);
    b = Insert("b");
    c = Insert("c");
    SetFocus(host);
    Heard();
  }

  void SetUp() override {
    ContractTest::SetUp();
    MakeTree();
  }

  HTREEITEM Insert(const char* name, HTREEITEM parent = nullptr, UINT state = 0,
                   UINT stateMask = 0) {
    std::basic_string<WCHAR> text(name, name + std::char_traits<char>::length(name));
    TVINSERTSTRUCTW insert = {};
    insert.hParent = parent;
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT | TVIF_PARAM | TVIF_IMAGE | (stateMask ? TVIF_STATE : 0U);
    insert.item.pszText = text.data();
    insert.item.lParam = name[0];
    insert.item.state = state;
    insert.item.stateMask = stateMask;
    const auto item = reinterpret_cast<HTREEITEM>(SendRecord(TVM_INSERTITEMW, 0, &insert));
    if (item) {
      names[item] = name;
    }
    return item;
  }

  LRESULT SendItem(UINT message, WPARAM wParam, HTREEITEM item) {
    return Send(message, wParam, reinterpret_cast<LPARAM>(item));
  }
  bool Select(HTREEITEM item) { return SendItem(TVM_SELECTITEM, TVGN_CARET, item) != 0; }
  void Expand(HTREEITEM item) { SendItem(TVM_EXPAND, TVE_EXPAND, item); }
  void Collapse(HTREEITEM item) { SendItem(TVM_EXPAND, TVE_COLLAPSE, item); }
  std::string Next(WPARAM relation, HTREEITEM item) {
    const auto next = reinterpret_cast<HTREEITEM>(SendItem(TVM_GETNEXTITEM, relation, item));
    return next ? names.at(next) : "-";
  }
  std::string Caret() { return Next(TVGN_CARET, nullptr); }
  UINT State(HTREEITEM item, UINT mask = 0xFFFF) {
    return static_cast<UINT>(Send(TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(item), mask));
  }
  bool SetState(HTREEITEM item, UINT state, UINT mask) {
    TVITEMW values = {};
    values.mask = TVIF_STATE;
    values.hItem = item;
    values.state = state;
    values.stateMask = mask;
    return SendRecord(TVM_SETITEMW, 0, &values) != 0;
  }
  std::string Walk() {
    std::string walk;
    auto item = reinterpret_cast<HTREEITEM>(Send(TVM_GETNEXTITEM, TVGN_ROOT));
    while (item) {
      walk += names.at(item) + " ";
      item = reinterpret_cast<HTREEITEM>(SendItem(TVM_GETNEXTITEM, TVGN_NEXTVISIBLE, item));
    }
    return walk;
  }
  std::string Selected() {
    std::string selected;
    for (HTREEITEM item : {a, a1, a2, a21, b, c}) {
      selected += State(item, TVIS_SELECTED) ? names.at(item) + " " : "";
    }
    return selected;
  }
  std::string Hit(int x, int y, UINT* flags) {
    TVHITTESTINFO info = {};
    info.pt = {x, y};
    const auto item = reinterpret_cast<HTREEITEM>(SendRecord(TVM_HITTEST, 0, &info));
    EXPECT_EQ(item, info.hItem);
    *flags = info.flags;
    return item ? names.at(item) : "-";
  }
  static int Middle(int row) { return row * ROW + ROW / 2; }

  HTREEITEM a = nullptr, a1 = nullptr, a2 = nullptr, a21 = nullptr, b = nullptr, c = nullptr;
};

TEST_F(TreeContract, RelationsHoldForItemsAndRefuseStrangers) {
  EXPECT_EQ(Next(TVGN_ROOT, nullptr), "a");
  EXPECT_EQ(Next(TVGN_NEXT, a), "b");
  EXPECT_EQ(Next(TVGN_NEXT, c), "-");
  EXPECT_EQ(Next(TVGN_PARENT, a21), "a2");
  EXPECT_EQ(Next(TVGN_PARENT, a), "-");
  EXPECT_EQ(Next(TVGN_CHILD, a), "a1");
  EXPECT_EQ(Next(TVGN_CHILD, b), "-");
  EXPECT_EQ(Next(TVGN_CHILD, nullptr), "a");
  const auto stranger = reinterpret_cast<HTREEITEM>(0x12345678);
  for (WPARAM relation : {TVGN_NEXT, TVGN_PARENT, TVGN_CHILD, TVGN_NEXTVISIBLE}) {
    EXPECT_EQ(Next(relation, stranger), "-") << relation;
  }
  EXPECT_EQ(State(stranger), 0U);
  EXPECT_FALSE(SetState(stranger, 2, 2));
  EXPECT_FALSE(Select(stranger));
  EXPECT_EQ(SendItem(TVM_DELETEITEM, 0, stranger), 0);
  EXPECT_EQ(Insert("x", stranger), nullptr);
  EXPECT_EQ(Heard(), "");
}

TEST_F(TreeContract, TheParameterIsReadBack) {
  TVITEMW values = {};
  values.mask = TVIF_PARAM;
  values.hItem = b;
  EXPECT_NE(SendRecord(TVM_GETITEMW, 0, &values), 0);
  EXPECT_EQ(values.lParam, 'b');
  values.hItem = nullptr;
  EXPECT_EQ(SendRecord(TVM_GETITEMW, 0, &values), 0);
}

TEST_F(TreeContract, OnlyNamedStateBitsChangeAndSilently) {
  Select(b);
  Heard();
  EXPECT_TRUE(SetState(a, TVIS_SELECTED | TVIS_BOLD | TVIS_CUT, TVIS_SELECTED | TVIS_BOLD));
  EXPECT_TRUE(SetState(c, 0xFFFF, TVIS_SELECTED));
  EXPECT_EQ(State(a), static_cast<UINT>(TVIS_SELECTED | TVIS_BOLD));
  EXPECT_EQ(Selected(), "a b c ");
  EXPECT_EQ(Caret(), "b");
  EXPECT_TRUE(SetState(b, 0, TVIS_SELECTED));
  EXPECT_EQ(Caret(), "b");
  EXPECT_EQ(Heard(), "");
}

TEST_F(TreeContract, TheCaretTakesTheSelectedBitAlong) {
  EXPECT_TRUE(Select(b));
  SetState(c, TVIS_SELECTED, TVIS_SELECTED);
  EXPECT_EQ(Heard(), "caret b");
  EXPECT_TRUE(Select(b));
  EXPECT_EQ(Heard(), "");
  EXPECT_TRUE(Select(a));
  EXPECT_EQ(Heard(), "caret a");
  EXPECT_EQ(Selected(), "a c ");
  EXPECT_TRUE(Select(nullptr));
  EXPECT_EQ(Heard(), "clear");
  EXPECT_EQ(Selected(), "c ");
  EXPECT_EQ(Caret(), "-");
  SetState(b, 0, TVIS_SELECTED);
  Select(b);
  SetState(b, 0, TVIS_SELECTED);
  Heard();
  Select(b);
  EXPECT_EQ(Selected(), "c ");
  EXPECT_EQ(Heard(), "");
}

TEST_F(TreeContract, ACaretInACollapsedBranchOpensIt) {
  Select(a21);
  EXPECT_EQ(Heard(), "expanded+a2,expanded+a,caret a21");
  EXPECT_EQ(Walk(), "a a1 a2 a21 b c ");
  Collapse(a);
  Select(a21);
  EXPECT_EQ(Heard(), "expanded+a,caret a21");
}

TEST_F(TreeContract, AMessageTellsOfTheFirstExpansionAlone) {
  EXPECT_EQ(SendItem(TVM_EXPAND, TVE_EXPAND, b), 0);
  EXPECT_EQ(SendItem(TVM_EXPAND, TVE_COLLAPSE, a), 0);
  EXPECT_NE(SendItem(TVM_EXPAND, TVE_EXPAND, a), 0);
  EXPECT_EQ(Heard(), "expanded+a");
  EXPECT_EQ(State(a, TVIS_EXPANDED), static_cast<UINT>(TVIS_EXPANDED));
  EXPECT_EQ(Walk(), "a a1 a2 b c ");
  EXPECT_NE(SendItem(TVM_EXPAND, TVE_COLLAPSE, a), 0);
  EXPECT_EQ(Walk(), "a b c ");
  Expand(a);
  Expand(a);
  EXPECT_EQ(Heard(), "");
}

TEST_F(TreeContract, ACollapseTakesTheCaretInSilently) {
  Select(a21);
  SetState(a1, TVIS_SELECTED, TVIS_SELECTED);
  Heard();
  Collapse(a);
  EXPECT_EQ(Caret(), "a");
  EXPECT_EQ(Selected(), "a a1 ");
  EXPECT_EQ(Heard(), "");
  Expand(a);
  EXPECT_EQ(Walk(), "a a1 a2 a21 b c ");
}

TEST_F(TreeContract, TheVisibleWalkGoesBothWays) {
  Expand(a);
  EXPECT_EQ(Next(TVGN_PREVIOUSVISIBLE, a), "-");
  EXPECT_EQ(Next(TVGN_PREVIOUSVISIBLE, b), "a2");
  EXPECT_EQ(Next(TVGN_PREVIOUSVISIBLE, a1), "a");
  EXPECT_EQ(Next(TVGN_NEXTVISIBLE, a2), "b");
  Expand(a2);
  EXPECT_EQ(Next(TVGN_PREVIOUSVISIBLE, b), "a21");
  Collapse(a);
  EXPECT_EQ(Next(TVGN_NEXTVISIBLE, a2), "a21");
  EXPECT_EQ(Next(TVGN_PREVIOUSVISIBLE, b), "a");
}

TEST_F(TreeContract, ADeletedCaretGoesOnThenUpThenBack) {
  Select(a21);
  Heard();
  EXPECT_NE(SendItem(TVM_DELETEITEM, 0, a21), 0);
  EXPECT_EQ(Heard(), "deleted a21,caret a2");
  Select(a1);
  SendItem(TVM_DELETEITEM, 0, a1);
  EXPECT_EQ(Caret(), "a2");
  Select(c);
  Heard();
  SendItem(TVM_DELETEITEM, 0, c);
  EXPECT_EQ(Heard(), "deleted c,caret b");
  Select(a2);
  Heard();
  SendItem(TVM_DELETEITEM, 0, a);
  EXPECT_EQ(Heard(), "deleted a2,deleted a,caret b");
  SendItem(TVM_DELETEITEM, 0, b);
  EXPECT_EQ(Heard(), "deleted b");
  EXPECT_EQ(Caret(), "-");
}

TEST_F(TreeContract, DeletionOfAllTellsOfEachAndMovesNoCaret) {
  for (LPARAM all : {reinterpret_cast<LPARAM>(TVI_ROOT), LPARAM{0}}) {
    MakeTree();
    Select(b);
    Heard();
    EXPECT_NE(Send(TVM_DELETEITEM, 0, all), 0);
    EXPECT_EQ(Heard(), "deleted a1,deleted a21,deleted a2,deleted a,deleted b,deleted c");
    EXPECT_EQ(Caret(), "-");
  }
}

TEST_F(TreeContract, TheEndOfTheWindowTellsOfEachItem) {
  Select(b);
  Heard();
  DestroyWindow(control);
  EXPECT_EQ(Heard(), "deleted a1,deleted a21,deleted a2,deleted a,deleted b,deleted c");
  control = nullptr;
}

TEST_F(TreeContract, TheFirstFocusPutsTheCaretOnTheFirstItem) {
  SetFocus(control);
  EXPECT_EQ(Heard(), "caret a");
  SetFocus(host);
  Select(c);
  Heard();
  SetFocus(control);
  EXPECT_EQ(Heard(), "");
}

TEST_F(TreeContract, KeysMoveTheCaretAndOpenBranches) {
  struct Case {
    WPARAM key;
    const char* heard;
  };
  const Case cases[] = {
      {VK_DOWN, "caret b"},
      {VK_UP, "caret a"},
      {VK_UP, ""},
      {VK_RIGHT, "expanded+a"},
      {VK_RIGHT, "caret a1"},
      {VK_RIGHT, ""},
      {VK_DOWN, "caret a2"},
      {VK_ADD, "expanded+a2"},
      {VK_SUBTRACT, "expanded-a2"},
      {VK_LEFT, "caret a"},
      {VK_LEFT, "expanded-a"},
      {VK_LEFT, ""},
      {VK_END, "caret c"},
      {VK_HOME, "caret a"},
      {VK_NEXT, "caret c"},
      {VK_PRIOR, "caret a"},
      {VK_MULTIPLY, "expanded+a,expanded+a2"},
      {VK_SPACE, ""},
      {VK_RETURN, ""},
      {VK_DELETE, ""},
      {VK_SHIFT, ""},
      {VK_TAB, ""},
      {'B', ""},
  };
  Select(a);
  Heard();
  for (const Case& step : cases) {
    Key(step.key);
    EXPECT_EQ(Heard(), step.heard) << "key " << step.key;
  }
  Select(nullptr);
  Heard();
  Key(VK_DOWN);
  Key(VK_END);
  EXPECT_EQ(Heard(), "");
}

TEST_F(TreeContract, APressSelectsOnlyOnTheItemItself) {
  struct Case {
    DWORD style;
    int x, row;
    const char* heard;
    bool waits;
  };
  const Case cases[] = {
      {PLAIN, ON_LABEL, 1, "caret b", true},
      {PLAIN, ON_BUTTON, 0, "expanded+a", false},
      {PLAIN, ON_BUTTON, 1, "", false},
      {PLAIN, BESIDE, 1, "", false},
      {PLAIN, ON_LABEL, 10, "", false},
      {TVS_FULLROWSELECT, BESIDE, 1, "caret b", true},
      {PLAIN | TVS_FULLROWSELECT, BESIDE, 1, "", false},
      {PLAIN | TVS_DISABLEDRAGDROP, ON_LABEL, 1, "caret b", false},
  };
  for (const Case& press : cases) {
    MakeTree(press.style);
    Select(c);
    SetFocus(control);
    Heard();
    EXPECT_EQ(Press(press.x, Middle(press.row)), press.waits) << press.style << " " << press.x;
    EXPECT_EQ(Heard(), press.heard) << press.style << " " << press.x;
  }
}

TEST_F(TreeContract, APressBesideTheItemsTakesTheFocusAndWithItTheFirstCaret) {
  Press(BESIDE, Middle(1));
  EXPECT_EQ(GetFocus(), control);
  EXPECT_EQ(Heard(), "caret a");
}

TEST_F(TreeContract, TheButtonTellsEachTimeAndTakesTheCaretInSilently) {
  Select(a21);
  SetFocus(control);
  Heard();
  Press(ON_BUTTON, Middle(0));
  EXPECT_EQ(Heard(), "expanded-a");
  EXPECT_EQ(Caret(), "a");
  Press(ON_BUTTON, Middle(0));
  EXPECT_EQ(Heard(), "expanded+a");
}

TEST_F(TreeContract, ADragBeginsAtFourPixelsAndSelectsNothing) {
  Select(c);
  SetFocus(control);
  Heard();
  Drag(ON_LABEL, Middle(1), 3, 3);
  EXPECT_EQ(Heard(), "caret b");
  Drag(ON_LABEL, Middle(0), 4, 0);
  EXPECT_EQ(Heard(), "drag a");
  Drag(ON_LABEL, Middle(0), 0, -5);
  EXPECT_EQ(Heard(), "drag a");
  EXPECT_EQ(Caret(), "b");
  Drag(BESIDE, Middle(0), 40, 40);
  EXPECT_EQ(Heard(), "");
}

TEST_F(TreeContract, NoDragWhereTheStyleForbidsIt) {
  MakeTree(PLAIN | TVS_DISABLEDRAGDROP);
  Drag(ON_LABEL, Middle(1), 40, 40);
  EXPECT_EQ(Heard(), "caret b");
}

TEST_F(TreeContract, TheRightButtonAsksForTheMenuAndSelectsNothing) {
  Select(c);
  SetFocus(control);
  Heard();
  RightPress(ON_LABEL, Middle(1));
  EXPECT_EQ(Heard(), "menu");
  RightPress(ON_LABEL, Middle(10));
  EXPECT_EQ(Heard(), "menu");
  Send(WM_RBUTTONUP, 0, MAKELPARAM(ON_LABEL, Middle(1)));
  EXPECT_EQ(Heard(), "menu");
  EXPECT_EQ(Caret(), "c");
}

TEST_F(TreeContract, PartsOfARowAnswerWithTheirFlags) {
  Expand(a);
  UINT flags = 0;
  struct Case {
    int x, y;
    const char* item;
    UINT flags;
  };
  const Case cases[] = {
      {0, 8, "a", TVHT_ONITEMBUTTON},
      {18, 8, "a", TVHT_ONITEMBUTTON},
      {19, 8, "a", TVHT_ONITEMLABEL},
      {25, 8, "a", TVHT_ONITEMLABEL},
      {26, 8, "a", TVHT_ONITEMRIGHT},
      {18, 24, "a1", TVHT_ONITEMINDENT},
      {19, 24, "a1", TVHT_ONITEMBUTTON},
      {38, 24, "a1", TVHT_ONITEMLABEL},
      {52, 24, "a1", TVHT_ONITEMRIGHT},
      {296, 24, "a1", TVHT_ONITEMRIGHT},
      {297, 24, "-", TVHT_TORIGHT},
      {-1, 24, "-", TVHT_TOLEFT},
      {30, -1, "-", TVHT_ABOVE},
      {30, 397, "-", TVHT_BELOW},
      {-1, -1, "-", TVHT_ABOVE | TVHT_TOLEFT},
      {30, 200, "-", TVHT_NOWHERE},
      {30, 15, "a", TVHT_ONITEMRIGHT},
      {40, 16, "a1", TVHT_ONITEMLABEL},
  };
  for (const Case& point : cases) {
    EXPECT_EQ(Hit(point.x, point.y, &flags), point.item) << point.x << "," << point.y;
    EXPECT_EQ(flags, point.flags) << point.x << "," << point.y;
  }
}

TEST_F(TreeContract, ImagesAndBoxesMoveTheLabel) {
  MakeTree(PLAIN | TVS_CHECKBOXES);
  UINT flags = 0;
  Hit(20, 8, &flags);
  EXPECT_EQ(flags, static_cast<UINT>(TVHT_ONITEMSTATEICON));
  Hit(32, 8, &flags);
  EXPECT_EQ(flags, static_cast<UINT>(TVHT_ONITEMLABEL));
  SetState(a, 0, TVIS_STATEIMAGEMASK);
  Hit(20, 8, &flags);
  EXPECT_EQ(flags, static_cast<UINT>(TVHT_ONITEMLABEL));
  const HIMAGELIST images = ImageList_Create(24, 24, ILC_COLOR16, 0, 1);
  SendRecord(TVM_SETIMAGELIST, TVSIL_NORMAL, images);
  Hit(24, 8, &flags);
  EXPECT_EQ(flags, static_cast<UINT>(TVHT_ONITEMICON));
  EXPECT_EQ(Hit(48, 23, &flags), "a");
  EXPECT_EQ(flags, static_cast<UINT>(TVHT_ONITEMLABEL));
  EXPECT_EQ(Hit(48, 24, &flags), "b");
  Send(TVM_SETIMAGELIST, TVSIL_NORMAL, 0);
  ImageList_Destroy(images);
}

TEST_F(TreeContract, TheFirstPaintEmptiesBoxesThatWereTickedBefore) {
  MakeControl(WC_TREEVIEWW, 0);
  DestroyWindow(control);
  control = CreateWindowExW(0, WC_TREEVIEWW, TEXT(""), WS_CHILD | TVS_CHECKBOXES, 0, 0, 300, 400,
                            host, nullptr, nullptr, nullptr);
  a = Insert("a", nullptr, 0, TVIS_STATEIMAGEMASK);
  EXPECT_EQ(State(a), 0x1000U);
  SetState(a, 0x2000, TVIS_STATEIMAGEMASK);
  EXPECT_EQ(Send(TVM_GETIMAGELIST, TVSIL_STATE), 0);
  ShowWindow(control, SW_SHOW);
  UpdateWindow(control);
  EXPECT_EQ(State(a), 0x1000U);
  EXPECT_NE(Send(TVM_GETIMAGELIST, TVSIL_STATE), 0);
}

TEST_F(TreeContract, TheStyleTakenOffAndOnMakesBoxesAtOnce) {
  control = CreateWindowExW(0, WC_TREEVIEWW, TEXT(""), WS_CHILD | WS_VISIBLE | TVS_CHECKBOXES, 0, 0,
                            300, 400, host, nullptr, nullptr, nullptr);
  const LONG_PTR style = GetWindowLongPtrW(control, GWL_STYLE);
  SetWindowLongPtrW(control, GWL_STYLE, style & ~TVS_CHECKBOXES);
  SetWindowLongPtrW(control, GWL_STYLE, style);
  const auto boxes = reinterpret_cast<HIMAGELIST>(Send(TVM_GETIMAGELIST, TVSIL_STATE));
  EXPECT_EQ(ImageList_GetImageCount(boxes), 3);
  const HTREEITEM ticked = Insert("ticked", nullptr, 0x2000, TVIS_STATEIMAGEMASK);
  const HTREEITEM plain = Insert("plain");
  UpdateWindow(control);
  EXPECT_EQ(State(ticked), 0x2000U);
  EXPECT_EQ(State(plain), 0x1000U);
  SetState(plain, 0, TVIS_STATEIMAGEMASK);
  EXPECT_EQ(State(plain), 0U);
}

TEST_F(TreeContract, BoxesAreTickedByPressAndSpace) {
  MakeTree(PLAIN | TVS_CHECKBOXES);
  Select(c);
  SetFocus(control);
  Heard();
  Press(25, Middle(1));
  EXPECT_EQ(State(b, TVIS_STATEIMAGEMASK), 0x2000U);
  Press(25, Middle(1));
  EXPECT_EQ(State(b, TVIS_STATEIMAGEMASK), 0x1000U);
  Key(VK_SPACE);
  EXPECT_EQ(State(c, TVIS_STATEIMAGEMASK), 0x2000U);
  SetState(b, 0x3000, TVIS_STATEIMAGEMASK);
  Press(25, Middle(1));
  EXPECT_EQ(State(b, TVIS_STATEIMAGEMASK), 0x3000U);
  EXPECT_EQ(Heard(), "");
  EXPECT_EQ(Caret(), "c");
}

TEST_F(TreeContract, BarsAreThereOnceTheyAreNeededOrSet) {
  SCROLLINFO info = {};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  EXPECT_FALSE(GetScrollInfo(control, SB_VERT, &info));
  info.fMask = SIF_POS;
  info.nPos = 200;
  EXPECT_EQ(SetScrollInfo(control, SB_VERT, &info, TRUE), 100);
  EXPECT_TRUE(GetScrollInfo(control, SB_HORZ, &info));
  EXPECT_EQ(info.nPos, 0);
  std::vector<HTREEITEM> items;
  for (int i = 0; i < 30; ++i) {
    items.push_back(Insert("more"));
  }
  info.fMask = SIF_ALL;
  EXPECT_TRUE(GetScrollInfo(control, SB_VERT, &info));
  EXPECT_EQ(info.nMax, 32);
  EXPECT_EQ(info.nPage, 24U);
  EXPECT_EQ(info.nPos, 0);
  SendItem(TVM_ENSUREVISIBLE, 0, items.back());
  GetScrollInfo(control, SB_VERT, &info);
  EXPECT_EQ(info.nPos, 9);
  info.fMask = SIF_POS;
  info.nPos = 2;
  EXPECT_EQ(SetScrollInfo(control, SB_VERT, &info, TRUE), 2);
  UINT flags = 0;
  EXPECT_EQ(Hit(30, 8, &flags), "more") << "the bar moved, the rows did not";
  SendItem(TVM_ENSUREVISIBLE, 0, a);
  EXPECT_EQ(Hit(20, 8, &flags), "a");
}

TEST_F(TreeContract, AnAcceptedEditChangesTheLabel) {
  EXPECT_EQ(SendItem(TVM_EDITLABELW, 0, b), 0);
  MakeTree(PLAIN | TVS_EDITLABELS);
  Select(b);
  Heard();
  answer = 1;
  EXPECT_EQ(SendItem(TVM_EDITLABELW, 0, b), 0) << "refused";
  EXPECT_EQ(Heard(), "edit b");
  answer = 0;
  const auto edit = reinterpret_cast<HWND>(SendItem(TVM_EDITLABELW, 0, b));
  ASSERT_NE(edit, nullptr);
  EXPECT_EQ(reinterpret_cast<HWND>(Send(TVM_GETEDITCONTROL)), edit);
  SetWindowTextW(edit, TEXT("new"));
  answer = 1;
  EXPECT_NE(Send(TVM_ENDEDITLABELNOW, FALSE), 0);
  EXPECT_EQ(Heard(), "edit b,edited b=new,edited b=new");
  EXPECT_EQ(Send(TVM_GETEDITCONTROL), 0);
  EXPECT_EQ(Send(TVM_ENDEDITLABELNOW, FALSE), 0);
  WCHAR text[8] = {};
  TVITEMW values = {};
  values.mask = TVIF_TEXT;
  values.hItem = b;
  values.pszText = text;
  values.cchTextMax = 8;
  SendRecord(TVM_GETITEMW, 0, &values);
  EXPECT_EQ(std::basic_string<WCHAR>(text), TEXT("new"));
}

TEST_F(TreeContract, TheWindowIsFreeForAViewAndKeepsItsVisibility) {
  EXPECT_EQ(GetWindowLongPtrW(control, GWLP_USERDATA), 0);
  SetWindowLongPtrW(control, GWLP_USERDATA, 77);
  EXPECT_EQ(GetWindowLongPtrW(control, GWLP_USERDATA), 77);
  Send(WM_SETREDRAW, FALSE);
  EXPECT_TRUE(IsWindowVisible(control));
  Insert("hidden so far");
  Send(WM_SETREDRAW, TRUE);
  const auto toolTip = reinterpret_cast<HWND>(Send(TVM_GETTOOLTIPS));
  ASSERT_TRUE(IsWindow(toolTip));
  SendMessageW(toolTip, TTM_SETDELAYTIME, TTDT_INITIAL, 70);
  EXPECT_EQ(SendMessageW(toolTip, TTM_GETDELAYTIME, TTDT_INITIAL, 0), 70);
  SendMessageW(toolTip, TTM_SETMAXTIPWIDTH, 0, 120);
  EXPECT_EQ(SendMessageW(toolTip, TTM_GETMAXTIPWIDTH, 0, 0), 120);
  MakeTree(PLAIN | TVS_NOTOOLTIPS);
  EXPECT_FALSE(IsWindow(toolTip));
  EXPECT_EQ(Send(TVM_GETTOOLTIPS), 0);
}

}  // namespace
