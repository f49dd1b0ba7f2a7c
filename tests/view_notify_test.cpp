// What the control and the mouse report to the view's window, and what of it the client hears.
#include <string>
#include <vector>

#include "support/each_view.h"
#include "support/import_patch.h"

namespace {

// Where the last message was.
DWORD messagePosition;
DWORD WINAPI AnswerMessagePosition() { return messagePosition; }

DWORD Packed(POINT point) { return static_cast<DWORD>(MAKELPARAM(point.x, point.y)); }

// The answer of default handling, told from every answer of the view.
constexpr LRESULT DEFAULT_ANSWER = 55;
LRESULT WINAPI AnswerByDefault(HWND, UINT, WPARAM, LPARAM) { return DEFAULT_ANSWER; }

// A report about item b. Of some it does not matter which child sends them.
struct Report {
  UINT code;
  bool anyChild;
  const char* heard;
};

const std::vector<Report> OF_TREE = {
    {TVN_GETINFOTIPW, false, "InfoTip b 0x0000"},
    {TVN_BEGINDRAGW, false, "B b E BeginDrag b"},
    {TVN_SELCHANGEDW, false, "b"},
    {TVN_ITEMEXPANDEDW, false, "Expanded b"},
    {TVN_SELCHANGINGW, false, ""},
    {TVN_ITEMEXPANDINGW, false, ""},
    {TVN_KEYDOWN, false, ""},
    {TVN_BEGINLABELEDITW, true, "EditBegins"},
    {TVN_ENDLABELEDITW, true, "EditEnds"},
};

const std::vector<Report> OF_LIST = {
    {LVN_GETINFOTIPW, false, "InfoTip b 0x0000"},
    {LVN_BEGINDRAG, false, "B b E BeginDrag b"},
    {LVN_COLUMNCLICK, true, "ColumnClick 3"},
    {LVN_ITEMCHANGED, true, "B b E"},
    {LVN_KEYDOWN, true, ""},
    {LVN_BEGINLABELEDITW, true, "EditBegins"},
    {LVN_ENDLABELEDITW, true, "EditEnds"},
};

class ViewNotify : public EachView {
 protected:
  const std::vector<Report>& Reports() const { return IsList() ? OF_LIST : OF_TREE; }

  // Opens the label and, unless that is refused, types and presses Return.
  bool EditLabel(ItemHandle item, const WCHAR* typed) const {
    const LPARAM named = item;
    const LRESULT opened = IsList() ? Ask(LVM_EDITLABELW, item) : Ask(TVM_EDITLABELW, 0, named);
    const auto edit = reinterpret_cast<HWND>(opened);
    if (!edit) return false;
    SendMessageW(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(typed));
    SendMessageW(edit, WM_KEYDOWN, VK_RETURN, 1);
    PumpMessages();
    return true;
  }

  // What the client hears of a context request there.
  std::string ContextMenu(POINT point, const char* hit) const {
    return "ContextMenu " + std::to_string(point.x) + "," + std::to_string(point.y) + " " + hit;
  }

  const char* const onLabel = TreeOrList(" 0x0088", " 0x0080");
};

INSTANTIATE_TEST_SUITE_P(Views, ViewNotify, EACH_VIEW, ViewName);

TEST_P(ViewNotify, TheSendersIdDecidesWhatIsHeard) {
  messagePosition = 0;
  const ImportPatch patch("GetMessagePos", &AnswerMessagePosition);
  for (const int ownId : {CONTROL_ID, -7}) {
    OpenWithItems(0, nullptr, ownId);
    for (const Report& report : Reports()) {
      for (const INT_PTR id : {INT_PTR{ownId}, INT_PTR{0x100000000} + ownId, INT_PTR{7}}) {
        view->ClearSelection();
        client.Take();
        NotifyOf(b, report.code, id);
        EXPECT_EQ(Heard(), report.anyChild || id == ownId ? report.heard : "") << report.code;
      }
    }
  }
}

TEST_P(ViewNotify, EverythingButALabelEditEndsInDefaultHandling) {
  OpenWithItems();
  const ImportPatch patch("DefWindowProcW", &AnswerByDefault);
  for (const bool listening : {false, true}) {
    view->SetClient(listening ? &client : nullptr);
    for (const Report& report : Reports()) {
      const bool isEdit = std::string(report.heard).starts_with("Edit");
      for (const bool answer : {true, false}) {
        client.onLabelEdit = [=](NMHDR*, std::uint32_t) { return answer; };
        EXPECT_EQ(NotifyOf(b, report.code), isEdit && listening ? answer : DEFAULT_ANSWER);
      }
    }
    EXPECT_EQ(Heard().empty(), !listening);
    EXPECT_TRUE(listening || Selected().empty()) << "a drag of nobody's";
    for (const UINT message :
         {WM_CONTEXTMENU, WM_DRAWITEM, WM_MEASUREITEM, WM_INITMENUPOPUP, WM_MENUCHAR, WM_SIZE}) {
      EXPECT_EQ(SendMessageW(parent, message, 0, 0), DEFAULT_ANSWER) << message;
    }
    EXPECT_EQ(Heard(), listening ? "ContextMenu 0,0 -1 0x0000" : "");
  }

  // A window that no view is stored in yet.
  const LONG_PTR stored = SetWindowLongPtrW(parent, GWLP_USERDATA, 0);
  for (const Report& report : Reports()) EXPECT_EQ(NotifyOf(b, report.code), DEFAULT_ANSWER);
  EXPECT_EQ(Heard(), "");
  SetWindowLongPtrW(parent, GWLP_USERDATA, stored);
}

TEST_P(ViewNotify, TheTipIsTheClientsOwnMemory) {
  WCHAR own[] = TEXT("own");
  WCHAR buffer[] = TEXT("buffer");
  OpenWithItems(QVLS_INFOTIP);
  const ImportPatch patch("GetMessagePos", &AnswerMessagePosition);
  struct Tip {
    WCHAR* text;
    int length;
    bool answer;
  };
  for (const Tip& tip : {Tip{own, 3, true}, {own, 0, true}, {nullptr, 0, true}, {own, 3, false}}) {
    client.onGetInfoTip = [&](ItemHandle, WCHAR** text, int* length) {
      *text = tip.text;
      *length = tip.length;
      return tip.answer;
    };
    NMTVGETINFOTIPW branch = {};
    branch.pszText = buffer;
    branch.cchTextMax = 7;
    branch.hItem = Native(b);
    NMLVGETINFOTIPW row = {};
    row.pszText = buffer;
    row.cchTextMax = 7;
    row.iItem = static_cast<int>(b);
    messagePosition = Packed(LabelOnScreen(c));
    IsList() ? Notify(row.hdr, LVN_GETINFOTIPW) : Notify(branch.hdr, TVN_GETINFOTIPW);
    // The item is the notification's, the flags are those of the mouse.
    EXPECT_EQ(Heard(), std::string("InfoTip b") + onLabel);
    EXPECT_EQ(TreeOrList(branch.pszText, row.pszText), tip.answer ? tip.text : buffer);
    EXPECT_EQ(TreeOrList(branch.cchTextMax, row.cchTextMax), tip.answer ? tip.length : 7);
    messagePosition = Packed({-5, -9});
    NotifyOf(-1, TreeOrList(TVN_GETINFOTIPW, LVN_GETINFOTIPW));
    EXPECT_EQ(Heard(), "InfoTip -1 0x0000");
  }
  EXPECT_EQ(buffer, std::basic_string<WCHAR>(TEXT("buffer")));
  EXPECT_EQ(Selected(), "");
}

TEST_P(ViewNotify, ALabelEditAsksTheClientAtBothEnds) {
  QVLTreeViewStyleExt editable;
  editable.SetStyle(TreeOrList(0u, std::uint32_t{LVS_EDITLABELS}));
  OpenWithItems(QVLS_EDITLABELS, &editable);
  // A list's edit of a row without these brings them along.
  if (IsList()) SetState(b, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
  struct {
    bool refuse;
    bool accept;
    const WCHAR* textAfter;
    const char* heard;
  } const cases[] = {
      {true, true, TEXT("b"), "EditBegins"},
      {false, false, TEXT("b"), "EditBegins EditEnds"},
      {false, true, TEXT("new"), TreeOrList("EditBegins EditEnds", "EditBegins EditEnds B b E")},
  };
  for (const auto& row : cases) {
    client.onLabelEdit = [&](NMHDR* header, std::uint32_t code) {
      const auto branch = reinterpret_cast<NMTVDISPINFOW*>(header)->item.hItem;
      const auto edited = reinterpret_cast<NMLVDISPINFOW*>(header)->item.iItem;
      EXPECT_EQ(IsList() ? edited : reinterpret_cast<ItemHandle>(branch), b);
      const bool begins = code == TreeOrList(TVN_BEGINLABELEDITW, LVN_BEGINLABELEDITW);
      return begins ? row.refuse : row.accept;
    };
    SetFocus(control);
    client.Take();
    EXPECT_EQ(EditLabel(b, TEXT("new")), !row.refuse);
    EXPECT_EQ(Heard(), row.heard);
    EXPECT_EQ(TextOf(b), row.textAfter);
  }
  view->SetClient(nullptr);
  EXPECT_TRUE(EditLabel(b, TEXT("newer"))) << "without a client it starts";
  EXPECT_EQ(TextOf(b), TEXT("new")) << "and takes nothing";
}

TEST_P(ViewNotify, AContextRequestSelectsWhatItIsFor) {
  OpenWithItems();
  view->SetItemSelected(a, true);
  view->SetItemSelected(b, true);
  client.Take();
  RequestMenu(LabelPoint(b));
  EXPECT_EQ(Heard(), ContextMenu(LabelOnScreen(b), "b") + onLabel);
  RequestMenu(OffPoint());
  EXPECT_EQ(Heard(), ContextMenu(ToScreen(OffPoint()), "-1 0x0000"));
  Ask(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(control), MAKELPARAM(-1, -1));
  EXPECT_EQ(Heard(), "ContextMenu -1,-1 -1 0x0000") << "from the keyboard, passed on as it is";
  EXPECT_EQ(Selected(), "ab");
  RequestMenu(LabelPoint(c));
  const std::string selection = TreeOrList("B a b c E ", "B a E B b E B c E ");
  EXPECT_EQ(Heard(), selection + ContextMenu(LabelOnScreen(c), "c") + onLabel);
  EXPECT_EQ(Selected(), "c");
  if (!IsList()) {
    // The caret stays on an item that a Ctrl press takes out.
    view->SetItemSelected(c, false);
    client.Take();
    RequestMenu(LabelPoint(c));
    EXPECT_EQ(Heard(), "B c E " + ContextMenu(LabelOnScreen(c), "c") + onLabel);
    EXPECT_EQ(Selected(), "c");
  }
  view->SetClient(nullptr);
  RequestMenu(LabelPoint(a));
  EXPECT_EQ(Heard(), "");
  EXPECT_EQ(Selected(), "c") << "without a client";
}

TEST_P(ViewNotify, AClientThatTakesOverInsideABracketHearsTheRestOfIt) {
  OpenWithItems();
  RecordingClient other;
  other.view = view;
  other.labels = client.labels;
  other.depth = 1;
  client.onBeginSelectionChange = [&] { view->SetClient(&other); };
  view->SetItemSelected(b, true);
  EXPECT_EQ(Heard(), "B");
  EXPECT_EQ(Short(other.Take()), "b E");
  view->SetClient(nullptr);
}

// In a list neither the flag nor the stored mode counts; in a tree tree_selection_test has the
// rest.
TEST_P(ViewNotify, ADragTakesItsItemIntoTheSelection) {
  OpenWithItems(QVLS_NODRAGDROP);
  if (IsList()) view->SetMultiSelect(false);
  view->SetItemSelected(c, true);
  client.Take();
  const UINT drag = TreeOrList(TVN_BEGINDRAGW, LVN_BEGINDRAG);
  NotifyOf(c, drag);
  EXPECT_EQ(Heard(), "BeginDrag c");
  NotifyOf(b, drag);
  EXPECT_EQ(Heard(), "B b E BeginDrag b c");
}

}  // namespace
