// What the list's control and the mouse report to the view's window, what the client hears of it,
// and what is left when the client ends the view meanwhile.

#include <windows.h>

#include <array>
#include <functional>
#include <string>
#include <tuple>

#include "support/fake_drag.h"
#include "support/fake_shell.h"
#include "support/import_patch.h"
#include "support/list_test.h"

namespace {

// Where the last message was.
DWORD messagePosition;
DWORD WINAPI AnswerMessagePosition() { return messagePosition; }

DWORD Packed(POINT point) {
  return static_cast<DWORD>(MAKELONG(static_cast<WORD>(point.x), static_cast<WORD>(point.y)));
}

// The answer of default handling, told from every answer of the view.
constexpr LRESULT DEFAULT_ANSWER = 55;
LRESULT WINAPI AnswerByDefault(HWND, UINT, WPARAM, LPARAM) { return DEFAULT_ANSWER; }

class ListNotifyTest : public ListTest {
 protected:
  LRESULT AskTip(int row, NMLVGETINFOTIPW& record, UINT_PTR id = CONTROL_ID) {
    record.iItem = row;
    return Notify(LVN_GETINFOTIPW, record.hdr, id);
  }
  LRESULT EditNotice(UINT code) {
    NMLVDISPINFOW record = {};
    return Notify(code, record.hdr);
  }
};

TEST_F(ListNotifyTest, OnlyTipsAndDragsMustComeFromTheControl) {
  struct {
    const char* name;
    UINT code;
    Lines heard;
    bool anyId;
  } const cases[] = {
      {"tip", LVN_GETINFOTIPW, {"InfoTip 1 0x0000"}, false},
      {"drag", LVN_BEGINDRAG, {"Begin", "Changed 1", "End", "BeginDrag 1"}, false},
      {"column", LVN_COLUMNCLICK, {"ColumnClick 3"}, true},
      {"change", LVN_ITEMCHANGED, {"Begin", "Changed 1", "End"}, true},
      {"edit begins", LVN_BEGINLABELEDITW, {"LabelEdit LVN_BEGINLABELEDITW"}, true},
      {"edit ends", LVN_ENDLABELEDITW, {"LabelEdit LVN_ENDLABELEDITW"}, true},
      {"other", LVN_KEYDOWN, {}, true},
  };
  messagePosition = 0;
  const ImportPatch patch("GetMessagePos", &AnswerMessagePosition);
  for (const int ownId : {CONTROL_ID, -7}) {
    control = view->Create(host, ownId, 0, 0, WIDTH, HEIGHT, QVLS_LISTVIEW, nullptr);
    parent = GetParent(control);
    view->SetClient(&client);
    AddRows(2);
    for (const auto& c : cases) {
      SCOPED_TRACE(c.name);
      const auto send = [&](UINT_PTR id) {
        view->ClearSelection();
        client.Take();
        if (c.code == LVN_GETINFOTIPW) {
          NMLVGETINFOTIPW tip = {};
          AskTip(1, tip, id);
        } else {
          // Long enough for the record of a label edit as well.
          std::array<NMLISTVIEW, 2> records = {};
          records[0].iItem = 1;
          records[0].iSubItem = 3;
          Notify(c.code, records[0].hdr, id);
        }
        return client.Take();
      };
      EXPECT_EQ(send(static_cast<UINT_PTR>(static_cast<INT_PTR>(ownId))), c.heard);
      EXPECT_EQ(send(static_cast<UINT_PTR>(0x100000000 + ownId)), c.anyId ? c.heard : Lines());
      EXPECT_EQ(send(5), c.anyId ? c.heard : Lines());
    }
  }
}

TEST_F(ListNotifyTest, EverythingButALabelEditEndsInDefaultHandling) {
  Open();
  AddRows(2);
  const ImportPatch patch("DefWindowProcW", &AnswerByDefault);
  const UINT codes[] = {LVN_GETINFOTIPW, LVN_BEGINDRAG,       LVN_COLUMNCLICK,
                        LVN_ITEMCHANGED, LVN_BEGINLABELEDITW, LVN_ENDLABELEDITW};
  const UINT messages[] = {WM_CONTEXTMENU,   WM_DRAWITEM, WM_MEASUREITEM,
                           WM_INITMENUPOPUP, WM_MENUCHAR, WM_SIZE};
  for (const bool listening : {true, false}) {
    view->SetClient(listening ? &client : nullptr);
    client.Take();
    for (const UINT code : codes) {
      const bool edit = code == LVN_BEGINLABELEDITW || code == LVN_ENDLABELEDITW;
      for (const bool answer : {true, false}) {
        client.onLabelEdit = [=](NMHDR*, std::uint32_t) { return answer; };
        std::array<NMLISTVIEW, 2> records = {};
        EXPECT_EQ(Notify(code, records[0].hdr), edit && listening ? answer : DEFAULT_ANSWER)
            << code;
      }
    }
    for (const UINT message : messages) {
      EXPECT_EQ(SendMessageW(parent, message, 0, 0), DEFAULT_ANSWER) << message;
    }
  }
  EXPECT_EQ(client.Take(), Lines());

  // A window that no view is stored in yet.
  const LONG_PTR stored = SetWindowLongPtrW(parent, GWLP_USERDATA, 0);
  view->SetClient(&client);
  EXPECT_EQ(NotifyRow(LVN_ITEMCHANGED, 0), DEFAULT_ANSWER);
  EXPECT_EQ(client.Take(), Lines());
  SetWindowLongPtrW(parent, GWLP_USERDATA, stored);
}

TEST_F(ListNotifyTest, TheTipIsTheClientsOwnMemory) {
  WCHAR own[] = TEXT("own");
  WCHAR buffer[] = TEXT("buffer");
  Open(QVLS_INFOTIP);
  AddRows(3);
  messagePosition = Packed(OnScreen(Part(2, LVIR_LABEL)));
  const ImportPatch patch("GetMessagePos", &AnswerMessagePosition);
  struct {
    bool answer;
    WCHAR* text;
    int length;
  } const cases[] = {{true, own, 3}, {true, own, 0}, {true, nullptr, 0}, {false, own, 3}};
  for (const auto& c : cases) {
    client.onGetInfoTip = [&](ItemHandle, WCHAR** text, int* length) {
      *text = c.text;
      *length = c.length;
      return c.answer;
    };
    NMLVGETINFOTIPW record = {};
    record.pszText = buffer;
    record.cchTextMax = 7;
    AskTip(1, record);
    // The row is the notification's, the flags are those of the mouse.
    EXPECT_EQ(client.Take(), Lines{"InfoTip 1 0x0080"});
    EXPECT_EQ(record.pszText, c.answer ? c.text : buffer);
    EXPECT_EQ(record.cchTextMax, c.answer ? c.length : 7);
  }
  EXPECT_EQ(buffer, std::basic_string<WCHAR>(TEXT("buffer")));
  EXPECT_EQ(SelectedRows(), ItemHandleList());

  messagePosition = Packed({-5, -9});
  NMLVGETINFOTIPW record = {};
  client.onGetInfoTip = nullptr;
  AskTip(-1, record);
  EXPECT_EQ(client.Take(), Lines{"InfoTip -1 0x0000"});
}

TEST_F(ListNotifyTest, LabelEditsGoAsTheClientSays) {
  QVLTreeViewStyleExt editable;
  editable.SetStyle(LVS_EDITLABELS);
  Open(0, &editable);
  AddRows(1);
  bool refuse = false;
  bool accept = false;
  std::basic_string<WCHAR> offered;
  client.onLabelEdit = [&](NMHDR* header, std::uint32_t code) {
    if (code == LVN_BEGINLABELEDITW) return refuse;
    const auto& item = reinterpret_cast<NMLVDISPINFOW*>(header)->item;
    offered = item.pszText ? item.pszText : TEXT("none");
    return accept;
  };
  const auto edit = [&](const WCHAR* text, WPARAM key) {
    SetFocus(control);
    client.Take();
    const auto box = reinterpret_cast<HWND>(SendMessageW(control, LVM_EDITLABELW, 0, 0));
    if (!box) return false;
    SetWindowTextW(box, text);
    SendMessageW(box, WM_KEYDOWN, key, 0);
    return true;
  };
  const Lines begun = {"LabelEdit LVN_BEGINLABELEDITW"};
  const Lines whole = {"LabelEdit LVN_BEGINLABELEDITW", "LabelEdit LVN_ENDLABELEDITW"};

  refuse = true;
  EXPECT_FALSE(edit(TEXT("a"), VK_RETURN));
  EXPECT_EQ(client.Take().back(), begun.back());

  refuse = false;
  EXPECT_TRUE(edit(TEXT("b"), VK_RETURN));
  EXPECT_EQ(offered, TEXT("b"));
  EXPECT_EQ(client.Take(), whole);
  EXPECT_EQ(Text(0), TEXT("row"));

  accept = true;
  EXPECT_TRUE(edit(TEXT("c"), VK_RETURN));
  EXPECT_EQ(Text(0), TEXT("c"));
  EXPECT_EQ(client.Take(), (Lines{whole[0], whole[1], "Begin", "Changed 0", "End"}));

  EXPECT_TRUE(edit(TEXT("d"), VK_ESCAPE));
  EXPECT_EQ(offered, TEXT("none"));
  EXPECT_EQ(Text(0), TEXT("c"));

  view->SetClient(nullptr);
  EXPECT_TRUE(edit(TEXT("e"), VK_RETURN));
  EXPECT_EQ(Text(0), TEXT("c"));
}

TEST_F(ListNotifyTest, AClientThatTakesOverInsideABracketHearsNothingOfIt) {
  Open();
  Insert(TEXT("a"));
  RecordingClient other;
  other.view = view;
  client.onBeginSelectionChange = [&] { view->SetClient(&other); };
  view->SetItemSelected(0, true);
  EXPECT_EQ(client.Take(), Lines{"Begin"});
  EXPECT_EQ(other.Take(), Lines());
  view->SetClient(nullptr);
}

TEST_F(ListNotifyTest, AClickOnATitleNamesTheColumn) {
  for (const std::uint32_t flags : {QVLS_SORTHEADER, 0u}) {
    UseClientColumns({100, 80});
    Open(flags);
    const auto header = reinterpret_cast<HWND>(SendMessageW(control, LVM_GETHEADER, 0, 0));
    for (const int x : {20, 140}) {
      SendMessageW(header, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, 5));
      SendMessageW(header, WM_LBUTTONUP, 0, MAKELPARAM(x, 5));
    }
    EXPECT_EQ(client.Take(), flags ? (Lines{"ColumnClick 0", "ColumnClick 1"}) : Lines());
  }
}

TEST_F(ListNotifyTest, AContextRequestSelectsWhatItIsFor) {
  Open();
  AddRows(3);
  const auto ask = [&](POINT point) {
    client.Take();
    SendMessageW(control, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(control),
                 static_cast<LPARAM>(Packed(point)));
    return client.Take();
  };
  const auto request = [](POINT point, const char* hit) {
    return "ContextMenu " + std::to_string(point.x) + "," + std::to_string(point.y) + " " + hit;
  };
  const POINT second = OnScreen(Part(1, LVIR_LABEL));
  const POINT beside = OnScreen({60, 350, 60, 350});
  view->SetItemSelected(0, true);
  EXPECT_EQ(ask(second), (Lines{"Begin", "Changed 0", "End", "Begin", "Changed 1", "End",
                                request(second, "1 0x0080")}));
  view->SetItemSelected(2, true);
  EXPECT_EQ(ask(second), Lines{request(second, "1 0x0080")});
  EXPECT_EQ(ask(beside), Lines{request(beside, "-1 0x0000")});
  EXPECT_EQ(ask({-1, -1}), Lines{"ContextMenu -1,-1 -1 0x0000"});
  EXPECT_EQ(SelectedRows(), (ItemHandleList{1, 2}));

  view->SetClient(nullptr);
  EXPECT_EQ(ask(OnScreen(Part(0, LVIR_LABEL))), Lines());
  EXPECT_EQ(SelectedRows(), (ItemHandleList{1, 2}));
}

TEST_F(ListNotifyTest, ADraggedRowJoinsTheSelection) {
  const FakeDrag drag;
  client.onBeginDrag = [](ItemHandleList*, FileNameList* files) {
    files->push_back(TEXT("C:\\file"));
    return true;
  };
  // Neither the flag nor the stored mode counts in a list.
  Open(QVLS_NODRAGDROP);
  view->SetMultiSelect(false);
  AddRows(4);
  view->SetItemSelected(3, true);
  client.Take();
  NotifyRow(LVN_BEGINDRAG, 3);
  EXPECT_EQ(client.Take(), Lines{"BeginDrag 3"});
  NotifyRow(LVN_BEGINDRAG, 1);
  EXPECT_EQ(client.Take(), (Lines{"Begin", "Changed 1", "End", "BeginDrag 1 3"}));
  EXPECT_EQ(drag.runs, 2);
}

// Where in a client the host ends the view.
enum class Place { BEGIN, CHANGED, END, COLUMNS, TIP, DRAG, MENU, EDIT, COLUMN_CLICK, CONTEXT };

constexpr Place PLACES[] = {Place::BEGIN,        Place::CHANGED, Place::END,  Place::COLUMNS,
                            Place::TIP,          Place::DRAG,    Place::MENU, Place::EDIT,
                            Place::COLUMN_CLICK, Place::CONTEXT};

class ListEndingTest : public ListNotifyTest,
                       public ::testing::WithParamInterface<std::tuple<Place, Ending>> {
 protected:
  void SetUp() override {
    ListNotifyTest::SetUp();
    if (!At(Place::COLUMNS)) {
      Open(QVLS_CHECKBOXES);
      AddRows(3);
    }
    client.Take();
  }

  static bool At(Place place) { return std::get<Place>(GetParam()) == place; }

  // The first call of the place ends the view. What comes until then is dropped.
  void Arm() {
    const auto end = [this](auto&&...) { return EndOnce(); };
    if (At(Place::BEGIN)) client.onBeginSelectionChange = end;
    if (At(Place::CHANGED)) client.onItemSelectionChanged = end;
    if (At(Place::END)) client.onEndSelectionChange = end;
    if (At(Place::COLUMNS)) client.onCreateColumns = end;
    if (At(Place::TIP)) client.onGetInfoTip = end;
    if (At(Place::EDIT)) client.onLabelEdit = end;
    if (At(Place::COLUMN_CLICK)) client.onColumnClick = end;
    if (At(Place::CONTEXT)) client.onContextMenu = end;
    const auto endAndName = [this](ItemHandleList*, FileNameList* files) {
      files->push_back(TEXT("C:\\file"));
      return EndOnce();
    };
    if (At(Place::DRAG)) client.onBeginDrag = endAndName;
    if (At(Place::MENU)) client.onShellContextMenu = endAndName;
  }

  bool EndOnce() {
    if (ended) return true;
    ended = true;
    End(std::get<Ending>(GetParam()));
    return true;
  }

  // Has the client called at the place, by what the view's window gets.
  void Trigger() {
    switch (std::get<Place>(GetParam())) {
      case Place::BEGIN:
      case Place::CHANGED:
      case Place::END:
        NotifyRow(LVN_ITEMCHANGED, 1);
        break;
      case Place::COLUMNS:
        created = CreateView(QVLS_LISTVIEW);
        break;
      case Place::TIP:
        AskTip(1, tip);
        break;
      case Place::DRAG:
        NotifyRow(LVN_BEGINDRAG, 0);
        break;
      case Place::MENU:
        shown = view->ShowContextMenu(5, 5);
        break;
      case Place::EDIT:
        EXPECT_EQ(EditNotice(LVN_ENDLABELEDITW), 1);
        break;
      case Place::COLUMN_CLICK:
        NotifyRow(LVN_COLUMNCLICK, 0);
        break;
      case Place::CONTEXT:
        SendMessageW(parent, WM_CONTEXTMENU, 0, 0);
        break;
    }
  }

  // A view that is there again after its end works like a new one.
  void ExpectTheNextToWork() {
    client.onBeginSelectionChange = nullptr;
    client.onItemSelectionChanged = nullptr;
    client.onEndSelectionChange = nullptr;
    client.onCreateColumns = nullptr;
    Open();
    AddRows(2);
    view->SelectAll();
    EXPECT_EQ(client.Take(), (Lines{"Begin", "Changed 0", "End", "Begin", "Changed 1", "End"}));
  }

  bool ended = false;
  HWND created = nullptr;
  bool shown = false;
  WCHAR ownTip = 0;
  NMLVGETINFOTIPW tip = {};
};

std::string EndingName(const ::testing::TestParamInfo<ListEndingTest::ParamType>& info) {
  const char* const places[] = {"Begin", "Changed", "End",  "Columns",     "Tip",
                                "Drag",  "Menu",    "Edit", "ColumnClick", "Context"};
  return std::string(places[static_cast<int>(std::get<Place>(info.param))]) +
         ENDING_NAMES[static_cast<int>(std::get<Ending>(info.param))];
}

INSTANTIATE_TEST_SUITE_P(Places, ListEndingTest,
                         ::testing::Combine(::testing::ValuesIn(PLACES),
                                            ::testing::ValuesIn(ENDINGS)),
                         EndingName);

TEST_P(ListEndingTest, NoFurtherCallComes) {
  const FakeDrag drag;
  FakeShell shell;
  const bool viewStays = std::get<Ending>(GetParam()) == Ending::NO_CLIENT;
  if (At(Place::DRAG) || At(Place::MENU)) view->SetItemSelected(0, true);
  client.Take();
  tip.pszText = &ownTip;
  Arm();
  Trigger();
  EXPECT_TRUE(ended);
  EXPECT_EQ(client.Take(), Lines());
  EXPECT_EQ(drag.runs, At(Place::DRAG) && viewStays ? 1 : 0);
  EXPECT_EQ(shown, At(Place::MENU) && viewStays);
  EXPECT_EQ(shell.Take().empty(), !shown);
  EXPECT_EQ(tip.pszText == nullptr, At(Place::TIP) && viewStays);
  EXPECT_EQ(created != nullptr, At(Place::COLUMNS) && viewStays);
  client.depth = 0;
  if (std::get<Ending>(GetParam()) != Ending::RELEASE) ExpectTheNextToWork();
}

}  // namespace
