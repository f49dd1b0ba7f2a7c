// What a host may do inside the tree's callbacks: change the view, let go of it, end it.
#include <functional>
#include <tuple>
#include <vector>

#include "support/tree_gestures.h"

namespace {

class TreeReentryTest;

// Something that makes the view call its client.
struct Flow {
  const char* name;
  bool byControl;  // all the calls come while the control handles a message
  std::function<void(TreeReentryTest&)> run;
};

// What the host does inside one of these calls, about an item of the view.
struct Deed {
  const char* name;
  bool endsFlow;   // no further call is made after it
  bool takesAway;  // the control or an item, which the control itself may be busy with
  std::function<void(TreeReentryTest&, ItemHandle)> run;
};

// The item that a message to the control names, or null.
HTREEITEM NamedItem(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case TVM_GETITEMSTATE:
      return reinterpret_cast<HTREEITEM>(wParam);
    case TVM_GETNEXTITEM:
    case TVM_SELECTITEM:
      return reinterpret_cast<HTREEITEM>(lParam);
    case TVM_SETITEMW:
      return reinterpret_cast<TVITEMW*>(lParam)->hItem;
    default:
      return nullptr;
  }
}

// Stands before the library's SendMessageW: an item that has been deleted must never be named. Only
// the stand-in can be asked whether it has; the platform's control reads what the handle points to.
LRESULT WINAPI CheckingSend(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  TVITEMW item = {};
  item.mask = TVIF_PARAM;
  item.hItem = NamedItem(message, wParam, lParam);
  if (item.hItem && !REAL_CONTROL) {
    EXPECT_NE(SendMessageW(window, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)), 0)
        << "message " << message << " names a deleted item";
  }
  return SendMessageW(window, message, wParam, lParam);
}

class TreeReentryTest : public TreeTest,
                        public ::testing::WithParamInterface<std::tuple<Flow, Deed>> {
 public:
  using TreeTest::host;
  using TreeTest::Item;
  using TreeTest::Key;
  using TreeTest::LabelPoint;
  using TreeTest::MoveCaret;
  using TreeTest::Notify;
  using TreeTest::PartPoint;
  using TreeTest::Press;
  using TreeTest::PressAt;
  using TreeTest::ReleaseView;
  using TreeTest::RequestMenu;
  using TreeTest::ToScreen;
  using TreeTest::view;

  void NotifyTree(UINT code, char item) {
    NMTREEVIEWW record = {};
    record.itemNew.hItem = reinterpret_cast<HTREEITEM>(Item(item));
    Notify(record.hdr, code);
  }

  void CreateAgain(std::uint32_t style) {
    EXPECT_NE(view->Create(host, CONTROL_ID + 1, 0, 0, WIDTH, HEIGHT, style, nullptr), nullptr);
  }

  void EditLabel() {
    const LRESULT edit = SendMessageW(control, TVM_EDITLABELW, 0, Item('Q'));
    if (edit) SendMessageW(reinterpret_cast<HWND>(edit), WM_KEYDOWN, VK_RETURN, 1);
  }

  void InsertSelected(ItemHandle parent) {
    QVLTreeViewItem record;
    record.SetItemName(TEXT("T"));
    record.SetSelected(true);
    view->InsertItem(&record, parent);
  }

 protected:
  // Does the deed inside call number `place`, from 0, of the flow. False if the flow makes fewer.
  bool DoInsideCall(int place, const Flow& flow, const Deed& deed) {
    StartAfresh();
    int count = 0;
    bool done = false;
    insideControl = !(REAL_CONTROL && deed.takesAway);
    HearAll([&](ItemHandle item) {
      if (done || count++ != place) return;
      done = true;
      deed.run(*this, item > 0 ? item : Item('d'));
      client.Take();
    });
    {
      const ImportPatch patch("SendMessageW", &CheckingSend);
      flow.run(*this);
      PumpMessages();
    }
    HearAll({});
    if (done && deed.endsFlow) {
      EXPECT_EQ(Heard(), "");
    } else {
      EXPECT_EQ(client.depth, 0);
    }
    if (view && view->GetControlWindow()) ExpectWhole();
    return done;
  }

 private:
  // P, Q, R and S and, shown below Q, c and d; Q, d and R selected, d the caret.
  void StartAfresh() {
    ReleaseView();
    view = GetIQVLTreeView();
    client = RecordingClient();
    client.view = view;
    Open(QVLS_HASBUTTONS | QVLS_LINESATROOT | QVLS_EDITLABELS);
    Insert(TEXT("c"), Item('Q'));
    Insert(TEXT("d"), Item('Q'));
    Insert(TEXT("e"), Item('R'));
    view->ExpandItem(Item('Q'), true);
    Given("QdR", 'd', '-');
  }

  void HearAll(const std::function<void(ItemHandle)>& called) {
    const auto call = [called](ItemHandle item) {
      if (called) called(item);
      return true;
    };
    client.onBeginSelectionChange = [call] { call(0); };
    client.onEndSelectionChange = client.onBeginSelectionChange;
    client.onContextMenu = [call](int, int, ItemHandle item, std::uint32_t) { call(item); };
    client.onGetInfoTip = [call](ItemHandle item, WCHAR**, int*) { return call(item); };
    client.onBeginDrag = [call](ItemHandleList*, FileNameList*) { return call(0); };
    client.onShellContextMenu = client.onBeginDrag;
    if (insideControl) HearControl(call);
  }

  // The calls that come while the control handles a message.
  void HearControl(const std::function<bool(ItemHandle)>& call) {
    client.onItemSelectionChanged = call;
    client.onItemExpanded = call;
    client.onLabelEdit = [call](NMHDR* record, std::uint32_t code) {
      const TVITEMW& edited = reinterpret_cast<NMTVDISPINFOW*>(record)->item;
      return call(reinterpret_cast<ItemHandle>(edited.hItem)) && code == TVN_ENDLABELEDITW;
    };
  }

  void ExpectWhole() {
    EXPECT_NE(Insert(TEXT("new")), -1);
    view->SelectAll();
    ItemHandleList visible;
    const std::int64_t count = view->GetItems(&visible, true);
    EXPECT_EQ(view->GetSelectedCount(), count);
  }

  // The platform's own control does not survive to lose what it is busy with.
  bool insideControl = true;
};

const Flow FLOWS[] = {
    {"Press", false, [](TreeReentryTest& test) { test.Press('S'); }},
    {"PressOnTheCaret", false, [](TreeReentryTest& test) { test.Press('d'); }},
    {"PressOff", false, [](TreeReentryTest& test) { test.Press('-'); }},
    {"PressOnButton", false,
     [](TreeReentryTest& test) {
       test.PressAt(test.PartPoint(test.Item('Q'), TVHT_ONITEMBUTTON));
     }},
    {"CtrlPress", false, [](TreeReentryTest& test) { test.Press('S', MK_CONTROL); }},
    {"CtrlPressOnTheCaret", false, [](TreeReentryTest& test) { test.Press('d', MK_CONTROL); }},
    {"ShiftPress", false, [](TreeReentryTest& test) { test.Press('S', MK_SHIFT); }},
    {"ShiftPressOnTheCaret", false, [](TreeReentryTest& test) { test.Press('d', MK_SHIFT); }},
    {"ShiftPressOff", false, [](TreeReentryTest& test) { test.Press('-', MK_SHIFT); }},
    {"SinglePress", true,
     [](TreeReentryTest& test) {
       test.view->SetMultiSelect(false);
       test.Press('S');
     }},
    {"ShiftDown", false, [](TreeReentryTest& test) { test.Key(VK_DOWN, true); }},
    {"Down", false, [](TreeReentryTest& test) { test.Key(VK_DOWN); }},
    {"Home", false, [](TreeReentryTest& test) { test.Key(VK_HOME); }},
    {"ExpandByKey", false,
     [](TreeReentryTest& test) {
       test.MoveCaret(test.Item('R'));
       test.Key(VK_RIGHT);
     }},
    {"SetItemSelected", false,
     [](TreeReentryTest& test) { test.view->SetItemSelected(test.Item('S'), true); }},
    {"SelectAll", false, [](TreeReentryTest& test) { test.view->SelectAll(); }},
    {"ClearSelection", false, [](TreeReentryTest& test) { test.view->ClearSelection(); }},
    {"InvertSelection", false, [](TreeReentryTest& test) { test.view->InvertSelection(); }},
    {"ExpandItem", true,
     [](TreeReentryTest& test) { test.view->ExpandItem(test.Item('R'), true); }},
    {"ExpandAll", true, [](TreeReentryTest& test) { test.view->ExpandAll(); }},
    {"InsertItem", true, [](TreeReentryTest& test) { test.InsertSelected(test.Item('Q')); }},
    {"DeleteItem", true, [](TreeReentryTest& test) { test.view->DeleteItem(test.Item('d')); }},
    {"DeleteBranch", true, [](TreeReentryTest& test) { test.view->DeleteItem(test.Item('Q')); }},
    {"ContextRequest", false,
     [](TreeReentryTest& test) { test.RequestMenu(test.LabelPoint(test.Item('S'))); }},
    {"ShowContextMenu", false, [](TreeReentryTest& test) { test.view->ShowContextMenu(5, 5); }},
    {"LabelEdit", true, [](TreeReentryTest& test) { test.EditLabel(); }},
    {"Drag", false, [](TreeReentryTest& test) { test.NotifyTree(TVN_BEGINDRAGW, 'S'); }},
    {"SingleDrag", false,
     [](TreeReentryTest& test) {
       test.view->SetMultiSelect(false);
       test.NotifyTree(TVN_BEGINDRAGW, 'S');
     }},
    {"InfoTip", false,
     [](TreeReentryTest& test) {
       NMTVGETINFOTIPW tip = {};
       tip.hItem = reinterpret_cast<HTREEITEM>(test.Item('S'));
       test.Notify(tip.hdr, TVN_GETINFOTIPW);
     }},
};

const Deed DEEDS[] = {
    {"ClearClient", true, false,
     [](TreeReentryTest& test, ItemHandle) { test.view->SetClient(nullptr); }},
    {"DeleteItem", false, true,
     [](TreeReentryTest& test, ItemHandle item) { test.view->DeleteItem(item); }},
    {"DeleteTarget", false, true,
     [](TreeReentryTest& test, ItemHandle) { test.view->DeleteItem(test.Item('S')); }},
    {"DeleteAll", false, true,
     [](TreeReentryTest& test, ItemHandle) { test.view->DeleteAllItems(); }},
    {"Collapse", false, false,
     [](TreeReentryTest& test, ItemHandle) { test.view->ExpandItem(test.Item('Q'), false); }},
    {"Select", false, false,
     [](TreeReentryTest& test, ItemHandle item) {
       test.view->InvertSelection();
       test.view->SetItemSelected(item, true);
       test.MoveCaret(test.Item('P'));
     }},
    {"Destroy", true, true, [](TreeReentryTest& test, ItemHandle) { test.view->Destroy(); }},
    {"Release", true, true, [](TreeReentryTest& test, ItemHandle) { test.ReleaseView(); }},
    {"CreateTree", true, true, [](TreeReentryTest& test, ItemHandle) { test.CreateAgain(0); }},
    {"CreateList", true, true,
     [](TreeReentryTest& test, ItemHandle) { test.CreateAgain(QVLS_LISTVIEW); }},
};

TEST_P(TreeReentryTest, IsSafeInsideEachCall) {
  const auto& [flow, deed] = GetParam();
  int place = 0;
  while (DoInsideCall(place, flow, deed)) ++place;
  EXPECT_GT(place, 0) << "the flow calls nobody";
}

using Row = std::tuple<Flow, Deed>;

std::vector<Row> Rows() {
  std::vector<Row> rows;
  for (const Flow& flow : FLOWS) {
    for (const Deed& deed : DEEDS) {
      if (!(REAL_CONTROL && flow.byControl && deed.takesAway)) rows.emplace_back(flow, deed);
    }
  }
  return rows;
}

INSTANTIATE_TEST_SUITE_P(Table, TreeReentryTest, ::testing::ValuesIn(Rows()), [](const auto& info) {
  return std::string(std::get<0>(info.param).name) + "_" + std::get<1>(info.param).name;
});

}  // namespace
