// What the control tells the tree's parent window, and what of it the client hears.
#include "support/tree_gestures.h"

namespace {

// The answer of default handling, told from every answer of the view.
constexpr LRESULT DEFAULT_ANSWER = 55;
LRESULT WINAPI AnswerByDefault(HWND, UINT, WPARAM, LPARAM) { return DEFAULT_ANSWER; }

class TreeNotifyTest : public TreeTest {
 protected:
  void SetUp() override {
    TreeTest::SetUp();
    Open(QVLS_EDITLABELS | QVLS_INFOTIP | QVLS_HASBUTTONS | QVLS_LINESATROOT);
  }

  LRESULT TellLabelEdit(UINT code, int id) {
    NMTVDISPINFOW record = {};
    return Notify(record.hdr, code, id);
  }

  // Opens the label, types and presses Return. False if the edit didn't open.
  bool Edit(ItemHandle item, const WCHAR* typed) {
    const LRESULT opened = Ask(TVM_EDITLABELW, 0, item);
    if (!opened) return false;
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
  Given("Q - Q");
  for (const Answers& row : cases) {
    client.onLabelEdit = [&](NMHDR* header, std::uint32_t code) {
      const TVITEMW& edited = reinterpret_cast<NMTVDISPINFOW*>(header)->item;
      EXPECT_EQ(edited.hItem, Native(item));
      return code == TVN_BEGINLABELEDITW ? row.refuseBegin : row.accept;
    };
    EXPECT_EQ(Edit(item, TEXT("new")), !row.refuseBegin);
    EXPECT_EQ(Heard(), row.heard);
    EXPECT_EQ(TextOf(item), row.textAfter);
  }
  view->SetClient(nullptr);
  EXPECT_TRUE(Edit(item, TEXT("newer"))) << "without a client it starts";
  EXPECT_EQ(TextOf(item), TEXT("new")) << "and takes nothing";
}

// Label edits are heard from any child, the rest from the control alone, by its id and the sign of
// that.
TEST_F(TreeNotifyTest, TheSendersIdDecidesWhatIsHeard) {
  constexpr int ID = -5;
  control = view->Create(host, ID, 0, 0, WIDTH, HEIGHT, 0, nullptr);
  const ItemHandle item = Insert(TEXT("T"));
  const UINT codes[] = {TVN_SELCHANGEDW, TVN_ITEMEXPANDEDW, TVN_GETINFOTIPW, TVN_BEGINDRAGW};
  const ImportPatch patch("DefWindowProcW", &AnswerByDefault);
  client.Take();
  for (const int id : {5, -6}) {
    for (const bool answer : {false, true}) {
      client.onLabelEdit = [answer](NMHDR*, std::uint32_t) { return answer; };
      EXPECT_EQ(TellLabelEdit(TVN_BEGINLABELEDITW, id), answer ? 1 : 0);
      EXPECT_EQ(TellLabelEdit(TVN_ENDLABELEDITW, id), answer ? 1 : 0);
    }
    EXPECT_EQ(client.Take().size(), 4U);
    for (const UINT code : codes) NotifyOf(item, code, id);
    EXPECT_EQ(Heard(), "") << id;
  }
  EXPECT_EQ(NotifyOf(item, TVN_SELCHANGEDW, ID), DEFAULT_ANSWER);
  NotifyOf(0, TVN_SELCHANGEDW, ID);
  NotifyOf(item, TVN_ITEMEXPANDEDW, ID);
  for (const UINT code : {TVN_SELCHANGINGW, TVN_ITEMEXPANDINGW, TVN_KEYDOWN}) {
    NotifyOf(item, code, ID);
  }
  EXPECT_EQ(Heard(), "T 0 Expanded T");
  view->SetClient(nullptr);
  for (const UINT code : codes) EXPECT_EQ(NotifyOf(item, code, ID), DEFAULT_ANSWER);
  RequestMenu(LabelPoint(item));
  EXPECT_EQ(Heard(), "") << "without a client";
  EXPECT_EQ(Selected(), "");
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
    tip.hItem = Native(Item('R'));
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
    Given("P - PQ");
    const bool off = request.item == '-';
    const POINT point = off ? OffPoint() : LabelPoint(Item(request.item));
    const POINT screen = ToScreen(point);
    RequestMenu(point);
    EXPECT_EQ(Heard(), request.bracket + ("ContextMenu " + std::to_string(screen.x)) + "," +
                           std::to_string(screen.y) +
                           (off ? " -1 0x0000" : std::string(" ") + request.item + " 0x0088"));
    EXPECT_EQ(Selected(), request.selectedAfter);
  }
  Ask(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(control), MAKELPARAM(-1, -1));
  EXPECT_EQ(Heard(), "ContextMenu -1,-1 -1 0x0000") << "from the keyboard, passed on as it is";
}

// The bracket of a drag's start; which items are dragged is what the client is then asked about.
TEST_F(TreeNotifyTest, ADragTakesItsItemIntoTheSelection) {
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
