// The library with a client that counts.
#include "side.h"

#include "qvl.h"

#include <stdexcept>

namespace {

constexpr std::uint32_t kStyle =
    QVLS_CHECKBOXES | QVLS_SHOWSELALWAYS | QVLS_HASBUTTONS | QVLS_LINESATROOT;

class CountingClient final : public IQVLTreeViewClient {
 public:
  CountingClient(std::int64_t& calls, std::int64_t& found) : calls(calls), found(found) {}

  void OnContextMenu(IQVLTreeView*, int, int, ItemHandle, std::uint32_t) override { ++calls; }
  bool OnGetInfoTip(IQVLTreeView*, ItemHandle, WCHAR**, int*, std::uint32_t) override {
    return false;  // not counted, because it comes whenever the mouse rests
  }
  bool OnBeginDrag(IQVLTreeView*, ItemHandleList* items, FileNameList*) override {
    ++calls;
    found = static_cast<std::int64_t>(items->size());
    return false;
  }
  bool OnCreateColumns(IQVLTreeView*, HWND, RECT*) override { return false; }
  bool OnShellContextMenu(IQVLTreeView*, ItemHandleList*, FileNameList*) override { return false; }
  bool OnLabelEdit(IQVLTreeView*, NMHDR*, std::uint32_t) override { return false; }
  void OnBeginSelectionChange(IQVLTreeView*) override { ++calls; }
  void OnItemSelectionChanged(IQVLTreeView*, ItemHandle) override { ++calls; }
  void OnEndSelectionChange(IQVLTreeView*) override { ++calls; }
  void OnColumnClick(IQVLTreeView*, int) override { ++calls; }
  void OnItemExpanded(IQVLTreeView*, ItemHandle) override { ++calls; }

 private:
  std::int64_t& calls;
  std::int64_t& found;
};

class LibrarySide final : public Side {
 public:
  LibrarySide(Kind kind, bool icons, HWND host, const RECT& place) : kind(kind), icons(icons) {
    view->SetClient(&client);
    control = view->Create(host, kControlId, place.left, place.top, place.right - place.left,
                           place.bottom - place.top,
                           kStyle | (kind == Kind::kList ? QVLS_LISTVIEW : 0), nullptr);
    if (!control) throw std::runtime_error("the view could not be created");
    if (icons && !view->UseSystemImageList()) throw std::runtime_error("there are no icons");
  }
  ~LibrarySide() override { ReleaseIQVLTreeView(view); }

  HWND Control() const override { return control; }

  void Fill(int count, const Filling& filling) override {
    if (filling.suspended) SendMessageW(control, WM_SETREDRAW, FALSE, 0);
    if (kind == Kind::kList) {
      for (int item = 0; item < count; ++item) Insert(item, -1);
    } else {
      FillTree(count, filling.expanded);
    }
    if (!filling.suspended) return;
    SendMessageW(control, WM_SETREDRAW, TRUE, 0);
    view->Redraw();
  }

  void ExpandAll() override { view->ExpandAll(); }

  void Walk() override {
    found = 0;
    if (kind == Kind::kList) {
      for (ItemHandle row = 0; row != -1; row = view->GetNextSiblingItem(row)) ++found;
      return;
    }
    for (ItemHandle top = first; top; top = view->GetNextSiblingItem(top)) {
      ++found;
      ItemHandle child = view->GetFirstChildItem(top);
      for (; child; child = view->GetNextSiblingItem(child)) ++found;
    }
  }

  void GetItems() override {
    ItemHandleList items;
    found = view->GetItems(&items, true);
  }

  void SelectAll() override { view->SelectAll(); }
  void SelectAllRedrawing() override { view->SelectAll(); }
  void ClearSelection() override { view->ClearSelection(); }
  void InvertSelection() override { view->InvertSelection(); }
  void ShiftPress(LPARAM point) override {
    SendMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, point);
  }
  void CheckAll() override { view->CheckAll(); }
  void GetCheckedCount() override { found = view->GetCheckedCount(); }

  void BeginDrag() override {
    if (kind == Kind::kList) {
      NMLISTVIEW record{};
      Notify(record.hdr, LVN_BEGINDRAG);
    } else {
      NMTREEVIEWW record{};
      record.itemNew.hItem = reinterpret_cast<HTREEITEM>(first);
      Notify(record.hdr, TVN_BEGINDRAGW);
    }
  }

  void DeleteAllItems() override { view->DeleteAllItems(); }

 private:
  ItemHandle Insert(int item, ItemHandle parent) {
    const std::wstring& name = FileNames()[static_cast<std::size_t>(item) % FileNames().size()];
    record.SetItemName(name.c_str());
    if (icons) record.SetFileName(name.c_str());
    return view->InsertItem(&record, parent);
  }

  void FillTree(int count, bool expanded) {
    ItemHandle branch = 0;
    for (int item = 0; item < count; ++item) {
      const int place = item % kBranch;
      const ItemHandle made = Insert(item, place == 0 ? -1 : branch);
      if (item == 0) first = made;
      if (place == 0) branch = made;
      if (place == 1 && expanded) view->ExpandItem(branch, true);
    }
  }

  void Notify(NMHDR& header, UINT code) {
    header = {control, kControlId, code};
    SendMessageW(GetParent(control), WM_NOTIFY, kControlId, reinterpret_cast<LPARAM>(&header));
  }

  const Kind kind;
  const bool icons;
  CountingClient client{calls, found};
  IQVLTreeView* view = GetIQVLTreeView();
  HWND control = nullptr;
  QVLTreeViewItem record;
  ItemHandle first = 0;
};

}  // namespace

std::unique_ptr<Side> MakeLibrarySide(Kind kind, bool icons, HWND host, const RECT& place) {
  return std::make_unique<LibrarySide>(kind, icons, host, place);
}
