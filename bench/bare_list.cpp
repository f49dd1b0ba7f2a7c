// The bare list control.
#include "bare_control.h"

namespace {

constexpr DWORD kStyle = LVS_REPORT | LVS_SHAREIMAGELISTS | LVS_NOSORTHEADER | LVS_SHOWSELALWAYS;
constexpr DWORD kListStyle =
    LVS_EX_LABELTIP | LVS_EX_FULLROWSELECT | LVS_EX_SUBITEMIMAGES | LVS_EX_CHECKBOXES;
constexpr UINT kChecked = INDEXTOSTATEIMAGEMASK(2);

class BareList final : public BareControl {
 public:
  BareList(bool withIcons, HWND host, const RECT& place)
      : BareControl(withIcons, WC_LISTVIEWW, kStyle, host, place) {
    Send(LVM_SETEXTENDEDLISTVIEWSTYLE, kListStyle, kListStyle);
    RECT area{};
    GetClientRect(Control(), &area);
    LVCOLUMNW column{};
    column.mask = LVCF_FMT | LVCF_WIDTH | LVCF_SUBITEM;
    column.cx = area.right;
    SendRecord(LVM_INSERTCOLUMNW, 1, column);
    if (icons) Send(LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(SystemIcons()));
  }

  void Fill(int count, const Filling& filling) override {
    if (filling.suspended) SuspendDrawing();
    for (int row = 0; row < count; ++row) {
      const std::wstring& name = FileNames()[static_cast<std::size_t>(row) % FileNames().size()];
      LVITEMW item{};
      item.mask = LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM | LVIF_INDENT;
      item.iItem = row;
      item.pszText = const_cast<wchar_t*>(name.c_str());
      item.iImage = icons ? IconOf(name.c_str()) : -1;
      SendRecord(LVM_INSERTITEMW, 0, item);
    }
    if (filling.suspended) ResumeDrawing();
  }

  void ExpandAll() override {}

  // Asks for the count at each step, as the library does to find the last row.
  void Walk() override {
    found = 1;
    for (int row = 0; row + 1 < Send(LVM_GETITEMCOUNT, 0, 0); ++row) ++found;
  }

  void GetItems() override {
    std::vector<std::int64_t> items;
    const int count = Count();
    for (int row = 0; row < count; ++row) items.push_back(row);
    found = static_cast<std::int64_t>(items.size());
  }

  void SelectAll() override {
    Pause pause(*this);
    const int count = Count();
    for (int row = 0; row < count; ++row) {
      if (State(row, LVIS_SELECTED)) continue;
      pause.BeforeChange();
      SetState(row, LVIS_SELECTED, LVIS_SELECTED);
    }
  }

  void SelectAllRedrawing() override {
    const int count = Count();
    for (int row = 0; row < count; ++row) {
      if (!State(row, LVIS_SELECTED)) SetState(row, LVIS_SELECTED, LVIS_SELECTED);
    }
  }

  void ClearSelection() override {
    Pause pause(*this);
    const int count = Count();
    for (int row = 0; row < count; ++row) {
      if (!State(row, LVIS_SELECTED)) continue;
      pause.BeforeChange();
      SetState(row, 0, LVIS_SELECTED);
    }
  }

  void InvertSelection() override {
    Pause pause(*this);
    const int count = Count();
    for (int row = 0; row < count; ++row) {
      pause.BeforeChange();
      SetState(row, State(row, LVIS_SELECTED) ? 0 : LVIS_SELECTED, LVIS_SELECTED);
    }
  }

  void ShiftPress(LPARAM point) override { Send(WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT, point); }

  void CheckAll() override {
    Pause pause(*this);
    const int count = Count();
    for (int row = 0; row < count; ++row) {
      if (State(row, LVIS_STATEIMAGEMASK) != INDEXTOSTATEIMAGEMASK(1)) continue;
      pause.BeforeChange();
      SetState(row, kChecked, LVIS_STATEIMAGEMASK);
    }
  }

  void GetCheckedCount() override {
    found = 0;
    const int count = Count();
    for (int row = 0; row < count; ++row) {
      if (State(row, LVIS_STATEIMAGEMASK) == kChecked) ++found;
    }
  }

  void BeginDrag() override {
    std::vector<std::int64_t> items;
    if (!State(0, LVIS_SELECTED)) return;
    const int count = Count();
    for (int row = 0; row < count; ++row) {
      if (State(row, LVIS_SELECTED)) items.push_back(row);
    }
    found = static_cast<std::int64_t>(items.size());
    ++calls;
  }

  void DeleteAllItems() override { Send(LVM_DELETEALLITEMS, 0, 0); }

 private:
  int Count() const { return static_cast<int>(Send(LVM_GETITEMCOUNT, 0, 0)); }

  UINT State(int row, UINT mask) const {
    return static_cast<UINT>(Send(LVM_GETITEMSTATE, static_cast<WPARAM>(row), mask));
  }

  void SetState(int row, UINT state, UINT mask) const {
    LVITEMW item{};
    item.state = state;
    item.stateMask = mask;
    SendRecord(LVM_SETITEMSTATE, static_cast<WPARAM>(row), item);
  }
};

}  // namespace

std::unique_ptr<Side> MakeBareList(bool icons, HWND host, const RECT& place) {
  return std::make_unique<BareList>(icons, host, place);
}
