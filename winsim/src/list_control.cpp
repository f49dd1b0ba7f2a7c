#include "list_control.h"

#include <algorithm>
#include <utility>

#include "controls.h"
#include "header.h"
#include "image_list.h"
#include "tool_tip.h"

namespace winsim {
namespace {

constexpr int kBoxSize = 13;

std::shared_ptr<Control> Make(HWND window) { return std::make_shared<ListControl>(window); }

}  // namespace

void AddListControlClass() { AddControlClass(WC_LISTVIEWW, &Make); }

ListControl::ListControl(HWND window) : window_(window) {
  header_ = MakeHeader(window, !(Style() & LVS_NOCOLUMNHEADER));
  toolTip_ = MakeToolTip(window);
}

ListControl::~ListControl() {
  for (const ListRow* row : rows_) {
    delete row;
  }
}

DWORD ListControl::Style() const {
  const Window* window = FindWindow(window_);
  return window ? window->style : 0;
}

bool ListControl::Gone() const { return FindWindow(window_) == nullptr; }

bool ListControl::IsRow(int row) const { return row >= 0 && row < Count(); }

LRESULT ListControl::NotifySimple(UINT code) {
  NMHDR header = {};
  return Notify(window_, code, &header);
}

LRESULT ListControl::NotifyRow(UINT code, int row, UINT newState, UINT oldState, UINT changed) {
  NMLISTVIEW record = {};
  record.iItem = row;
  record.uNewState = newState;
  record.uOldState = oldState;
  record.uChanged = changed;
  record.lParam = IsRow(row) ? Row(row).param : 0;
  return Notify(window_, code, &record.hdr);
}

LRESULT ListControl::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  const int index = static_cast<int>(wParam);
  switch (message) {
    case LVM_INSERTITEMW:
      return Insert(reinterpret_cast<const LVITEMW*>(lParam));
    case LVM_SETITEMW:
      return SetItem(*reinterpret_cast<const LVITEMW*>(lParam));
    case LVM_GETITEMW:
      return GetItem(reinterpret_cast<LVITEMW*>(lParam));
    case LVM_GETITEMTEXTW: {
      LVITEMW values = *reinterpret_cast<const LVITEMW*>(lParam);
      values.mask = LVIF_TEXT;
      values.iItem = index;
      return GetItem(&values) ? static_cast<LRESULT>(std::u16string_view(values.pszText).size())
                              : 0;
    }
    case LVM_DELETEITEM:
      return Delete(index);
    case LVM_DELETEALLITEMS:
      return DeleteAll();
    case LVM_GETITEMCOUNT:
      return Count();
    case LVM_GETITEMSTATE:
      return IsRow(index) ? Row(index).state & static_cast<UINT>(lParam) : 0;
    case LVM_SETITEMSTATE:
      return SetState(index, *reinterpret_cast<const LVITEMW*>(lParam));
    case LVM_GETSELECTEDCOUNT:
      return selectedCount_;
    case LVM_INSERTCOLUMNW:
      return InsertColumn(index, reinterpret_cast<const LVCOLUMNW*>(lParam));
    case LVM_EDITLABELW:
      return BeginLabelEdit(index);
    default:
      return HandleLook(message, wParam, lParam);
  }
}

LRESULT ListControl::HandleLook(UINT message, WPARAM wParam, LPARAM lParam) {
  const int index = static_cast<int>(wParam);
  const auto column = static_cast<std::size_t>(index);
  switch (message) {
    case LVM_HITTEST:
      return HitTest(reinterpret_cast<LVHITTESTINFO*>(lParam));
    case LVM_ENSUREVISIBLE:
      return EnsureVisible(index);
    case LVM_SCROLL:
      ScrollBy(index, static_cast<int>(lParam));
      return TRUE;
    case LVM_GETTOPINDEX:
      SettleLayout();
      return top_;
    case LVM_GETITEMRECT:
      return ItemRect(index, reinterpret_cast<RECT*>(lParam));
    case LVM_UPDATE:
      InvalidateRect(window_, nullptr, TRUE);
      return IsRow(index);
    case LVM_SETCOLUMNWIDTH:
      if (column >= columns_.size()) {
        return FALSE;
      }
      columns_[column] = std::max<int>(static_cast<short>(LOWORD(lParam)), 0);
      barsStale_ = true;
      return TRUE;
    case LVM_GETCOLUMNWIDTH:
      return column < columns_.size() ? columns_[column] : 0;
    case LVM_SETEXTENDEDLISTVIEWSTYLE:
      return SetExtendedStyle(static_cast<DWORD>(wParam), static_cast<DWORD>(lParam));
    case LVM_GETEXTENDEDLISTVIEWSTYLE:
      return static_cast<LRESULT>(extendedStyle_);
    case LVM_SETIMAGELIST:
      return SetImageList(wParam, reinterpret_cast<HIMAGELIST>(lParam));
    case LVM_GETIMAGELIST:
      return reinterpret_cast<LRESULT>(wParam == LVSIL_STATE   ? stateImages_
                                       : wParam == LVSIL_SMALL ? smallImages_
                                                               : nullptr);
    case LVM_GETTOOLTIPS:
      return reinterpret_cast<LRESULT>(toolTip_);
    case LVM_GETHEADER:
      return reinterpret_cast<LRESULT>(header_);
    case LVM_SETBKCOLOR:
      backColor_ = static_cast<COLORREF>(lParam);
      return TRUE;
    case LVM_GETBKCOLOR:
      return static_cast<LRESULT>(backColor_);
    case LVM_SETTEXTBKCOLOR:
      textBackColor_ = static_cast<COLORREF>(lParam);
      return TRUE;
    case LVM_GETTEXTBKCOLOR:
      return static_cast<LRESULT>(textBackColor_);
    case LVM_SETTEXTCOLOR:
      textColor_ = static_cast<COLORREF>(lParam);
      return TRUE;
    case LVM_GETTEXTCOLOR:
      return static_cast<LRESULT>(textColor_);
    default:
      return HandleWindow(message, wParam, lParam);
  }
}

LRESULT ListControl::HandleWindow(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_LBUTTONDOWN:
      return LeftButtonDown(wParam, lParam);
    case WM_LBUTTONUP:
      return LeftButtonUp(lParam);
    case WM_RBUTTONDOWN:
      return RightButtonDown(lParam);
    case WM_MOUSEMOVE:
      MouseMoved(lParam);
      return 0;
    case WM_KEYDOWN:
      return KeyDown(wParam);
    case WM_SETFOCUS:
      NotifySimple(NM_SETFOCUS);
      return 0;
    case WM_KILLFOCUS:
      NotifySimple(NM_KILLFOCUS);
      return 0;
    case WM_SIZE:
      barsStale_ = true;
      return 0;
    case WM_SETREDRAW:
      return 0;
    case WM_DESTROY:
      DeleteAll();
      return 0;
    case WM_NCDESTROY:
      // Even the boxes that it made itself are left alone by a list that shares its images.
      if (!(Style() & LVS_SHAREIMAGELISTS)) {
        ImageList_Destroy(std::exchange(ownBoxes_, nullptr));
      }
      return 0;
    default:
      return DefWindowProcW(window_, message, wParam, lParam);
  }
}

// Check boxes that come on later give every row an empty box, each with its notification.
LRESULT ListControl::SetExtendedStyle(DWORD mask, DWORD style) {
  const DWORD former = extendedStyle_;
  extendedStyle_ = mask ? (former & ~mask) | (style & mask) : style;
  const DWORD changed = former ^ extendedStyle_;
  barsStale_ = true;
  if (changed & LVS_EX_CHECKBOXES) {
    ImageList_Destroy(std::exchange(ownBoxes_, nullptr));
    if (extendedStyle_ & LVS_EX_CHECKBOXES) {
      ownBoxes_ = ImageList_Create(kBoxSize, kBoxSize, ILC_COLOR | ILC_MASK, 2, 2);
      ImageList_SetImageCount(ownBoxes_, 2);
    }
    stateImages_ = ownBoxes_;
    for (int row = 0; ownBoxes_ && !Gone() && row < Count(); ++row) {
      ChangeState(row, 0x1000, LVIS_STATEIMAGEMASK);
    }
  }
  return static_cast<LRESULT>(former);
}

LRESULT ListControl::SetImageList(WPARAM kind, HIMAGELIST list) {
  barsStale_ = true;
  if (kind == LVSIL_STATE) {
    return reinterpret_cast<LRESULT>(std::exchange(stateImages_, list));
  }
  return kind == LVSIL_SMALL ? reinterpret_cast<LRESULT>(std::exchange(smallImages_, list)) : 0;
}

}  // namespace winsim
