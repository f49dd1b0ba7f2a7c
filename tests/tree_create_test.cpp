// How a tree's two windows come into being and go away.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "qvl.h"
#include "support/host_window.h"
#include "support/import_patch.h"

namespace {

using Text = std::basic_string<WCHAR>;

constexpr DWORD CHILD = 0x50000000;  // WS_CHILD and WS_VISIBLE

// The arguments of one CreateWindowExW of the library.
struct Creation {
  DWORD exStyle;
  Text className;
  Text title;
  DWORD style;
  RECT place;  // the right and bottom fields hold width and height
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
std::function<void()> beforeDestroy;

HWND WINAPI NoteCreation(DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style, int x, int y,
                         int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                         LPVOID parameter) {
  Creation call{exStyle,
                className,
                title,
                style,
                {x, y, width, height},
                parent,
                reinterpret_cast<LONG_PTR>(menu),
                instance,
                parameter,
                GetWindowLongPtrW(parent, GWLP_USERDATA),
                nullptr};
  call.made = CreateWindowExW(exStyle, className, title, style, x, y, width, height, parent, menu,
                              instance, parameter);
  creations.push_back(call);
  return call.made;
}

ATOM WINAPI NoteClass(const WNDCLASSW* windowClass) {
  classes.push_back(*windowClass);
  classNameRegistered = windowClass->lpszClassName;
  return RegisterClassW(windowClass);
}

ATOM WINAPI RefuseClass(const WNDCLASSW*) { return 0; }

BOOL WINAPI NoteDestroy(HWND window) {
  destroyed.push_back(window);
  if (beforeDestroy) beforeDestroy();
  return DestroyWindow(window);
}

BOOL WINAPI NoteMove(HWND window, int x, int y, int width, int height, BOOL repaint) {
  std::string line;
  for (const int value : {x, y, width, height, repaint}) line += std::to_string(value) + " ";
  moves.push_back(line);
  return MoveWindow(window, x, y, width, height, repaint);
}

RECT PlaceInParent(HWND window) {
  RECT rect = {};
  GetWindowRect(window, &rect);
  POINT corner = {rect.left, rect.top};
  ScreenToClient(GetParent(window), &corner);
  return {corner.x, corner.y, rect.right - rect.left, rect.bottom - rect.top};
}

std::string Words(const RECT& rect) {
  return std::to_string(rect.left) + "," + std::to_string(rect.top) + " " +
         std::to_string(rect.right) + "x" + std::to_string(rect.bottom);
}

Text ClassOf(HWND window) {
  WCHAR name[100] = {};
  GetClassNameW(window, name, 100);
  return name;
}

class TreeCreate : public HostTest {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    creations.clear();
    classes.clear();
    destroyed.clear();
    moves.clear();
    beforeDestroy = nullptr;
    view->SetClient(&client);
  }

  DWORD StyleAfter(std::uint32_t flags, QVLTreeViewStyleExt* styleExt = nullptr) {
    const HWND control = CreateView(flags, styleExt);
    return static_cast<DWORD>(GetWindowLongPtrW(control, GWL_STYLE));
  }

  ImportPatch noteCreation{"CreateWindowExW", &NoteCreation};
};

TEST_F(TreeCreate, MakesTheParentThenTheControl) {
  const HWND control = view->Create(host, -7, 11, 12, 130, 140, 0, nullptr);
  ASSERT_EQ(creations.size(), 2u);
  const Creation& parent = creations[0];
  EXPECT_EQ(parent.exStyle, 0u);
  EXPECT_EQ(parent.className, TEXT("QVLTreeViewParent"));
  EXPECT_EQ(parent.title, TEXT("QVL Tree View Parent"));
  EXPECT_EQ(parent.style, CHILD);
  EXPECT_EQ(Words(parent.place), "11,12 130x140");
  EXPECT_EQ(parent.parent, host);
  EXPECT_EQ(parent.id, 0);
  EXPECT_EQ(parent.parameter, nullptr);
  const Creation& tree = creations[1];
  EXPECT_EQ(tree.exStyle, static_cast<DWORD>(WS_EX_CLIENTEDGE));
  EXPECT_EQ(tree.className, TEXT("SysTreeView32"));
  EXPECT_EQ(tree.title, TEXT("QVL Tree View"));
  EXPECT_EQ(tree.style, CHILD);
  EXPECT_EQ(Words(tree.place), "0,0 130x140");
  EXPECT_EQ(tree.parent, parent.made);
  EXPECT_EQ(tree.id, -7);
  EXPECT_EQ(tree.parameter, nullptr);
  EXPECT_NE(tree.userDataOfParent, 0) << "what the control sends while it is made is lost";
  EXPECT_EQ(tree.made, control);
  EXPECT_EQ(view->GetControlWindow(), control);
  EXPECT_NE(tree.instance, nullptr);
  EXPECT_EQ(tree.instance, parent.instance);
  EXPECT_NE(tree.instance, GetModuleHandleW(nullptr)) << "that is the program, not the library";
}

TEST_F(TreeCreate, WindowsAreAsAskedFor) {
  const HWND control = view->Create(host, CONTROL_ID, 11, 12, 130, 140, 0, nullptr);
  const HWND parent = GetParent(control);
  EXPECT_EQ(ClassOf(parent), TEXT("QVLTreeViewParent"));
  EXPECT_EQ(ClassOf(control), TEXT("SysTreeView32"));
  EXPECT_EQ(GetParent(parent), host);
  EXPECT_EQ(Words(PlaceInParent(parent)), "11,12 130x140");
  EXPECT_EQ(Words(PlaceInParent(control)), "0,0 130x140");
  EXPECT_EQ(GetDlgCtrlID(control), CONTROL_ID);
  EXPECT_TRUE(IsWindowVisible(control));
  EXPECT_NE(GetWindowLongPtrW(control, GWLP_USERDATA), 0);
  EXPECT_EQ(GetWindowLongPtrW(control, GWLP_USERDATA), GetWindowLongPtrW(parent, GWLP_USERDATA));
  WNDCLASSW native = {};
  ASSERT_TRUE(GetClassInfoW(nullptr, TEXT("SysTreeView32"), &native));
  EXPECT_NE(GetWindowLongPtrW(control, GWLP_WNDPROC),
            reinterpret_cast<LONG_PTR>(native.lpfnWndProc));
}

TEST_F(TreeCreate, RegistersTheParentsClassEachTimeAndLooksAtNoResult) {
  {
    ImportPatch note("RegisterClassW", &NoteClass);
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
  ImportPatch refuse("RegisterClassW", &RefuseClass);
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
      {QVLS_NOCOLUMNHEADER, 0},
      {QVLS_SINGLESEL, 0},
      {QVLS_EDITLABELS, TVS_EDITLABELS},
      {QVLS_FULLROWSELECT, TVS_FULLROWSELECT},
      {QVLS_SORTHEADER, 0},
      {0x4000, 0},
      {0xFFFF0000, 0},
  };
  // The scroll bars come and go by themselves.
  constexpr DWORD OWN = 0xFFFFFFFF & ~static_cast<DWORD>(WS_VSCROLL | WS_HSCROLL);
  std::uint32_t allFlags = 0;
  DWORD allStyles = CHILD;
  for (const Row& row : ROWS) {
    const DWORD after = StyleAfter(row.flag);
    EXPECT_EQ(creations.back().style, CHILD | row.native) << std::hex << row.flag;
    EXPECT_EQ(after & (0xFFFF | WS_BORDER), row.native) << std::hex << row.flag;
    EXPECT_EQ(creations.back().exStyle, static_cast<DWORD>(WS_EX_CLIENTEDGE));
    EXPECT_EQ(creations[creations.size() - 2].style, CHILD) << "flags are not the parent's";
    allFlags |= row.flag;
    allStyles |= row.native;
  }
  EXPECT_EQ(StyleAfter(allFlags) & OWN, allStyles);
}

TEST_F(TreeCreate, StyleExtAddsItsBits) {
  QVLTreeViewStyleExt ext;
  const DWORD plain = StyleAfter(QVLS_HASLINES);
  EXPECT_EQ(StyleAfter(QVLS_HASLINES, &ext), plain) << "an empty one is as none";
  EXPECT_EQ(creations.back().exStyle, static_cast<DWORD>(WS_EX_CLIENTEDGE));
  ext.SetStyleExCtrl(0xFFFFFFFF);
  EXPECT_EQ(StyleAfter(QVLS_HASLINES, &ext), plain) << "the list's word is none of the tree's";
  ext.SetStyle(TVS_TRACKSELECT | TVS_HASBUTTONS);
  ext.SetStyleEx(WS_EX_ACCEPTFILES);
  const DWORD after = StyleAfter(QVLS_HASLINES, &ext);
  EXPECT_EQ(after & 0xFFFF, static_cast<DWORD>(TVS_TRACKSELECT | TVS_HASBUTTONS | TVS_HASLINES));
  EXPECT_EQ(creations.back().exStyle, static_cast<DWORD>(WS_EX_CLIENTEDGE | WS_EX_ACCEPTFILES));
  const Creation& parent = creations[creations.size() - 2];
  EXPECT_EQ(parent.style, CHILD);
  EXPECT_EQ(parent.exStyle, 0u);
}

TEST_F(TreeCreate, MoveFillsTheParentWithoutRepainting) {
  const HWND control = CreateView();
  {
    ImportPatch note("MoveWindow", &NoteMove);
    EXPECT_TRUE(view->Move(-5, 20, 77, 88));
  }
  EXPECT_EQ(moves, (std::vector<std::string>{"-5 20 77 88 0 ", "0 0 77 88 0 "}));
  EXPECT_EQ(Words(PlaceInParent(GetParent(control))), "-5,20 77x88");
  EXPECT_EQ(Words(PlaceInParent(control)), "0,0 77x88");
  EXPECT_TRUE(view->Move(0, 0, 0, 0));
  EXPECT_EQ(Words(PlaceInParent(control)), "0,0 0x0");
}

TEST_F(TreeCreate, DestroyEndsTheControlThenTheParent) {
  const HWND control = CreateView();
  const HWND parent = GetParent(control);
  Insert(TEXT("a"));
  {
    ImportPatch note("DestroyWindow", &NoteDestroy);
    view->Destroy();
    view->Destroy();
  }
  EXPECT_EQ(destroyed, (std::vector<HWND>{control, parent}));
  EXPECT_FALSE(IsWindow(control));
  EXPECT_FALSE(IsWindow(parent));
  EXPECT_TRUE(IsWindow(host));
  EXPECT_EQ(view->GetControlWindow(), nullptr);
  EXPECT_FALSE(view->GetMultiSelect());
}

TEST_F(TreeCreate, WhatTheControlSendsWhileItGoesReachesTheClient) {
  const HWND control = CreateView();
  const HWND parent = GetParent(control);
  client.Take();
  beforeDestroy = [&] {
    if (destroyed.size() > 1) return;
    NMTREEVIEWW record = {};
    record.hdr = {control, static_cast<UINT_PTR>(CONTROL_ID), static_cast<UINT>(TVN_ITEMEXPANDEDW)};
    SendMessageW(parent, WM_NOTIFY, CONTROL_ID, reinterpret_cast<LPARAM>(&record));
  };
  ImportPatch note("DestroyWindow", &NoteDestroy);
  view->Destroy();
  EXPECT_EQ(client.Take(), Lines{"Expanded 0"});
}

TEST_F(TreeCreate, ViewsAreIndependent) {
  ASSERT_NE(CreateView(), nullptr);
  IQVLTreeView* other = GetIQVLTreeView();
  RecordingClient otherClient;
  otherClient.view = other;
  other->SetClient(&otherClient);
  ASSERT_NE(other->Create(host, CONTROL_ID, 0, 0, 50, 50, QVLS_SINGLESEL, nullptr), nullptr);
  QVLTreeViewItem record;
  const ItemHandle item = other->InsertItem(&record, -1);
  Insert(TEXT("a"));
  EXPECT_TRUE(view->GetMultiSelect());
  EXPECT_FALSE(other->GetMultiSelect());
  other->SetItemSelected(item, true);
  EXPECT_EQ(otherClient.Take().size(), 3u);
  EXPECT_EQ(client.Take(), Lines());
  ReleaseIQVLTreeView(other);
  EXPECT_EQ(SendMessageW(view->GetControlWindow(), TVM_GETCOUNT, 0, 0), 1)
      << "messages still find the native procedure";
  EXPECT_NE(Insert(TEXT("b")), -1);
}

}  // namespace
