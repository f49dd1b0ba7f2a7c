// Notifications of the control and messages of the mouse, and the callbacks that they cause.
#include <string>
#include <tuple>
#include <vector>

#include "support/each_view.h"
#include "support/replaced_call.h"

namespace {

using Text = std::basic_string<WCHAR>;

// Different from every answer of the view.
constexpr LRESULT kDefaultAnswer = 55;

// A notification about item b. Some count whatever child sends them.
struct Notification {
  UINT code;
  bool anyChild;
  const char* callbacks;
};

const std::vector<Notification> kOfTree = {{TVN_GETINFOTIPW, false, "InfoTip b 0x0000"},
                                           {TVN_BEGINDRAGW, false, "B b E BeginDrag b"},
                                           {TVN_SELCHANGEDW, false, "b"},
                                           {TVN_ITEMEXPANDEDW, false, "Expanded b"},
                                           {TVN_SELCHANGINGW, false, ""},
                                           {TVN_ITEMEXPANDINGW, false, ""},
                                           {TVN_KEYDOWN, false, ""},
                                           {TVN_BEGINLABELEDITW, true, "EditBegins"},
                                           {TVN_ENDLABELEDITW, true, "EditEnds"}};

const std::vector<Notification> kOfList = {{LVN_GETINFOTIPW, false, "InfoTip b 0x0000"},
                                           {LVN_BEGINDRAG, false, "B b E BeginDrag b"},
                                           {LVN_COLUMNCLICK, true, "ColumnClick 3"},
                                           {LVN_ITEMCHANGED, true, "B b E"},
                                           {LVN_KEYDOWN, true, ""},
                                           {LVN_BEGINLABELEDITW, true, "EditBegins"},
                                           {LVN_ENDLABELEDITW, true, "EditEnds"}};

class ViewNotify : public EachView {
 protected:
  const std::vector<Notification>& Notifications() const { return IsList() ? kOfList : kOfTree; }

  // The callback of a context request at a point of the control.
  std::string ContextMenu(POINT point, const std::string& hit) const {
    const POINT screen = ToScreen(point);
    return "ContextMenu " + std::to_string(screen.x) + "," + std::to_string(screen.y) + " " + hit;
  }

  const char* const onLabel = TreeOrList(" 0x0088", " 0x0080");
};

INSTANTIATE_TEST_SUITE_P(Views, ViewNotify, kEachView, ViewName);

TEST_P(ViewNotify, CallbacksDependOnTheSendersId) {
  const Replaced position("GetMessagePos", &GetMessagePos, [] { return 0; });
  for (const int ownId : {kControlId, -7}) {
    OpenWithItems(0, nullptr, ownId);
    for (const Notification& each : Notifications()) {
      for (const INT_PTR id : {INT_PTR{ownId}, INT_PTR{0x100000000} + ownId, INT_PTR{7}}) {
        view->ClearSelection();
        client.Take();
        NotifyOf(b, each.code, id);
        EXPECT_EQ(Callbacks(), each.anyChild || id == ownId ? each.callbacks : "") << each.code;
      }
    }
  }
}

TEST_P(ViewNotify, AllButLabelEditsEndInDefaultHandling) {
  OpenWithItems();
  const Replaced answer("DefWindowProcW", &DefWindowProcW, [](auto...) { return kDefaultAnswer; });
  for (const bool withClient : {false, true}) {
    view->SetClient(withClient ? &client : nullptr);
    for (const Notification& each : Notifications()) {
      const bool isEdit = std::string(each.callbacks).starts_with("Edit");
      for (const bool accepts : {true, false}) {
        client.onLabelEdit = [=](auto...) { return accepts; };
        EXPECT_EQ(NotifyOf(b, each.code), isEdit && withClient ? accepts : kDefaultAnswer);
      }
    }
    EXPECT_EQ(Callbacks().empty(), !withClient);
    EXPECT_TRUE(withClient || Selected().empty()) << "a drag without a client selects nothing";
    for (const UINT message :
         {WM_CONTEXTMENU, WM_DRAWITEM, WM_MEASUREITEM, WM_INITMENUPOPUP, WM_MENUCHAR, WM_SIZE}) {
      EXPECT_EQ(SendMessageW(parent, message, 0, 0), kDefaultAnswer) << message;
    }
    EXPECT_EQ(Callbacks(), withClient ? "ContextMenu 0,0 -1 0x0000" : "");
  }
  // A window in which no view is stored yet.
  const LONG_PTR stored = SetWindowLongPtrW(parent, GWLP_USERDATA, 0);
  for (const Notification& each : Notifications()) {
    EXPECT_EQ(NotifyOf(b, each.code), kDefaultAnswer);
  }
  EXPECT_EQ(Callbacks(), "");
  SetWindowLongPtrW(parent, GWLP_USERDATA, stored);
}

TEST_P(ViewNotify, ToolTipIsTheClientsPointerAndLength) {
  WCHAR own[] = TEXT("own");
  WCHAR buffer[] = TEXT("buffer");
  OpenWithItems(QVLS_INFOTIP);
  POINT mouse = {};
  const Replaced position("GetMessagePos", &GetMessagePos,
                          [&] { return static_cast<DWORD>(MAKELPARAM(mouse.x, mouse.y)); });
  using Tip = std::tuple<WCHAR*, int, bool>;
  for (const Tip& tip : {Tip{own, 3, true}, {own, 0, true}, {nullptr, 0, true}, {own, 3, false}}) {
    bool accepted = false;
    client.onGetInfoTip = [&](ItemHandle, WCHAR** text, int* length) {
      return std::tie(*text, *length, accepted) = tip, accepted;
    };
    const auto expectTip = [&](auto& record, UINT code) {
      record.pszText = buffer;
      record.cchTextMax = 7;
      mouse = LabelOnScreen(c);
      Notify(record.hdr, code);
      // The item is the notification's, the flags are those of the mouse.
      EXPECT_EQ(Callbacks(), std::string("InfoTip b") + onLabel);
      EXPECT_EQ(record.pszText, accepted ? std::get<0>(tip) : buffer);
      EXPECT_EQ(record.cchTextMax, accepted ? std::get<1>(tip) : 7);
      mouse = {-5, -9};
      NotifyOf(-1, code);
      EXPECT_EQ(Callbacks(), "InfoTip -1 0x0000");
    };
    NMTVGETINFOTIPW branch = {};
    branch.hItem = Native(b);
    NMLVGETINFOTIPW row = {};
    row.iItem = static_cast<int>(b);
    IsList() ? expectTip(row, LVN_GETINFOTIPW) : expectTip(branch, TVN_GETINFOTIPW);
  }
  EXPECT_EQ(buffer, Text(TEXT("buffer")));
  EXPECT_EQ(Selected(), "");
}

TEST_P(ViewNotify, LabelEditAsksTheClientAtBothEndsOnTestRuntime) {
  QVLTreeViewStyleExt editable;
  editable.SetStyle(TreeOrList(0u, std::uint32_t{LVS_EDITLABELS}));
  OpenWithItems(QVLS_EDITLABELS, &editable);
  // Otherwise an edit of a row selects it.
  if (IsList()) SetState(b, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
  // Opens the label and, unless that is refused, types and presses Return.
  const auto edit = [this](const WCHAR* typed) {
    const LRESULT opened = IsList() ? Ask(LVM_EDITLABELW, b) : Ask(TVM_EDITLABELW, 0, b);
    if (!opened) return false;
    SendMessageW(reinterpret_cast<HWND>(opened), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(typed));
    SendMessageW(reinterpret_cast<HWND>(opened), WM_KEYDOWN, VK_RETURN, 1);
    PumpMessages();
    return true;
  };
  struct {
    bool refuse;
    bool accept;
    const WCHAR* textAfter;
    const char* callbacks;
  } const cases[] = {
      {true, true, TEXT("b"), "EditBegins"},
      {false, false, TEXT("b"), "EditBegins EditEnds"},
      {false, true, TEXT("new"), TreeOrList("EditBegins EditEnds", "EditBegins EditEnds B b E")},
  };
  for (const auto& row : cases) {
    SetFocus(control);
    client.Take();
    client.onLabelEdit = [&](NMHDR* header, std::uint32_t code) {
      const auto branch = reinterpret_cast<NMTVDISPINFOW*>(header)->item.hItem;
      const auto edited = reinterpret_cast<NMLVDISPINFOW*>(header)->item.iItem;
      EXPECT_EQ(IsList() ? edited : reinterpret_cast<ItemHandle>(branch), b);
      const bool begins = code == TreeOrList(TVN_BEGINLABELEDITW, LVN_BEGINLABELEDITW);
      return begins ? row.refuse : row.accept;
    };
    EXPECT_EQ(edit(TEXT("new")), !row.refuse);
    EXPECT_EQ(Callbacks(), row.callbacks);
    EXPECT_EQ(TextOf(b), row.textAfter);
  }
  view->SetClient(nullptr);
  EXPECT_TRUE(edit(TEXT("newer"))) << "without a client the edit begins";
  EXPECT_EQ(TextOf(b), TEXT("new")) << "and keeps the old text";
}

TEST_P(ViewNotify, ContextRequestSelectsItsItemOnTestRuntime) {
  OpenWithItems();
  view->SetItemSelected(a, true);
  view->SetItemSelected(b, true);
  client.Take();
  RequestMenu(LabelPoint(b));
  EXPECT_EQ(Callbacks(), ContextMenu(LabelPoint(b), "b") + onLabel);
  RequestMenu(OffPoint());
  EXPECT_EQ(Callbacks(), ContextMenu(OffPoint(), "-1 0x0000"));
  Ask(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(control), MAKELPARAM(-1, -1));
  EXPECT_EQ(Callbacks(), "ContextMenu -1,-1 -1 0x0000") << "from the keyboard";
  EXPECT_EQ(Selected(), "ab");
  RequestMenu(LabelPoint(c));
  const std::string selection = TreeOrList("B a b c E ", "B a E B b E B c E ");
  EXPECT_EQ(Callbacks(), selection + ContextMenu(LabelPoint(c), "c") + onLabel);
  if (!IsList()) {
    // The caret stays on an item that is deselected.
    view->SetItemSelected(c, false);
    client.Take();
    RequestMenu(LabelPoint(c));
    EXPECT_EQ(Callbacks(), "B c E " + ContextMenu(LabelPoint(c), "c") + onLabel);
  }
  EXPECT_EQ(Selected(), "c");
  view->SetClient(nullptr);
  RequestMenu(LabelPoint(a));
  EXPECT_EQ(Callbacks() + Selected(), "c") << "nothing happens without a client";
}

TEST_P(ViewNotify, ClientThatIsSetInsideABracketGetsTheRestOfIt) {
  OpenWithItems();
  RecordingClient other;
  other.view = view;
  other.labels = client.labels;
  other.depth = 1;
  client.onBeginSelectionChange = [&] { view->SetClient(&other); };
  view->SetItemSelected(b, true);
  EXPECT_EQ(Callbacks(), "B");
  EXPECT_EQ(Short(other.Take()), "b E");
  view->SetClient(nullptr);
}

// A list ignores the flag and the stored mode.
TEST_P(ViewNotify, DragSelectsItsItem) {
  OpenWithItems(QVLS_NODRAGDROP);
  if (IsList()) view->SetMultiSelect(false);
  view->SetItemSelected(c, true);
  client.Take();
  for (const ItemHandle item : {c, b}) {
    NotifyOf(item, TreeOrList(TVN_BEGINDRAGW, LVN_BEGINDRAG));
    EXPECT_EQ(Callbacks(), item == c ? "BeginDrag c" : "B b E BeginDrag b c");
  }
}

}  // namespace
