// How the two windows of a view come into being, move and go away.
#include <string>
#include <vector>

#include "support/each_view.h"
#include "support/import_patch.h"
#include "support/sent_messages.h"

namespace {

using Text = std::basic_string<WCHAR>;

constexpr DWORD CHILD = 0x50000000;  // WS_CHILD and WS_VISIBLE

// What the list's control is made with, whatever the flags are.
constexpr DWORD LIST_STYLE = CHILD | LVS_REPORT | LVS_SHAREIMAGELISTS | LVS_NOSORTHEADER;
constexpr DWORD LIST_OWN_STYLE = LVS_EX_SUBITEMIMAGES | LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP;

// One CreateWindowExW of the library.
struct Creation {
  DWORD exStyle;
  Text names;  // of class and window
  DWORD style;
  std::string place;
  HWND parent;
  LONG_PTR id;
  HINSTANCE instance;
  LONG_PTR userDataOfParent;
  HWND made;
};

std::vector<Creation> creations;
std::vector<WNDCLASSW> classes;
std::vector<HWND> destroyed;
std::vector<std::string> moves;

std::string Place(int x, int y, int width, int height) {
  return std::to_string(x) + "," + std::to_string(y) + " " + std::to_string(width) + "x" +
         std::to_string(height);
}

HWND WINAPI NoteCreation(DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style, int x, int y,
                         int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                         LPVOID parameter) {
  EXPECT_EQ(parameter, nullptr);
  const LONG_PTR userData = GetWindowLongPtrW(parent, GWLP_USERDATA);
  const HWND made = CreateWindowExW(exStyle, className, title, style, x, y, width, height, parent,
                                    menu, instance, parameter);
  creations.push_back({exStyle, Text(className) + TEXT(": ") + title, style,
                       Place(x, y, width, height), parent, reinterpret_cast<LONG_PTR>(menu),
                       instance, userData, made});
  return made;
}

ATOM WINAPI NoteClass(const WNDCLASSW* windowClass) {
  classes.push_back(*windowClass);
  return RegisterClassW(windowClass);
}

ATOM WINAPI RefuseClass(const WNDCLASSW*) { return 0; }

BOOL WINAPI NoteDestroy(HWND window) {
  destroyed.push_back(window);
  return DestroyWindow(window);
}

BOOL WINAPI NoteMove(HWND window, int x, int y, int width, int height, BOOL repaint) {
  moves.push_back(Place(x, y, width, height) + (repaint ? " repainted" : ""));
  return MoveWindow(window, x, y, width, height, repaint);
}

class ViewCreate : public EachView {
 protected:
  void SetUp() override {
    EachView::SetUp();
    creations.clear();
    classes.clear();
    destroyed.clear();
    moves.clear();
  }

  // The styles of the last control. Its parent is the same whatever the flags are.
  void ExpectStyles(DWORD exStyle, DWORD tree, DWORD list, DWORD listOwn) {
    const Creation& outer = creations[creations.size() - 2];
    EXPECT_EQ(outer.style, CHILD);
    EXPECT_EQ(outer.exStyle, 0u);
    EXPECT_EQ(creations.back().style, TreeOrList(tree, list));
    EXPECT_EQ(creations.back().exStyle, WS_EX_CLIENTEDGE | exStyle);
    EXPECT_TRUE(!IsList() || Ask(LVM_GETEXTENDEDLISTVIEWSTYLE) == LRESULT{listOwn});
  }

  ImportPatch noteCreation{"CreateWindowExW", &NoteCreation};
};

INSTANTIATE_TEST_SUITE_P(Views, ViewCreate, EACH_VIEW, ViewName);

TEST_P(ViewCreate, MakesTheParentThenTheControl) {
  control = view->Create(host, -7, 11, 12, 130, 140, GetParam(), nullptr);
  EXPECT_EQ(view->GetControlWindow(), control);
  ASSERT_EQ(creations.size(), 2u);
  const Creation& outer = creations[0];
  EXPECT_EQ(outer.names, TreeOrList(TEXT("QVLTreeViewParent: QVL Tree View Parent"),
                                    TEXT("QVLListViewParent: QVL Tree View Parent")));
  EXPECT_EQ(outer.place, "11,12 130x140");
  EXPECT_EQ(outer.parent, host);
  EXPECT_EQ(outer.id, 0);
  const Creation& inner = creations[1];
  EXPECT_EQ(inner.names,
            TreeOrList(TEXT("SysTreeView32: QVL Tree View"), TEXT("SysListView32: QVL Tree View")));
  EXPECT_EQ(inner.place, "0,0 130x140");
  EXPECT_EQ(inner.parent, outer.made);
  EXPECT_EQ(inner.id, -7);
  EXPECT_EQ(inner.made, control);
  EXPECT_NE(inner.userDataOfParent, 0) << "what the control sends while it is made is lost";
  // A list's is the host's.
  EXPECT_EQ(GetWindowLongPtrW(control, GWLP_USERDATA), TreeOrList(inner.userDataOfParent, LONG_PTR{0}));
  EXPECT_EQ(inner.instance, outer.instance);
  EXPECT_NE(inner.instance, nullptr);
  EXPECT_NE(inner.instance, GetModuleHandleW(nullptr)) << "that is the program";
}

TEST_P(ViewCreate, RegistersTheParentsClassEachTimeAndLooksAtNoResult) {
  {
    const ImportPatch note("RegisterClassW", &NoteClass);
    Open();
    Open();
  }
  ASSERT_EQ(classes.size(), 2u);
  for (const WNDCLASSW& made : classes) {
    EXPECT_EQ(made.style, static_cast<UINT>(CS_HREDRAW | CS_VREDRAW));
    EXPECT_NE(made.lpfnWndProc, nullptr);
    EXPECT_EQ(made.hInstance, creations[0].instance);
    EXPECT_EQ(made.hCursor, LoadCursorW(nullptr, IDC_ARROW));
    EXPECT_EQ(made.cbClsExtra + made.cbWndExtra, 0);
    EXPECT_FALSE(made.hIcon || made.hbrBackground || made.lpszMenuName);
    EXPECT_TRUE(creations[0].names.starts_with(made.lpszClassName));
  }
  const ImportPatch refuse("RegisterClassW", &RefuseClass);
  Open();  // the class is there from the views before
}

struct FlagRow {
  std::uint32_t flags;
  DWORD tree;
  DWORD list;
  DWORD listOwn;
};

// Which bits each flag changes.
constexpr FlagRow FLAGS[] = {
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

TEST_P(ViewCreate, EachFlagChangesItsStyle) {
  FlagRow all = {};
  for (const FlagRow& row : FLAGS) {
    SCOPED_TRACE(row.flags);
    Open(row.flags);
    ExpectStyles(0, CHILD ^ row.tree, LIST_STYLE ^ row.list, LIST_OWN_STYLE ^ row.listOwn);
    EXPECT_EQ(view->GetMultiSelect(), !IsList() && row.flags != QVLS_SINGLESEL);
    all.flags |= row.flags;
    all.tree |= row.tree;
    all.list |= row.list;
    all.listOwn |= row.listOwn;
  }
  const SentMessages sent;
  Open(all.flags);
  ExpectStyles(0, CHILD ^ all.tree, LIST_STYLE ^ all.list, LIST_OWN_STYLE ^ all.listOwn);
  const auto styles = sent.Of(LVM_SETEXTENDEDLISTVIEWSTYLE);
  ASSERT_EQ(styles.size(), TreeOrList(0u, 1u));
  EXPECT_TRUE(!IsList() || styles[0].wParam == (LIST_OWN_STYLE ^ all.listOwn))
      << "the rest is the control's";
}

TEST_P(ViewCreate, TheStyleRecordAddsItsBits) {
  constexpr std::uint32_t STYLES = LVS_EDITLABELS | LVS_SHOWSELALWAYS;  // a tree has such too
  QVLTreeViewStyleExt ext;
  ext.SetStyle(STYLES);
  ext.SetStyleEx(WS_EX_ACCEPTFILES);
  ext.SetStyleExCtrl(LVS_EX_INFOTIP);
  Open(QVLS_HASLINES, &ext);
  ExpectStyles(WS_EX_ACCEPTFILES, CHILD | TVS_HASLINES | STYLES, LIST_STYLE | STYLES,
               LIST_OWN_STYLE | LVS_EX_GRIDLINES | LVS_EX_INFOTIP);
}

TEST_P(ViewCreate, MoveFillsTheParentWithoutRepainting) {
  Open();
  const ImportPatch note("MoveWindow", &NoteMove);
  EXPECT_TRUE(view->Move(-5, 20, 77, 88));
  EXPECT_EQ(moves, (std::vector<std::string>{"-5,20 77x88", "0,0 77x88"}));
}

TEST_P(ViewCreate, DestroyEndsTheControlThenTheParent) {
  Open();
  view->SetMultiSelect(true);
  const ImportPatch note("DestroyWindow", &NoteDestroy);
  view->Destroy();
  view->Destroy();
  EXPECT_EQ(destroyed, (std::vector<HWND>{control, parent}));
  EXPECT_FALSE(IsWindow(parent));
  EXPECT_EQ(view->GetControlWindow(), nullptr);
  EXPECT_FALSE(view->GetMultiSelect());
}

TEST_P(ViewCreate, ViewsAreIndependent) {
  Open();
  view->SetMultiSelect(true);
  IQVLTreeView* other = GetIQVLTreeView();
  const std::uint32_t single = GetParam() | QVLS_SINGLESEL;
  ASSERT_NE(other->Create(host, CONTROL_ID, 0, 0, 50, 50, single, nullptr), nullptr);
  EXPECT_TRUE(view->GetMultiSelect());
  EXPECT_FALSE(other->GetMultiSelect());
  ReleaseIQVLTreeView(other);
  view->SetItemSelected(Insert(TEXT("a")), true);
  EXPECT_EQ(Heard(), "B a E");
  EXPECT_EQ(view->GetSelectedCount(), 1) << "messages still find the native procedure";
}

}  // namespace
