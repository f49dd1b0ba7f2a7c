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
    insert.item.lParam = static_cast<unsigned char>(name);
    insert.item.state = box << 12;
    insert.item.stateMask = TVIS_STATEIMAGEMASK;
    return reinterpret_cast<HTREEITEM>(SendRecord(TVM_INSERTITEMW, 0, &insert));
  }

  LRESULT SendItem(UINT message, WPARAM wParam, HTREEITEM item) {
    return Send(message, wParam, reinterpret_cast<LPARAM>(item));
  }
  void Select(HTREEITEM item) { SendItem(TVM_SELECTITEM, TVGN_CARET, item); }
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

TEST_F(TreeContract, WhatIsDoneIsToldAndMovesTheCaret) {
  const struct {
    const char* what;
    HTREEITEM* caret;
    std::function<void()> act;
    const char* heard;
    char caretAfter;
    DWORD style = PLAIN;
  } cases[] = {
      {"selection of a hidden item", &a, [this] { Select(d); }, "+c,+a,caret d", 'd'},
      {"selection of nothing", &a, [this] { Select(nullptr); }, "clear", '-'},
      {"collapse over the caret", &d, [this] { Collapse(a); }, "", 'a'},
      {"deletion of an only child", &d, [this] { Delete(d); }, "deleted d,caret c", 'c'},
      {"deletion of a first item", &b, [this] { Delete(b); }, "deleted b,caret c", 'c'},
      {"deletion of a last item", &f, [this] { Delete(f); }, "deleted f,caret e", 'e'},
      {"deletion above the caret", &d, [this] { Delete(a); },
       "deleted b,deleted d,deleted c,deleted a,caret e", 'e'},
      {"deletion of all", &e, [this] { Delete(TVI_ROOT); },
       "deleted b,deleted d,deleted c,deleted a,deleted e,deleted f", '-'},
      {"press", &f, [this] { Press(ON_LABEL, Middle(1)); }, "caret e", 'e'},
      {"press on a button", &f, [this] { Press(ON_BUTTON, Middle(0)); }, "+a", 'f'},
      {"press that closes over the caret", &d, [this] { Press(ON_BUTTON, Middle(0)); }, "-a", 'a'},
      {"press where a button could be", &f, [this] { Press(ON_BUTTON, Middle(1)); }, "", 'f'},
      {"press beside a label", &f, [this] { Press(BESIDE, Middle(1)); }, "", 'f'},
      {"press below the items", &f, [this] { Press(ON_LABEL, Middle(10)); }, "", 'f'},
      {"press on a whole row", &f, [this] { Press(BESIDE, Middle(1)); }, "caret e", 'e',
       TVS_FULLROWSELECT},
      {"three pixels", &f, [this] { Drag(ON_LABEL, Middle(1), 3, 3); }, "caret e", 'e'},
      {"four pixels", &f, [this] { Drag(ON_LABEL, Middle(1), 4, 0); }, "drag e", 'f'},
      {"drag upwards", &f, [this] { Drag(ON_LABEL, Middle(1), 0, -5); }, "drag e", 'f'},
      {"drag beside a label", &f, [this] { Drag(BESIDE, Middle(1), 40, 40); }, "", 'f'},
      {"drag where there is none", &f, [this] { Drag(ON_LABEL, Middle(1), 40, 40); }, "caret e",
       'e', PLAIN | TVS_DISABLEDRAGDROP},
      {"right press", &f, [this] { RightPress(ON_LABEL, Middle(1)); }, "menu", 'f'},
      {"focus", &b,
       [this] {
         SetFocus(host);
         SetFocus(control);
       },
       "", 'b'},
      {"hiding", &e, [this] { ShowWindow(control, SW_HIDE); }, "", 'e'},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.what);
    MakeTreeAt(test.caret, test.style);
    test.act();
    EXPECT_EQ(Heard(), test.heard);
    EXPECT_EQ(Caret(), test.caretAfter);
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

TEST_F(TreeContract, PartsOfARowAnswerWithTheirFlags) {
  MakeTree(PLAIN | TVS_CHECKBOXES);
  Select(b);
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
