// Makes a tree in a window of its own, fills it and reads it back. Exit status 0 when everything
// came back as it was put in.
#define UNICODE
#include <qvl.h>

#include <cstdio>
#include <cstdlib>

namespace {

void Check(bool condition, const char* what) {
  if (!condition) {
    std::fprintf(stderr, "failed: %s\n", what);
    std::exit(1);
  }
}

class Client : public IQVLTreeViewClient {
 public:
  void OnContextMenu(IQVLTreeView*, int, int, ItemHandle, std::uint32_t) override {}
  bool OnGetInfoTip(IQVLTreeView*, ItemHandle, WCHAR**, int*, std::uint32_t) override {
    return false;
  }
  bool OnBeginDrag(IQVLTreeView*, ItemHandleList*, FileNameList*) override { return false; }
  bool OnCreateColumns(IQVLTreeView*, HWND, RECT*) override { return false; }
  bool OnShellContextMenu(IQVLTreeView*, ItemHandleList*, FileNameList*) override { return false; }
  bool OnLabelEdit(IQVLTreeView*, NMHDR*, std::uint32_t) override { return false; }
  void OnBeginSelectionChange(IQVLTreeView*) override {}
  void OnItemSelectionChanged(IQVLTreeView*, ItemHandle) override {}
  void OnEndSelectionChange(IQVLTreeView*) override {}
  void OnColumnClick(IQVLTreeView*, int) override {}
  void OnItemExpanded(IQVLTreeView*, ItemHandle) override {}
};

ItemHandle Insert(IQVLTreeView* view, const wchar_t* name, ItemHandle parent) {
  QVLTreeViewItem item;
  item.SetItemName(name);
  return view->InsertItem(&item, parent);
}

}  // namespace

int main() {
  HWND window = CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20,
                                300, 300, nullptr, nullptr, nullptr, nullptr);
  Check(window != nullptr, "the host's window");

  Client client;
  IQVLTreeView* view = GetIQVLTreeView();
  Check(view != nullptr, "a view");
  view->SetClient(&client);
  Check(view->Create(window, 1, 0, 0, 300, 300, QVLS_HASLINES, nullptr) != nullptr, "a control");

  const ItemHandle branch = Insert(view, L"branch", -1);
  Check(branch != -1 && Insert(view, L"leaf", branch) != -1, "two items");

  // The list grows in the library and is freed here.
  ItemHandleList items;
  Check(view->GetItems(&items, false) == 2 && items.size() == 2, "the items read back");
  Check(items[0] == branch, "the order of the items");

  ReleaseIQVLTreeView(view);
  Check(GetWindow(window, GW_CHILD) == nullptr, "the view's windows gone");
  DestroyWindow(window);
  std::puts("host: all well");
  return 0;
}
