// How the windows of a view are created, moved and destroyed; the list's columns and procedure.
#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include "support/each_view.h"
#include "support/replaced_call.h"
#include "support/sent_messages.h"

namespace {

using Text = std::basic_string<WCHAR>;

constexpr DWORD kChild = WS_CHILD | WS_VISIBLE;

// The list's control whatever the flags are.
constexpr DWORD kListStyle = kChild | LVS_REPORT | LVS_SHAREIMAGELISTS | LVS_NOSORTHEADER;
constexpr DWORD kListExtended = LVS_EX_SUBITEMIMAGES | LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP;

// The arguments of CreateWindowExW.
using Creation =
    std::tuple<DWORD, Text, Text, DWORD, int, int, int, int, HWND, HMENU, HINSTANCE, LPVOID>;

class ViewCreate : public EachView {
 protected:
  // Creates a view, and notes how its parent and its control are created.
  void OpenNoted(std::uint32_t flags = 0, QVLTreeViewStyleExt* styleExt = nullptr) {
    creations.clear();
    const Replaced note("CreateWindowExW", &CreateWindowExW, [&](auto... arguments) {
      creations.emplace_back(arguments...);
      storedView = GetWindowLongPtrW(std::get<HWND>(creations.back()), GWLP_USERDATA);
      return CreateWindowExW(arguments...);
    });
    control = view->Create(host, -7, 11, 12, 130, 140, GetParam() | flags, styleExt);
    parent = GetParent(control);
    ASSERT_EQ(creations.size(), 2u);
  }

  void ExpectCreations(DWORD exStyle, DWORD tree, DWORD list, DWORD listExtended) {
    const HINSTANCE library = std::get<HINSTANCE>(creations[0]);
    const Text parentClass = TreeOrList(TEXT("QVLTreeViewParent"), TEXT("QVLListViewParent"));
    const Text controlClass = TreeOrList(TEXT("SysTreeView32"), TEXT("SysListView32"));
    const auto id = reinterpret_cast<HMENU>(INT_PTR{-7});
    EXPECT_EQ(creations[0], Creation(0, parentClass, TEXT("QVL Tree View Parent"), kChild, 11, 12,
                                     130, 140, host, nullptr, library, nullptr));
    EXPECT_EQ(creations[1],
              Creation(WS_EX_CLIENTEDGE | exStyle, controlClass, TEXT("QVL Tree View"),
                       TreeOrList(tree, list), 0, 0, 130, 140, parent, id, library, nullptr));
    EXPECT_TRUE(library && library != GetModuleHandleW(nullptr));
    EXPECT_TRUE(!IsList() || Ask(LVM_GETEXTENDEDLISTVIEWSTYLE) == LRESULT{listExtended});
  }

  std::vector<Creation> creations;
  LONG_PTR storedView = 0;  // in the parent before the control is created
};

INSTANTIATE_TEST_SUITE_P(Views, ViewCreate, kEachView, ViewName);

TEST_P(ViewCreate, ParentsClassIsRegisteredEachTimeAndMayExist) {
  int registrations = 0;
  const Replaced note("RegisterClassW", &RegisterClassW, [&](const WNDCLASSW* made) -> ATOM {
    EXPECT_EQ(std::tuple(made->style, made->hCursor, made->cbClsExtra, made->cbWndExtra),
              std::tuple(CS_HREDRAW | CS_VREDRAW, LoadCursorW(nullptr, IDC_ARROW), 0, 0));
    EXPECT_FALSE(made->hIcon || made->hbrBackground || made->lpszMenuName);
    EXPECT_TRUE(creations.empty() || made->hInstance == std::get<HINSTANCE>(creations[0]));
    return ++registrations == 1 ? RegisterClassW(made) : 0;
  });
  OpenNoted();
  OpenNoted();
  EXPECT_EQ(registrations, 2);
  EXPECT_EQ(view->GetControlWindow(), control);
  EXPECT_NE(storedView, 0);
  EXPECT_EQ(GetWindowLongPtrW(control, GWLP_USERDATA), IsList() ? 0 : storedView);
}

struct FlagRow {
  std::uint32_t flags;
  DWORD tree;
  DWORD list;
  DWORD listExtended;
};

// Which bits each flag changes.
constexpr FlagRow kFlags[] = {
    {0, 0, 0, 0},
    {QVLS_SHOWSELALWAYS, TVS_SHOWSELALWAYS, LVS_SHOWSELALWAYS, 0},
    {QVLS_BORDER, WS_BORDER, WS_BORDER, 0},
    {QVLS_CHECKBOXES, TVS_CHECKBOXES, 0, LVS_EX_CHECKBOXES},
    {QVLS_HASBUTTONS, TVS_HASBUTTONS, 0, 0},
    {QVLS_HASLINES, TVS_HASLINES, 0, LVS_EX_GRIDLINES},
    {QVLS_LINESATROOT, TVS_LINESATROOT, 0, 0},
    {QVLS_INFOTIP, TVS_INFOTIP, 0, LVS_EX_INFOTIP},
    {QVLS_NODRAGDROP, TVS_DISABLEDRAGDROP, 0, 0},
    {QVLS_NOCOLUMNHEADER, 0, LVS_NOCOLUMNHEADER, 0},
    {QVLS_SINGLESEL, 0, LVS_SINGLESEL, 0},
    {QVLS_EDITLABELS, TVS_EDITLABELS, 0, 0},
    {QVLS_FULLROWSELECT, TVS_FULLROWSELECT, 0, 0},
    {QVLS_SORTHEADER, 0, LVS_NOSORTHEADER, 0},
    {0xFFFFC000, 0, 0, 0},
};

TEST_P(ViewCreate, FlagsAndStyleRecordChangeTheirStyles) {
  FlagRow all = {};
  const auto open = [this](const FlagRow& row) {
    SCOPED_TRACE(row.flags);
    const SentMessages sent;
    OpenNoted(row.flags);
    ExpectCreations(0, kChild ^ row.tree, kListStyle ^ row.list, kListExtended ^ row.listExtended);
    EXPECT_EQ(view->GetMultiSelect(), !IsList() && !(row.flags & QVLS_SINGLESEL));
    if (!IsList()) return;
    EXPECT_EQ(sent.Of(LVM_SETEXTENDEDLISTVIEWSTYLE).at(0).wParam, kListExtended ^ row.listExtended)
        << "the other bits are the control's";
  };
  for (const FlagRow& row : kFlags) {
    open(row);
    all = {all.flags | row.flags, all.tree | row.tree, all.list | row.list,
           all.listExtended | row.listExtended};
  }
  open(all);

  constexpr std::uint32_t kStyles =
      LVS_EDITLABELS | LVS_SHOWSELALWAYS;  // a tree has these bits too
  QVLTreeViewStyleExt ext;
  ext.SetStyle(kStyles);
  ext.SetStyleEx(WS_EX_ACCEPTFILES);
  ext.SetStyleExCtrl(LVS_EX_INFOTIP);
  OpenNoted(QVLS_HASLINES, &ext);
  ExpectCreations(WS_EX_ACCEPTFILES, kChild | TVS_HASLINES | kStyles, kListStyle | kStyles,
                  kListExtended | LVS_EX_GRIDLINES | LVS_EX_INFOTIP);
}

TEST_P(ViewCreate, MoveFillsTheParentWithoutRepaintingAndDestroyEndsTheControlFirst) {
  Open();
  std::vector<std::vector<int>> moves;
  std::vector<HWND> destroyed;
  const Replaced move("MoveWindow", &MoveWindow, [&](HWND window, auto... place) {
    moves.push_back({place...});
    return MoveWindow(window, place...);
  });
  const Replaced destroy("DestroyWindow", &DestroyWindow, [&](HWND window) {
    destroyed.push_back(window);
    return DestroyWindow(window);
  });
  EXPECT_TRUE(view->Move(-5, 20, 77, 88));
  EXPECT_EQ(moves, (std::vector<std::vector<int>>{{-5, 20, 77, 88, FALSE}, {0, 0, 77, 88, FALSE}}));
  view->Destroy();
  view->Destroy();
  EXPECT_EQ(destroyed, (std::vector{control, parent}));
  EXPECT_FALSE(IsWindow(parent));
}

TEST_P(ViewCreate, ViewsAreIndependent) {
  Open();
  view->SetMultiSelect(true);
  IQVLTreeView* other = GetIQVLTreeView();
  const std::uint32_t single = GetParam() | QVLS_SINGLESEL;
  ASSERT_NE(other->Create(host, kControlId, 0, 0, 50, 50, single, nullptr), nullptr);
  EXPECT_TRUE(view->GetMultiSelect());
  EXPECT_FALSE(other->GetMultiSelect());
  ReleaseIQVLTreeView(other);
  view->SetItemSelected(Insert(TEXT("a")), true);
  EXPECT_EQ(Callbacks(), "B a E");
  EXPECT_EQ(view->GetSelectedCount(), 1) << "messages still reach the native procedure";
}

class ListCreate : public EachView {
 protected:
  std::string Columns() const {
    const auto header = reinterpret_cast<HWND>(Ask(LVM_GETHEADER));
    const auto count = static_cast<WPARAM>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
    std::string widths;
    for (WPARAM i = 0; i < count; ++i) widths += std::to_string(Ask(LVM_GETCOLUMNWIDTH, i)) + " ";
    return widths;
  }

  // One column as wide as the control.
  std::string WholeWidth() const { return std::to_string(ClientRect().right) + " "; }
};

INSTANTIATE_TEST_SUITE_P(Views, ListCreate, ::testing::Values(QVLS_LISTVIEW), ViewName);

TEST_P(ListCreate, ColumnThatTheClientDoesNotMakeFollowsTheControl) {
  SentMessages sent;
  for (const bool withClient : {false, true}) {
    sent.Forget();
    view->SetClient(withClient ? &client : nullptr);
    client.onCreateColumns = [](HWND, RECT* rect) { return *rect = {0, 0, 5, 5}, false; };
    control = view->Create(host, kControlId, 0, 0, 200, 100, QVLS_LISTVIEW, nullptr);
    const RECT rect = ClientRect();
    const std::string size = std::to_string(rect.right) + "x" + std::to_string(rect.bottom);
    EXPECT_EQ(Callbacks(), withClient ? "CreateColumns " + size : "");
    const SentMessage column = sent.Of(LVM_INSERTCOLUMNW).at(0);
    EXPECT_EQ(std::tuple(column.wParam, column.column.mask, column.column.fmt),
              std::tuple(1, 11, 0));
    EXPECT_EQ(column.column.iSubItem, 0);
    EXPECT_EQ(Columns(), WholeWidth());
  }
  EXPECT_TRUE(view->Move(5, 6, 150, 120));
  EXPECT_EQ(Columns(), WholeWidth());
  const int widthWithoutBar = ClientRect().right;
  EXPECT_LT(widthWithoutBar, 150);
  for (int i = 0; i < 50; ++i) Insert(TEXT("row"));
  EXPECT_TRUE(view->Move(5, 6, 150, 120));
  EXPECT_LT(ClientRect().right, widthWithoutBar);
  EXPECT_EQ(Columns(), WholeWidth());

  const Replaced giant("GetClientRect", &GetClientRect, [](HWND, RECT* rect) {
    return *rect = {0x10, 0, 0x12355, 100}, TRUE;
  });
  sent.Forget();
  view->Move(0, 0, 10, 10);
  const SentMessage width = sent.Of(LVM_SETCOLUMNWIDTH).at(0);
  EXPECT_EQ(width.wParam, 0u);
  EXPECT_EQ(width.lParam, 0x2345) << "the message has 16 bits";
}

TEST_P(ListCreate, ColumnsOfTheClientStayAsTheyAre) {
  client.onCreateColumns = [](HWND list, RECT*) {
    LVCOLUMNW column = {};
    column.mask = LVCF_WIDTH;
    for (column.cx = 90; column.cx > 0; column.cx -= 50) {
      SendMessageW(list, LVM_INSERTCOLUMNW, 9, reinterpret_cast<LPARAM>(&column));
    }
    return true;
  };
  Open();
  EXPECT_TRUE(view->Move(0, 0, 150, 120));
  EXPECT_EQ(Columns(), "90 40 ");

  // A second Create without a client does not keep the first one's answer.
  view->SetClient(nullptr);
  control = view->Create(host, kControlId, 0, 0, 200, 100, QVLS_LISTVIEW, nullptr);
  view->SetClient(&client);
  EXPECT_EQ(Callbacks(), "");
  view->Move(0, 0, 120, 100);
  EXPECT_EQ(Columns(), WholeWidth());
}

// A procedure that other code of the host puts on the control before the library can.
WNDPROC formerProc = nullptr;
int otherMessages = 0;
LRESULT CALLBACK OtherProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  ++otherMessages;
  return CallWindowProcW(formerProc, window, message, wParam, lParam);
}

// The library replaces the class procedure alone; without that, drawing is not suspended.
TEST_P(ListCreate, ProcedureOfOthersStaysAndGetsEveryMessage) {
  const auto redrawRequests = [this] {
    for (int i = 0; i < 20; ++i) Insert(TEXT("row"));
    const SentMessages sent;
    view->SelectAll();
    EXPECT_EQ(view->GetSelectedCount(), 20);
    return sent.Of(WM_SETREDRAW).size();
  };
  {
    const Replaced create("CreateWindowExW", &CreateWindowExW, [](auto... arguments) {
      const HWND made = CreateWindowExW(arguments...);
      if (std::get<1>(std::tuple(arguments...)) != Text(WC_LISTVIEWW)) return made;
      const LONG_PTR former =
          SetWindowLongPtrW(made, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&OtherProc));
      formerProc = reinterpret_cast<WNDPROC>(former);
      return made;
    });
    Open();
  }
  otherMessages = 0;
  EXPECT_EQ(redrawRequests(), 0u);
  EXPECT_GE(otherMessages, 40);
  {
    const Replaced ansi("IsWindowUnicode", &IsWindowUnicode, [](HWND) { return FALSE; });
    Open();
  }
  EXPECT_EQ(redrawRequests(), 0u) << "the procedure cannot be called directly";
  Open();
  EXPECT_EQ(redrawRequests(), 2u);
}

}  // namespace
