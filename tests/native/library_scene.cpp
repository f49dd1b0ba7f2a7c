#include "native/library_scene.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>

namespace {

constexpr int CONTROL_ID = 3;

void Pump() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

void Fill(QVLTreeViewItem& record, const WCHAR* name) {
  record.SetItemName(name);
  record.SetFileName(TEXT("C:\\folder\\file.txt"));
  record.SetType(1);
  record.SetSelected(true);
  record.SetChecked(true);
  record.SetStateIndex(1);
}

void Press(LibraryScene& scene, WPARAM keys) {
  const LPARAM point = MAKELPARAM(30, scene.list ? 30 : 24);
  PostMessageW(scene.Control(), WM_LBUTTONUP, 0, point);
  SendMessageW(scene.Control(), WM_LBUTTONDOWN, keys | MK_LBUTTON, point);
  Pump();
}

void Key(LibraryScene& scene, WPARAM key, bool shift) {
  BYTE keys[256] = {};
  keys[VK_SHIFT] = shift ? 0x80 : 0;
  SetKeyboardState(keys);
  SendMessageW(scene.Control(), WM_KEYDOWN, key, 1);
  keys[VK_SHIFT] = 0;
  SetKeyboardState(keys);
}

void RequestMenu(LibraryScene& scene) {
  POINT point = {30, 40};
  ClientToScreen(scene.Control(), &point);
  SendMessageW(GetParent(scene.Control()), WM_CONTEXTMENU, 0, MAKELPARAM(point.x, point.y));
}

void BeginDrag(LibraryScene& scene) {
  if (scene.list) {
    NMLISTVIEW record = {};
    scene.Notify(record.hdr, LVN_BEGINDRAG);
  } else {
    NMTREEVIEWW record = {};
    record.itemNew.hItem = reinterpret_cast<HTREEITEM>(scene.first);
    scene.Notify(record.hdr, TVN_BEGINDRAGW);
  }
}

void AskInfoTip(LibraryScene& scene) {
  if (scene.list) {
    NMLVGETINFOTIPW record = {};
    scene.Notify(record.hdr, LVN_GETINFOTIPW);
  } else {
    NMTVGETINFOTIPW record = {};
    scene.Notify(record.hdr, TVN_GETINFOTIPW);
  }
}

bool NameFiles(ItemHandleList* /*items*/, FileNameList* files) {
  files->push_back(TEXT("C:\\folder\\file.txt"));
  files->push_back(TEXT("C:\\folder\\other.txt"));
  return true;
}

std::vector<LibraryOperation> Records() {
  return {
      {"GetIQVLTreeView", [](LibraryScene&) { ReleaseIQVLTreeView(GetIQVLTreeView()); }},
      {"SetItemName",
       [](LibraryScene&) {
         QVLTreeViewItem record;
         record.SetItemName(TEXT("a name that is too long to stand in the record itself"));
         record.SetFileName(TEXT("C:\\a name that is too long to stand in the record itself"));
       }},
      {"Create", [](LibraryScene& scene) { scene.Create(); }},
      {"Create after Destroy",
       [](LibraryScene& scene) {
         scene.view->Destroy();
         scene.Create();
       }},
      {"Destroy", [](LibraryScene& scene) { scene.view->Destroy(); }},
      {"Move", [](LibraryScene& scene) { scene.view->Move(1, 2, 100, 120); }},
  };
}

std::vector<LibraryOperation> Items() {
  return {
      {"UseSystemImageList", [](LibraryScene& scene) { scene.view->UseSystemImageList(); }},
      {"InsertItem", [](LibraryScene& scene) { scene.Insert(TEXT("new"), scene.first); }},
      {"UpdateItem",
       [](LibraryScene& scene) {
         QVLTreeViewItem record;
         Fill(record, TEXT("changed"));
         scene.view->UpdateItem(&record, scene.second);
       }},
      {"DeleteItem", [](LibraryScene& scene) { scene.view->DeleteItem(scene.second); }},
      {"DeleteAllItems", [](LibraryScene& scene) { scene.view->DeleteAllItems(); }},
      {"GetItems",
       [](LibraryScene& scene) {
         ItemHandleList items;
         const std::int64_t length = scene.view->GetItems(&items, true);
         EXPECT_EQ(length, static_cast<std::int64_t>(items.size()));
       }},
      {"GetItems of a branch",
       [](LibraryScene& scene) {
         ItemHandleList items;
         const std::int64_t length = scene.view->GetItems(&items, false);
         EXPECT_EQ(length, static_cast<std::int64_t>(items.size()));
       }},
      {"ExpandAll", [](LibraryScene& scene) { scene.view->ExpandAll(); }},
      {"CollapseAll", [](LibraryScene& scene) { scene.view->CollapseAll(); }},
      {"EnsureVisible", [](LibraryScene& scene) { scene.view->EnsureVisible(-1); }},
      {"neighbours",
       [](LibraryScene& scene) {
         scene.view->GetParentItem(scene.second);
         scene.view->GetFirstChildItem(scene.first);
         scene.view->GetNextSiblingItem(scene.first);
         scene.view->GetItemClientPtr(scene.first);
         scene.view->IsItemExpanded(scene.first);
       }},
      {"scroll position",
       [](LibraryScene& scene) {
         int x = 0;
         int y = 0;
         scene.view->GetScrollPosition(&x, &y);
         scene.view->SetScrollPosition(x, y);
       }},
      {"appearance",
       [](LibraryScene& scene) {
         scene.view->SetBkColor(1);
         scene.view->SetTextColor(2);
         scene.view->SetToolTipWidth(3);
         scene.view->SetToolTipDelay(4);
         scene.view->Hide();
         scene.view->Show();
         scene.view->Redraw();
       }},
  };
}

std::vector<LibraryOperation> Selection() {
  return {
      {"SelectAll", [](LibraryScene& scene) { scene.view->SelectAll(); }},
      {"ClearSelection", [](LibraryScene& scene) { scene.view->ClearSelection(); }},
      {"InvertSelection", [](LibraryScene& scene) { scene.view->InvertSelection(); }},
      {"SetItemSelected", [](LibraryScene& scene) { scene.view->SetItemSelected(0, true); }},
      {"selected items",
       [](LibraryScene& scene) {
         scene.view->GetSelectedCount();
         scene.view->GetSelectedItem(1);
         scene.view->IsItemSelected(scene.first);
       }},
      {"checks",
       [](LibraryScene& scene) {
         scene.view->CheckAll();
         scene.view->GetCheckedCount();
         scene.view->GetCheckedItem(1);
         scene.view->SetItemChecked(scene.first, false);
         scene.view->IsItemChecked(scene.first);
         scene.view->UncheckAll();
       }},
      {"press", [](LibraryScene& scene) { Press(scene, 0); }},
      {"Shift press", [](LibraryScene& scene) { Press(scene, MK_SHIFT); }},
      {"Ctrl press", [](LibraryScene& scene) { Press(scene, MK_CONTROL); }},
      {"key", [](LibraryScene& scene) { Key(scene, VK_DOWN, false); }},
      {"Shift key", [](LibraryScene& scene) { Key(scene, VK_UP, true); }},
      {"context request", RequestMenu},
      {"begin of a drag", BeginDrag},
      {"tool tip", AskInfoTip},
      {"ShowContextMenu", [](LibraryScene& scene) { scene.view->ShowContextMenu(5, 6); }},
  };
}

}  // namespace

LibraryScene::LibraryScene(bool asList) : view(GetIQVLTreeView()), list(asList) {
  WNDCLASSW windowClass = {};
  windowClass.lpfnWndProc = DefWindowProcW;
  windowClass.lpszClassName = TEXT("QVLScene");
  RegisterClassW(&windowClass);
  host = CreateWindowExW(0, TEXT("QVLScene"), TEXT(""), WS_POPUP | WS_VISIBLE, 0, 0, 300, 400,
                         nullptr, nullptr, nullptr, nullptr);
  client.view = view;
  client.onBeginDrag = NameFiles;
  client.onShellContextMenu = NameFiles;
  client.onGetInfoTip = [](ItemHandle, WCHAR**, int*) { return true; };
  view->SetClient(&client);
  Create();
  view->UseSystemImageList();
  first = Insert(TEXT("first"), -1);
  second = Insert(TEXT("second"), first);
  for (int i = 0; i < 12; ++i) Insert(TEXT("further"), list ? -1 : first);
  view->ExpandAll();
  view->SetItemSelected(second, true);
  client.Take();
}

LibraryScene::~LibraryScene() {
  ReleaseIQVLTreeView(view);
  DestroyWindow(host);
}

void LibraryScene::Create() {
  std::uint32_t style = QVLS_CHECKBOXES | QVLS_INFOTIP;
  if (list) style |= QVLS_LISTVIEW;
  view->Create(host, CONTROL_ID, 0, 0, 300, 400, style, nullptr);
}

ItemHandle LibraryScene::Insert(const WCHAR* name, ItemHandle parent) {
  QVLTreeViewItem record;
  Fill(record, name);
  return view->InsertItem(&record, parent);
}

void LibraryScene::Notify(NMHDR& header, UINT code) const {
  header.hwndFrom = Control();
  header.idFrom = CONTROL_ID;
  header.code = code;
  SendMessageW(GetParent(Control()), WM_NOTIFY, CONTROL_ID, reinterpret_cast<LPARAM>(&header));
}

void LibraryScene::ExpectUsable() {
  EXPECT_EQ(client.depth, 0) << "a bracket is open";
  view->SetClient(&client);
  Create();
  ASSERT_NE(Control(), nullptr);
  view->UseSystemImageList();
  for (int i = 0; i < 3; ++i) EXPECT_NE(Insert(TEXT("again"), -1), -1);
  view->SelectAll();
  EXPECT_EQ(view->GetSelectedCount(), 3);
  EXPECT_EQ(view->GetCheckedCount(), 3);
}

const std::vector<LibraryOperation>& LibraryOperations() {
  static const std::vector<LibraryOperation> operations = [] {
    std::vector<LibraryOperation> all = Records();
    for (const auto& part : {Items(), Selection()}) all.insert(all.end(), part.begin(), part.end());
    return all;
  }();
  return operations;
}
