// How a tree's two windows come into being and go away.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/host_window.h"
#include "support/import_patch.h"

namespace {

using Text = std::basic_string<WCHAR>;

constexpr DWORD CHILD = 0x50000000;  // WS_CHILD and WS_VISIBLE
constexpr DWORD CLIENT_EDGE = WS_EX_CLIENTEDGE;

// The arguments of one CreateWindowExW of the library.
struct Creation {
  DWORD exStyle;
  Text className;
  Text title;
  DWORD style;
  std::string place;
  HWND parent;
  LONG_PTR id;
  HINSTANCE instance;
  LPVOID parameter;
  LONG_PTR userDataOfParent;
  HWND made;
};

std::vector<Creation> creations;
std::vector<WNDCLASSW> classes;
Text classNameRegistered;
std::vector<HWND> destroyed;
std::vector<std::string> moves;

std::string Place(int x, int y, int width, int height) {
  return std::to_string(x) + "," + std::to_string(y) + " " + std::to_string(width) + "x" +
         std::to_string(height);
}

HWND WINAPI NoteCreation(DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style, int x, int y,
                         int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                         LPVOID parameter) {
  const LONG_PTR userData = GetWindowLongPtrW(parent, GWLP_USERDATA);
  const HWND made = CreateWindowExW(exStyle, className, title, style, x, y, width, height, parent,
                                    menu, instance, parameter);
  creations.push_back({exStyle, className, title, style, Place(x, y, width, height), parent,
                       reinterpret_cast<LONG_PTR>(menu), instance, parameter, userData, made});
  return made;
}

ATOM WINAPI NoteClass(const WNDCLASSW* windowClass) {
  classes.push_back(*windowClass);
  classNameRegistered = windowClass->lpszClassName;
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

class TreeCreate : public HostTest {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    creations.clear();
    classes.clear();
    destroyed.clear();
    moves.clear();
  }

  ImportPatch noteCreation{"CreateWindowExW", &NoteCreation};
};

TEST_F(TreeCreate, MakesTheParentThenTheControl) {
  const HWND control = view->Create(host, -7, 11, 12, 130, 140, 0, nullptr);
  EXPECT_EQ(view->GetControlWindow(), control);
  ASSERT_EQ(creations.size(), 2u);
  const Creation& parent = creations[0];
  EXPECT_EQ(parent.exStyle, 0u);
  EXPECT_EQ(parent.className, TEXT("QVLTreeViewParent"));
  EXPECT_EQ(parent.title, TEXT("QVL Tree View Parent"));
  EXPECT_EQ(parent.style, CHILD);
  EXPECT_EQ(parent.place, "11,12 130x140");
  EXPECT_EQ(parent.parent, host);
  EXPECT_EQ(parent.id, 0);
  const Creation& tree = creations[1];
  EXPECT_EQ(tree.exStyle, CLIENT_EDGE);
  EXPECT_EQ(tree.className, TEXT("SysTreeView32"));
  EXPECT_EQ(tree.title, TEXT("QVL Tree View"));
  EXPECT_EQ(tree.style, CHILD);
  EXPECT_EQ(tree.place, "0,0 130x140");
  EXPECT_EQ(tree.parent, parent.made);
  EXPECT_EQ(tree.id, -7);
  EXPECT_EQ(tree.made, control);
  EXPECT_NE(tree.userDataOfParent, 0) << "what the control sends while it is made is lost";
  EXPECT_EQ(GetWindowLongPtrW(control, GWLP_USERDATA), tree.userDataOfParent);
  for (const Creation& creation : creations) {
    EXPECT_EQ(creation.parameter, nullptr);
    EXPECT_EQ(creation.instance, parent.instance);
    EXPECT_NE(creation.instance, nullptr);
    EXPECT_NE(creation.instance, GetModuleHandleW(nullptr)) << "that is the program";
  }
}

TEST_F(TreeCreate, RegistersTheParentsClassEachTimeAndLooksAtNoResult) {
  {
    const ImportPatch note("RegisterClassW", &NoteClass);
    ASSERT_NE(CreateView(), nullptr);
    ASSERT_NE(CreateView(), nullptr);
  }
  ASSERT_EQ(classes.size(), 2u);
  for (const WNDCLASSW& made : classes) {
    EXPECT_EQ(made.style, static_cast<UINT>(CS_HREDRAW | CS_VREDRAW));
    EXPECT_NE(made.lpfnWndProc, nullptr);
    EXPECT_EQ(made.cbClsExtra, 0);
    EXPECT_EQ(made.cbWndExtra, 0);
    EXPECT_EQ(made.hInstance, creations[0].instance);
    EXPECT_EQ(made.hIcon, nullptr);
    EXPECT_EQ(made.hCursor, LoadCursorW(nullptr, IDC_ARROW));
    EXPECT_EQ(made.hbrBackground, nullptr);
    EXPECT_EQ(made.lpszMenuName, nullptr);
  }
  EXPECT_EQ(classNameRegistered, TEXT("QVLTreeViewParent"));
  const ImportPatch refuse("RegisterClassW", &RefuseClass);
  EXPECT_NE(CreateView(), nullptr) << "the class is there from the views before";
}

TEST_F(TreeCreate, EachFlagGivesItsStyle) {
  struct Row {
    std::uint32_t flag;
    DWORD native;
  };
  constexpr Row ROWS[] = {
      {QVLS_SHOWSELALWAYS, TVS_SHOWSELALWAYS},
      {QVLS_BORDER, WS_BORDER},
      {QVLS_CHECKBOXES, TVS_CHECKBOXES},
      {QVLS_HASBUTTONS, TVS_HASBUTTONS},
      {QVLS_HASLINES, TVS_HASLINES},
      {QVLS_LINESATROOT, TVS_LINESATROOT},
      {QVLS_INFOTIP, TVS_INFOTIP},
      {QVLS_NODRAGDROP, TVS_DISABLEDRAGDROP},
      {QVLS_EDITLABELS, TVS_EDITLABELS},
      {QVLS_FULLROWSELECT, TVS_FULLROWSELECT},
      {QVLS_NOCOLUMNHEADER | QVLS_SINGLESEL | QVLS_SORTHEADER | 0xFFFF4000, 0},
  };
  std::uint32_t allFlags = 0;
  DWORD allStyles = CHILD;
  for (const Row& row : ROWS) {
    CreateView(row.flag);
    EXPECT_EQ(creations.back().style, CHILD | row.native) << std::hex << row.flag;
    EXPECT_EQ(creations[creations.size() - 2].style, CHILD) << "flags are not the parent's";
    allFlags |= row.flag;
    allStyles |= row.native;
  }
  CreateView(allFlags);
  EXPECT_EQ(creations.back().style, allStyles);
}

TEST_F(TreeCreate, StyleExtAddsItsBits) {
  QVLTreeViewStyleExt ext;
  ext.SetStyleExCtrl(0xFFFFFFFF);  // the list's word
  CreateView(QVLS_HASLINES, &ext);
  EXPECT_EQ(creations.back().style, CHILD | TVS_HASLINES);
  EXPECT_EQ(creations.back().exStyle, CLIENT_EDGE);
  ext.SetStyle(TVS_TRACKSELECT | TVS_HASBUTTONS);
  ext.SetStyleEx(WS_EX_ACCEPTFILES);
  CreateView(QVLS_HASLINES, &ext);
  EXPECT_EQ(creations.back().style, CHILD | TVS_HASLINES | TVS_TRACKSELECT | TVS_HASBUTTONS);
  EXPECT_EQ(creations.back().exStyle, CLIENT_EDGE | WS_EX_ACCEPTFILES);
  const Creation& parent = creations[creations.size() - 2];
  EXPECT_EQ(parent.style, CHILD);
  EXPECT_EQ(parent.exStyle, 0u);
}

TEST_F(TreeCreate, MoveFillsTheParentWithoutRepainting) {
  ASSERT_NE(CreateView(), nullptr);
  const ImportPatch note("MoveWindow", &NoteMove);
  EXPECT_TRUE(view->Move(-5, 20, 77, 88));
  EXPECT_EQ(moves, (std::vector<std::string>{"-5,20 77x88", "0,0 77x88"}));
}

TEST_F(TreeCreate, DestroyEndsTheControlThenTheParent) {
  const HWND control = CreateView();
  const HWND parent = GetParent(control);
  const ImportPatch note("DestroyWindow", &NoteDestroy);
  view->Destroy();
  view->Destroy();
  EXPECT_EQ(destroyed, (std::vector<HWND>{control, parent}));
  EXPECT_FALSE(IsWindow(parent));
  EXPECT_EQ(view->GetControlWindow(), nullptr);
  EXPECT_FALSE(view->GetMultiSelect());
}

TEST_F(TreeCreate, ViewsAreIndependent) {
  ASSERT_NE(CreateView(), nullptr);
  IQVLTreeView* other = GetIQVLTreeView();
  ASSERT_NE(other->Create(host, CONTROL_ID, 0, 0, 50, 50, QVLS_SINGLESEL, nullptr), nullptr);
  EXPECT_TRUE(view->GetMultiSelect());
  EXPECT_FALSE(other->GetMultiSelect());
  ReleaseIQVLTreeView(other);
  view->SetItemSelected(Insert(TEXT("a")), true);
  EXPECT_EQ(client.Take(), (Lines{"Begin", "Changed a", "End"}));
  EXPECT_EQ(view->GetSelectedCount(), 1) << "messages still find the native procedure";
}

}  // namespace
