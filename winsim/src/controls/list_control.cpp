#include "controls/list_control.h"

#include <utility>

#include "controls/drag_start.h"
#include "controls/tool_tip.h"
#include "graphics/image_list.h"
#include "window/control_class.h"
#include "window/window.h"

namespace winsim {
namespace {

constexpr int kBoxSize = 13;
constexpr int kBoxImages = 2;

const ControlClass<ListControl> kListClass(WC_LISTVIEWW);

LRESULT Store(COLORREF* color, LPARAM lParam) {
  *color = static_cast<COLORREF>(lParam);
  return TRUE;
}

}  // namespace

ListControl::ListControl(HWND list) : window(list) {
  header = MakeHeader(window, !(Style() & LVS_NOCOLUMNHEADER));
  toolTip = MakeToolTip(window);
}

DWORD ListControl::Style() const {
  const Window* own = FindWindow(window);
  return own ? own->style : 0;
}

bool ListControl::Gone() const { return FindWindow(window) == nullptr; }

void ListControl::NotifyRow(UINT code, int row) {
  NMLISTVIEW record = {};
  record.iItem = row;
  Notify(window, code, &record.hdr);
}

LRESULT ListControl::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  const int row = static_cast<int>(wParam);
  auto* values = reinterpret_cast<LVITEMW*>(lParam);
  switch (message) {
    case LVM_INSERTITEMW:
      return Insert(*values);
    case LVM_SETITEMW:
      return SetItem(*values);
    case LVM_GETITEMW:
      return GetItem(values);
    case LVM_GETITEMTEXTW:
      return GetText(row, *values);
    case LVM_DELETEITEM:
      return Delete(row);
    case LVM_DELETEALLITEMS:
      return DeleteAll();
    case LVM_GETITEMCOUNT:
      return Count();
    case LVM_GETITEMSTATE:
      return IsRow(row) ? Row(row).state & static_cast<UINT>(lParam) : 0;
    case LVM_SETITEMSTATE:
      return SetState(row, *values);
    case LVM_GETSELECTEDCOUNT:
      return selectedCount;
    case LVM_EDITLABELW:
      return BeginLabelEdit(row);
    default:
      return HandleView(message, wParam, lParam);
  }
}

LRESULT ListControl::HandleView(UINT message, WPARAM wParam, LPARAM lParam) {
  const int index = static_cast<int>(wParam);
  switch (message) {
    case LVM_HITTEST:
      return HitTest(reinterpret_cast<LVHITTESTINFO*>(lParam));
    case LVM_ENSUREVISIBLE:
      return EnsureVisible(index);
    case LVM_SCROLL:
      return ScrollBy(index, static_cast<int>(lParam));
    case LVM_GETTOPINDEX:
      SettleLayout();
      return top;
    case LVM_GETITEMRECT:
      return ItemRect(index, reinterpret_cast<RECT*>(lParam));
    case LVM_UPDATE:
      InvalidateRect(window, nullptr, TRUE);
      return IsRow(index);
    case LVM_INSERTCOLUMNW:
      return InsertColumn(index, *reinterpret_cast<const LVCOLUMNW*>(lParam));
    case LVM_SETCOLUMNWIDTH:
      return SetColumnWidth(index, static_cast<short>(LOWORD(lParam)));
    case LVM_GETCOLUMNWIDTH:
      return ColumnWidth(index);
    case LVM_GETTOOLTIPS:
      return reinterpret_cast<LRESULT>(toolTip);
    case LVM_GETHEADER:
      return reinterpret_cast<LRESULT>(header);
    default:
      return HandleLook(message, wParam, lParam);
  }
}

LRESULT ListControl::HandleLook(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case LVM_SETEXTENDEDLISTVIEWSTYLE:
      return SetExtendedStyle(static_cast<DWORD>(wParam), static_cast<DWORD>(lParam));
    case LVM_GETEXTENDEDLISTVIEWSTYLE:
      return extendedStyle;
    case LVM_SETIMAGELIST:
      return SetImageList(wParam, reinterpret_cast<HIMAGELIST>(lParam));
    case LVM_GETIMAGELIST:
      return reinterpret_cast<LRESULT>(ImageList(wParam));
    case LVM_SETBKCOLOR:
      return Store(&backColor, lParam);
    case LVM_GETBKCOLOR:
      return backColor;
    case LVM_SETTEXTBKCOLOR:
      return Store(&textBackColor, lParam);
    case LVM_GETTEXTBKCOLOR:
      return textBackColor;
    case LVM_SETTEXTCOLOR:
      return Store(&textColor, lParam);
    case LVM_GETTEXTCOLOR:
      return textColor;
    default:
      return HandleWindow(message, wParam, lParam);
  }
}

LRESULT ListControl::HandleWindow(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_LBUTTONDOWN:
      return LeftButtonDown(wParam, MousePoint(lParam));
    case WM_LBUTTONUP:
      return LeftButtonUp(MousePoint(lParam));
    case WM_RBUTTONDOWN:
      return RightButtonDown(MousePoint(lParam));
    case WM_MOUSEMOVE:
      return MouseMoved(MousePoint(lParam));
    case WM_KEYDOWN:
      return KeyDown(wParam);
    case WM_SETFOCUS:
      Notify(window, NM_SETFOCUS);
      return 0;
    case WM_KILLFOCUS:
      Notify(window, NM_KILLFOCUS);
      return 0;
    case WM_SIZE:
      barsStale = true;
      return 0;
    case WM_DESTROY:
      DeleteAll();
      return 0;
    case WM_NCDESTROY:
      // With shared images the control leaks even the boxes that it created.
      if (!(Style() & LVS_SHAREIMAGELISTS)) DestroyOwnBoxes();
      return 0;
    default:
      return DefWindowProcW(window, message, wParam, lParam);
  }
}

void ListControl::DestroyOwnBoxes() { ImageList_Destroy(std::exchange(ownBoxes, nullptr)); }

// Turning check boxes on gives every row an empty box and notifies of each.
LRESULT ListControl::SetExtendedStyle(DWORD mask, DWORD style) {
  const DWORD former = extendedStyle;
  extendedStyle = mask ? (former & ~mask) | (style & mask) : style;
  barsStale = true;
  if (!((former ^ extendedStyle) & LVS_EX_CHECKBOXES)) return former;
  DestroyOwnBoxes();
  if (extendedStyle & LVS_EX_CHECKBOXES) ownBoxes = MakeBlankList(kBoxSize, kBoxSize, kBoxImages);
  stateImages = ownBoxes;
  for (int row = 0; ownBoxes && row < Count(); ++row) {
    ChangeState(row, INDEXTOSTATEIMAGEMASK(1), LVIS_STATEIMAGEMASK);
  }
  return former;
}

LRESULT ListControl::SetImageList(WPARAM kind, HIMAGELIST list) {
  barsStale = true;
  const HIMAGELIST former = ImageList(kind);
  if (kind == LVSIL_STATE) stateImages = list;
  if (kind == LVSIL_SMALL) smallImages = list;
  return reinterpret_cast<LRESULT>(former);
}

HIMAGELIST ListControl::ImageList(WPARAM kind) const {
  return kind == LVSIL_STATE ? stateImages : kind == LVSIL_SMALL ? smallImages : nullptr;
}

}  // namespace winsim
