// The bare tree control. The control sends no notification when a selected bit is set, so the loop
// counts the callbacks that multiple selection needs.
#include "bare_control.h"

namespace {

constexpr DWORD kStyle = TVS_CHECKBOXES | TVS_SHOWSELALWAYS | TVS_HASBUTTONS | TVS_LINESATROOT;
constexpr UINT kChecked = INDEXTOSTATEIMAGEMASK(2);

class BareTree final : public BareControl {
 public:
  BareTree(bool withIcons, HWND host, const RECT& place)
      : BareControl(withIcons, WC_TREEVIEWW, kStyle, host, place) {
    const LONG_PTR style = GetWindowLongPtrW(Control(), GWL_STYLE);
    SetWindowLongPtrW(Control(), GWL_STYLE, style & ~static_cast<LONG_PTR>(TVS_CHECKBOXES));
    SetWindowLongPtrW(Control(), GWL_STYLE, style);  // creates the boxes now
    if (icons) Send(TVM_SETIMAGELIST, TVSIL_NORMAL, reinterpret_cast<LPARAM>(SystemIcons()));
  }

  void Fill(int count, const Filling& filling) override {
    if (filling.suspended) SuspendDrawing();
    LPARAM branch = 0;
    for (int item = 0; item < count; ++item) {
      const int place = item % kBranch;
      const LPARAM made = Insert(item, place == 0 ? 0 : branch);
      if (place == 0) branch = made;
      if (place == 1 && filling.expanded) Send(TVM_EXPAND, TVE_EXPAND, branch);
    }
    if (filling.suspended) ResumeDrawing();
  }

  void ExpandAll() override {
    Pause pause(*this);
    for (LPARAM item = First(); item; item = Below(item)) {
      pause.BeforeChange();
      Send(TVM_EXPAND, TVE_EXPAND, item);
    }
  }

  void Walk() override {
    found = 0;
    for (LPARAM top = First(); top; top = Next(TVGN_NEXT, top)) {
      ++found;
      LPARAM child = Next(TVGN_CHILD, top);
      for (; child; child = Next(TVGN_NEXT, child)) ++found;
    }
  }

  void GetItems() override {
    std::vector<std::int64_t> items;
    for (LPARAM item = First(); item; item = Below(item)) items.push_back(item);
    found = static_cast<std::int64_t>(items.size());
  }

  void SelectAll() override {
    Pause pause(*this);
    ++calls;
    for (LPARAM item = First(); item; item = Below(item)) {
      if (State(item, TVIS_SELECTED)) continue;
      pause.BeforeChange();
      Mark(item, TVIS_SELECTED);
    }
    ++calls;
  }

  void SelectAllRedrawing() override {
    ++calls;
    for (LPARAM item = First(); item; item = Below(item)) {
      if (!State(item, TVIS_SELECTED)) Mark(item, TVIS_SELECTED);
    }
    ++calls;
  }

  void ClearSelection() override {
    Pause pause(*this);
    ++calls;
    for (LPARAM item = First(); item; item = Below(item)) {
      if (!State(item, TVIS_SELECTED)) continue;
      pause.BeforeChange();
      Mark(item, 0);
    }
    ++calls;
  }

  void InvertSelection() override {
    Pause pause(*this);
    ++calls;
    for (LPARAM item = First(); item; item = Below(item)) {
      pause.BeforeChange();
      Mark(item, State(item, TVIS_SELECTED) ? 0 : TVIS_SELECTED);
    }
    ++calls;
  }

  // The caret is on the first item, and the press hits the last.
  void ShiftPress(LPARAM point) override {
    ++calls;
    TVHITTESTINFO hit{};
    hit.pt = {static_cast<short>(LOWORD(point)), static_cast<short>(HIWORD(point))};
    const LPARAM last = SendRecord(TVM_HITTEST, 0, hit);
    const LPARAM caret = Next(TVGN_CARET, 0);
    if (Next(TVGN_CARET, 0) == last) Send(TVM_SELECTITEM, TVGN_CARET, 0);
    Send(WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, point);
    Pause pause(*this);
    LPARAM item = First();
    for (; item && item != caret; item = Below(item)) Mark(item, 0);
    Send(TVM_SELECTITEM, TVGN_CARET, last);
    for (; item; item = Below(item)) {
      pause.BeforeChange();
      Mark(item, TVIS_SELECTED);
    }
    ++calls;
  }

  void CheckAll() override {
    Pause pause(*this);
    for (LPARAM item = First(); item; item = Below(item)) {
      if (State(item, TVIS_STATEIMAGEMASK) != INDEXTOSTATEIMAGEMASK(1)) continue;
      pause.BeforeChange();
      SetState(item, kChecked, TVIS_STATEIMAGEMASK);
    }
  }

  void GetCheckedCount() override {
    found = 0;
    for (LPARAM item = First(); item; item = Below(item)) {
      if (State(item, TVIS_STATEIMAGEMASK) == kChecked) ++found;
    }
  }

  void BeginDrag() override {
    std::vector<std::int64_t> items;
    if (!State(First(), TVIS_SELECTED)) return;
    for (LPARAM item = First(); item; item = Below(item)) {
      if (State(item, TVIS_SELECTED)) items.push_back(item);
    }
    found = static_cast<std::int64_t>(items.size());
    ++calls;
  }

  void DeleteAllItems() override { Send(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT)); }

 private:
  LPARAM Next(WPARAM relation, LPARAM item) const { return Send(TVM_GETNEXTITEM, relation, item); }
  LPARAM First() const { return Next(TVGN_ROOT, 0); }
  LPARAM Below(LPARAM item) const { return Next(TVGN_NEXTVISIBLE, item); }

  LPARAM Insert(int item, LPARAM parent) const {
    const std::wstring& name = FileNames()[static_cast<std::size_t>(item) % FileNames().size()];
    TVINSERTSTRUCTW insert{};
    insert.hParent = reinterpret_cast<HTREEITEM>(parent);
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_PARAM | TVIF_HANDLE | TVIF_SELECTEDIMAGE;
    insert.item.pszText = const_cast<wchar_t*>(name.c_str());
    insert.item.iImage = icons ? IconOf(name.c_str()) : -1;
    insert.item.iSelectedImage = insert.item.iImage;
    return SendRecord(TVM_INSERTITEMW, 0, insert);
  }

  UINT State(LPARAM item, UINT mask) const {
    return static_cast<UINT>(Send(TVM_GETITEMSTATE, static_cast<WPARAM>(item), mask)) & mask;
  }

  void SetState(LPARAM item, UINT state, UINT mask) const {
    TVITEMW change{};
    change.mask = TVIF_STATE;
    change.hItem = reinterpret_cast<HTREEITEM>(item);
    change.state = state;
    change.stateMask = mask;
    SendRecord(TVM_SETITEMW, 0, change);
  }

  void Mark(LPARAM item, UINT state) {
    SetState(item, state, TVIS_SELECTED);
    ++calls;
  }
};

}  // namespace

std::unique_ptr<Side> MakeBareTree(bool icons, HWND host, const RECT& place) {
  return std::make_unique<BareTree>(icons, host, place);
}
