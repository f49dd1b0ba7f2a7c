// What the control tells the tree's parent window, and what of it the client hears.
#include <string>

#include "support/tree_gestures.h"

namespace {

using Text = std::basic_string<WCHAR>;

class TreeNotifyTest : public TreeTest {
 protected:
  void SetUp() override {
    TreeTest::SetUp();
    Open(QVLS_EDITLABELS | QVLS_INFOTIP | QVLS_HASBUTTONS | QVLS_LINESATROOT);
  }

  LRESULT TellTree(UINT code, ItemHandle item, int id = CONTROL_ID) {
    NMTREEVIEWW record = {};
    record.itemNew.hItem = reinterpret_cast<HTREEITEM>(item);
    return Notify(record.hdr, code, id);
  }

  LRESULT TellLabelEdit(UINT code, int id) {
    NMTVDISPINFOW record = {};
    return Notify(record.hdr, code, id);
  }

  Text TextOf(ItemHandle item) {
    WCHAR text[64] = {};
    TVITEMW record = {};
    record.mask = TVIF_TEXT;
    record.hItem = reinterpret_cast<HTREEITEM>(item);
    record.pszText = text;
    record.cchTextMax = 64;
    SendMessageW(control, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&record));
    return text;
  }

  // Opens the label, types and presses Return. False if the edit didn't open.
  bool Edit(ItemHandle item, const WCHAR* typed) {
    const LRESULT opened = SendMessageW(control, TVM_EDITLABELW, 0, item);
    if (!opened) return false;
    EXPECT_EQ(SendMessageW(control, TVM_GETEDITCONTROL, 0, 0), opened);
    SendMessageW(reinterpret_cast<HWND>(opened), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(typed));
    SendMessageW(reinterpret_cast<HWND>(opened), WM_KEYDOWN, VK_RETURN, 1);
    PumpMessages();
    return true;
  }
};

TEST_F(TreeNotifyTest, ALabelEditAsksTheClientAtBothEnds) {
  struct Answers {
    bool refuseBegin;
    bool accept;
    const char* heard;
    const WCHAR* textAfter;
  };
  const Answers cases[] = {
      {true, true, "LabelEdit TVN_BEGINLABELEDITW", TEXT("Q")},
      {false, false, "LabelEdit TVN_BEGINLABELEDITW LabelEdit TVN_ENDLABELEDITW", TEXT("Q")},
      {false, true, "LabelEdit TVN_BEGINLABELEDITW LabelEdit TVN_ENDLABELEDITW", TEXT("new")},
  };
  const ItemHandle item = Item('Q');
  Given("Q", 'Q', '-');
  for (const Answers& row : cases) {
    Text offered;
    client.onLabelEdit = [&](NMHDR* header, std::uint32_t code) {
      const TVITEMW& edited = reinterpret_cast<NMTVDISPINFOW*>(header)->item;
      EXPECT_EQ(reinterpret_cast<ItemHandle>(edited.hItem), item);
      if (code == TVN_BEGINLABELEDITW) return row.refuseBegin;
      if (edited.pszText) offered = edited.pszText;
      return row.accept;
    };
    EXPECT_EQ(Edit(item, TEXT("new")), !row.refuseBegin);
    EXPECT_EQ(Heard(), row.heard);
    EXPECT_EQ(offered, row.refuseBegin ? TEXT("") : TEXT("new"));
    EXPECT_EQ(TextOf(item), row.textAfter);
  }
}

TEST_F(TreeNotifyTest, WithoutClientALabelEditStartsAndTakesNothing) {
  view->SetClient(nullptr);
  EXPECT_TRUE(Edit(Item('Q'), TEXT("new")));
  EXPECT_EQ(TextOf(Item('Q')), TEXT("Q"));
  EXPECT_EQ(Heard(), "");
}

// Label edits are heard from any child, the rest from the control alone; -1 tests the sign.
TEST_F(TreeNotifyTest, TheSendersIdDecidesWhatIsHeard) {
  for (const int id : {CONTROL_ID + 1, -1}) {
    for (const bool answer : {false, true}) {
      client.onLabelEdit = [answer](NMHDR*, std::uint32_t) { return answer; };
      EXPECT_EQ(TellLabelEdit(TVN_BEGINLABELEDITW, id), answer ? 1 : 0);
      EXPECT_EQ(TellLabelEdit(TVN_ENDLABELEDITW, id), answer ? 1 : 0);
    }
    EXPECT_EQ(client.Take().size(), 4U);
    for (const UINT code : {TVN_SELCHANGEDW, TVN_ITEMEXPANDEDW, TVN_BEGINDRAGW}) {
      TellTree(code, Item('Q'), id);
    }
    NMTVGETINFOTIPW tip = {};
    Notify(tip.hdr, TVN_GETINFOTIPW, id);
    EXPECT_EQ(Heard(), "") << id;
  }
  TellTree(TVN_SELCHANGEDW, Item('Q'));
  TellTree(TVN_SELCHANGEDW, 0);
  TellTree(TVN_ITEMEXPANDEDW, Item('R'));
  for (const UINT code : {TVN_SELCHANGINGW, TVN_ITEMEXPANDINGW, TVN_KEYDOWN}) {
    TellTree(code, Item('Q'));
  }
  EXPECT_EQ(Heard(), "Q 0 Expanded R");
}

TEST_F(TreeNotifyTest, ANegativeControlIdIsComparedWithItsSign) {
  view->SetClient(&client);
  control = view->Create(host, -5, 0, 0, WIDTH, HEIGHT, 0, nullptr);
  ASSERT_NE(control, nullptr);
  const ItemHandle item = Insert(TEXT("P"));
  client.Take();
  MoveCaret(item);
  EXPECT_EQ(Heard(), "P");
  TellTree(TVN_SELCHANGEDW, item, 5);
  EXPECT_EQ(Heard(), "");
}

TEST_F(TreeNotifyTest, TheClientsTipTextIsTakenAsItIs) {
  WCHAR own[] = TEXT("the control's");
  WCHAR clients[] = TEXT("the client's");
  for (const bool answer : {true, false}) {
    client.onGetInfoTip = [&](ItemHandle, WCHAR** text, int* length) {
      *text = clients;
      *length = 12;
      return answer;
    };
    NMTVGETINFOTIPW tip = {};
    tip.hItem = reinterpret_cast<HTREEITEM>(Item('R'));
    tip.pszText = own;
    tip.cchTextMax = 7;
    EXPECT_EQ(Notify(tip.hdr, TVN_GETINFOTIPW), 0);
    EXPECT_EQ(tip.pszText, answer ? clients : own);
    EXPECT_EQ(tip.cchTextMax, answer ? 12 : 7);
    const std::string heard = Heard();
    EXPECT_TRUE(heard.starts_with("InfoTip R 0x")) << heard;
  }
}

TEST_F(TreeNotifyTest, AContextRequestSelectsFirst) {
  struct Request {
    char item;
    const char* bracket;
    const char* selectedAfter;
  };
  const Request cases[] = {{'S', "B P Q S E ", "S"}, {'Q', "", "PQ"}, {'-', "", "PQ"}};
  for (const Request& request : cases) {
    Given("PQ", 'P', '-');
    const bool off = request.item == '-';
    const POINT point = off ? OffPoint() : LabelPoint(Item(request.item));
    const POINT screen = ToScreen(point);
    RequestMenu(point);
    EXPECT_EQ(Heard(), request.bracket + ("ContextMenu " + std::to_string(screen.x)) + "," +
                           std::to_string(screen.y) +
                           (off ? " -1 0x0000" : std::string(" ") + request.item + " 0x0088"));
    EXPECT_EQ(Selected(), request.selectedAfter);
  }
}

TEST_F(TreeNotifyTest, AContextRequestFromTheKeyboardIsPassedOnAsItIs) {
  SendMessageW(control, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(control), MAKELPARAM(-1, -1));
  EXPECT_EQ(Heard(), "ContextMenu -1,-1 -1 0x0000");
}

TEST_F(TreeNotifyTest, ExpansionsByTheUserAreReported) {
  Insert(TEXT("c"), Item('Q'));
  MoveCaret(Item('Q'));
  client.Take();
  Key(VK_RIGHT);
  Key(VK_LEFT);
  EXPECT_EQ(Heard(), "B Q E Expanded Q B E Expanded Q");
}

TEST_F(TreeNotifyTest, AViewWithoutClientIsSilent) {
  Given("PQ", 'P', '-');
  view->SetClient(nullptr);
  WCHAR own[] = TEXT("own");
  NMTVGETINFOTIPW tip = {};
  tip.pszText = own;
  Notify(tip.hdr, TVN_GETINFOTIPW);
  EXPECT_EQ(tip.pszText, own);
  for (const UINT code : {TVN_SELCHANGEDW, TVN_ITEMEXPANDEDW, TVN_BEGINDRAGW}) {
    TellTree(code, Item('R'));
  }
  EXPECT_EQ(TellLabelEdit(TVN_BEGINLABELEDITW, CONTROL_ID), 0);
  EXPECT_EQ(TellLabelEdit(TVN_ENDLABELEDITW, CONTROL_ID), 0);
  RequestMenu(LabelPoint(Item('R')));
  EXPECT_EQ(Heard(), "");
  EXPECT_EQ(Selected(), "PQ");
}

// The bracket of a drag's start; which items are dragged is what the client is then asked about.
TEST_F(TreeNotifyTest, ADragTakesItsItemIntoTheSelection) {
  struct Drag {
    bool multiSelect;
    char item;
    const char* heard;
    const char* caretAfter;
  };
  const Drag cases[] = {
      {true, 'S', "B S E BeginDrag P R S", "P"},
      {true, 'R', "BeginDrag P R", "P"},
      {false, 'S', "B S E BeginDrag R S", "S"},
      {false, 'P', "B E BeginDrag P R", "P"},
  };
  for (const Drag& drag : cases) {
    Given("PR", 'P', 'Q');
    view->SetMultiSelect(drag.multiSelect);
    TellTree(TVN_BEGINDRAGW, Item(drag.item));
    EXPECT_EQ(Heard(), drag.heard);
    EXPECT_EQ(Caret(), drag.caretAfter);
    EXPECT_EQ(ObserveAnchor(), "Q");
  }
}

}  // namespace
