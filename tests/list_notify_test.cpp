// What the list's control and the mouse report to the view's window, and what the client hears.

#include <windows.h>

#include <string>

#include "support/fake_drag.h"
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

class ListNotifyTest : public ListTest {};

TEST_F(ListNotifyTest, OnlyTipsAndDragsMustComeFromTheControl) {
  struct {
    UINT code;
    bool anyId;
    Lines heard;
  } const cases[] = {
      {LVN_GETINFOTIPW, false, {"InfoTip 1 0x0000"}},
      {LVN_BEGINDRAG, false, {"Begin", "Changed 1", "End", "BeginDrag 1"}},
      {LVN_COLUMNCLICK, true, {"ColumnClick 3"}},
      {LVN_ITEMCHANGED, true, Brackets({1})},
      {LVN_BEGINLABELEDITW, true, {"LabelEdit LVN_BEGINLABELEDITW"}},
      {LVN_ENDLABELEDITW, true, {"LabelEdit LVN_ENDLABELEDITW"}},
      {LVN_KEYDOWN, true, {}},
  };
  messagePosition = 0;
  const ImportPatch patch("GetMessagePos", &AnswerMessagePosition);
  for (const int ownId : {CONTROL_ID, -7}) {
    Open();
    control = view->Create(host, ownId, 0, 0, WIDTH, HEIGHT, QVLS_LISTVIEW, nullptr);
    parent = GetParent(control);
    AddRows(2);
    for (const auto& c : cases) {
      for (const INT_PTR id : {INT_PTR{ownId}, INT_PTR{0x100000000} + ownId, INT_PTR{5}}) {
        view->ClearSelection();
        client.Take();
        NotifyRow(c.code, 1, static_cast<UINT_PTR>(id));
        EXPECT_EQ(client.Take(), c.anyId || id == ownId ? c.heard : Lines()) << c.code;
      }
    }
  }
}

TEST_F(ListNotifyTest, EverythingButALabelEditEndsInDefaultHandling) {
  Open();
  AddRows(2);
  const ImportPatch patch("DefWindowProcW", &AnswerByDefault);
  for (const bool listening : {true, false}) {
    view->SetClient(listening ? &client : nullptr);
    for (const UINT code : {LVN_GETINFOTIPW, LVN_BEGINDRAG, LVN_COLUMNCLICK, LVN_ITEMCHANGED}) {
      EXPECT_EQ(NotifyRow(code, 0), DEFAULT_ANSWER) << code;
    }
    for (const bool answer : {true, false}) {
      client.onLabelEdit = [=](NMHDR*, std::uint32_t) { return answer; };
      for (const UINT code : {LVN_BEGINLABELEDITW, LVN_ENDLABELEDITW}) {
        EXPECT_EQ(NotifyRow(code, 0), listening ? answer : DEFAULT_ANSWER) << code;
      }
    }
    client.Take();
    for (const UINT message :
         {WM_CONTEXTMENU, WM_DRAWITEM, WM_MEASUREITEM, WM_INITMENUPOPUP, WM_MENUCHAR, WM_SIZE}) {
      EXPECT_EQ(SendMessageW(parent, message, 0, 0), DEFAULT_ANSWER) << message;
    }
    EXPECT_EQ(client.Take().size(), listening ? 1u : 0u);
  }

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
  const ImportPatch patch("GetMessagePos", &AnswerMessagePosition);
  struct {
    WCHAR* text;
    int length;
    bool answer;
  } const cases[] = {{own, 3, true}, {own, 0, true}, {nullptr, 0, true}, {own, 3, false}};
  for (const auto& c : cases) {
    client.onGetInfoTip = [&](ItemHandle, WCHAR** text, int* length) {
      *text = c.text;
      *length = c.length;
      return c.answer;
    };
    messagePosition = Packed(LabelOnScreen(2));
    NMLVGETINFOTIPW record = {};
    record.pszText = buffer;
    record.cchTextMax = 7;
    record.iItem = 1;
    Notify(LVN_GETINFOTIPW, record.hdr);
    // The row is the notification's, the flags are those of the mouse.
    EXPECT_EQ(client.Take(), Lines{"InfoTip 1 0x0080"});
    EXPECT_EQ(record.pszText, c.answer ? c.text : buffer);
    EXPECT_EQ(record.cchTextMax, c.answer ? c.length : 7);
    messagePosition = Packed({-5, -9});
    NotifyRow(LVN_GETINFOTIPW, -1);
    EXPECT_EQ(client.Take(), Lines{"InfoTip -1 0x0000"});
  }
  EXPECT_EQ(buffer, std::basic_string<WCHAR>(TEXT("buffer")));
  EXPECT_EQ(SelectedRows(), ItemHandleList());
}

TEST_F(ListNotifyTest, ALabelEditAsksTheClientAtBothEnds) {
  QVLTreeViewStyleExt editable;
  editable.SetStyle(LVS_EDITLABELS);
  Open(0, &editable);
  AddRows(1);
  // An edit of a row without these brings them along.
  SetState(0, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
  const std::string begun = "LabelEdit LVN_BEGINLABELEDITW";
  const Lines whole = {begun, "LabelEdit LVN_ENDLABELEDITW"};
  struct {
    bool refuse;
    bool accept;
    const WCHAR* textAfter;
    Lines heard;
  } const cases[] = {
      {true, true, TEXT("row"), {begun}},
      {false, false, TEXT("row"), whole},
      {false, true, TEXT("new"), {whole[0], whole[1], "Begin", "Changed 0", "End"}},
  };
  for (const auto& c : cases) {
    client.onLabelEdit = [&](NMHDR*, std::uint32_t code) {
      return code == LVN_BEGINLABELEDITW ? c.refuse : c.accept;
    };
    SetFocus(control);
    client.Take();
    const auto edit = reinterpret_cast<HWND>(Ask(LVM_EDITLABELW, 0));
    EXPECT_EQ(edit == nullptr, c.refuse);
    if (edit) {
      SendMessageW(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(TEXT("new")));
      SendMessageW(edit, WM_KEYDOWN, VK_RETURN, 0);
    }
    EXPECT_EQ(client.Take(), c.heard);
    EXPECT_EQ(Text(0), c.textAfter);
  }
}

TEST_F(ListNotifyTest, AClientThatTakesOverInsideABracketHearsNothingOfIt) {
  Open();
  AddRows(1);
  RecordingClient other;
  other.view = view;
  client.onBeginSelectionChange = [&] { view->SetClient(&other); };
  view->SetItemSelected(0, true);
  EXPECT_EQ(client.Take(), Lines{"Begin"});
  EXPECT_EQ(other.Take(), Lines());
  view->SetClient(nullptr);
}

TEST_F(ListNotifyTest, AContextRequestSelectsWhatItIsFor) {
  Open();
  AddRows(3);
  const auto ask = [&](POINT point) {
    client.Take();
    Ask(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(control), static_cast<LPARAM>(Packed(point)));
    return client.Take();
  };
  const auto request = [](POINT point, const char* hit) {
    return Lines{"ContextMenu " + std::to_string(point.x) + "," + std::to_string(point.y) + " " +
                 hit};
  };
  const POINT second = LabelOnScreen(1);
  const POINT beside = OnScreen(60, 350);
  view->SetItemSelected(0, true);
  Lines alone = Brackets({0, 1});
  alone.push_back(request(second, "1 0x0080")[0]);
  EXPECT_EQ(ask(second), alone);
  view->SetItemSelected(2, true);
  EXPECT_EQ(ask(second), request(second, "1 0x0080"));
  EXPECT_EQ(ask(beside), request(beside, "-1 0x0000"));
  EXPECT_EQ(ask({-1, -1}), request({-1, -1}, "-1 0x0000"));
  view->SetClient(nullptr);
  EXPECT_EQ(ask(LabelOnScreen(0)), Lines());
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

}  // namespace
