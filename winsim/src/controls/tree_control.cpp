#include "controls/tree_control.h"

#include <algorithm>
#include <utility>

#include "controls/drag_start.h"
#include "controls/tool_tip.h"
#include "graphics/image_list.h"
#include "window/control_class.h"
#include "window/window.h"

namespace winsim {
namespace {

constexpr int kBoxSize = 13;
constexpr int kBoxImages = 3;
constexpr int kDefaultIndent = 19;
constexpr int kDefaultRowHeight = 16;

const ControlClass<TreeControl> kTreeClass(WC_TREEVIEWW);

LRESULT Exchange(COLORREF* color, LPARAM lParam) {
  return std::exchange(*color, static_cast<COLORREF>(lParam));
}

}  // namespace

TreeControl::TreeControl(HWND tree) : window(tree) {
  root.level = -1;
  root.state = TVIS_EXPANDED;
  if (!(Style() & TVS_NOTOOLTIPS)) toolTip = MakeToolTip(window);
}

DWORD TreeControl::Style() const {
  const Window* own = FindWindow(window);
  return own ? own->style : 0;
}

bool TreeControl::Gone() const { return FindWindow(window) == nullptr; }

// The record describes the deleted item as the old one, any other item as the new one.
void TreeControl::NotifyItem(UINT code, HTREEITEM handle, UINT action) {
  NMTREEVIEWW record = {};
  record.action = action;
  if (const TreeItem* item = Find(handle)) {
    TVITEMW& values = code == TVN_DELETEITEMW ? record.itemOld : record.itemNew;
    values.mask = TVIF_HANDLE | TVIF_PARAM;
    values.hItem = handle;
    values.lParam = item->param;
  }
  Notify(window, code, &record.hdr);
}

LRESULT TreeControl::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  const auto item = reinterpret_cast<HTREEITEM>(lParam);
  switch (message) {
    case TVM_INSERTITEMW:
      return Insert(*reinterpret_cast<const TVINSERTSTRUCTW*>(lParam));
    case TVM_SETITEMW:
      return SetItem(*reinterpret_cast<const TVITEMW*>(lParam));
    case TVM_GETITEMW:
      return GetItem(reinterpret_cast<TVITEMW*>(lParam));
    case TVM_GETITEMSTATE:
      return ItemState(reinterpret_cast<HTREEITEM>(wParam), static_cast<UINT>(lParam));
    case TVM_DELETEITEM:
      return Delete(item);
    case TVM_EXPAND:
      return ExpandMessage(wParam, item);
    case TVM_GETNEXTITEM:
      return NextItem(wParam, item);
    case TVM_SELECTITEM:
      return SelectMessage(wParam, item);
    case TVM_HITTEST:
      return HitTest(reinterpret_cast<TVHITTESTINFO*>(lParam));
    case TVM_ENSUREVISIBLE:
      return EnsureVisible(item);
    case TVM_GETITEMRECT:
      return ItemRect(wParam != 0, reinterpret_cast<RECT*>(lParam));
    case TVM_EDITLABELW:
      return BeginLabelEdit(item);
    default:
      return HandleLook(message, wParam, lParam);
  }
}

LRESULT TreeControl::HandleLook(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case TVM_GETEDITCONTROL:
      return reinterpret_cast<LRESULT>(edit);
    case TVM_SETIMAGELIST:
      return SetImageList(wParam, reinterpret_cast<HIMAGELIST>(lParam));
    case TVM_GETIMAGELIST:
      return reinterpret_cast<LRESULT>(wParam == TVSIL_STATE ? stateImages : images);
    case TVM_GETTOOLTIPS:
      return reinterpret_cast<LRESULT>(toolTip);
    case TVM_SETBKCOLOR:
      return Exchange(&backColor, lParam);
    case TVM_GETBKCOLOR:
      return backColor;
    case TVM_SETTEXTCOLOR:
      return Exchange(&textColor, lParam);
    case TVM_GETTEXTCOLOR:
      return textColor;
    default:
      return HandleWindow(message, wParam, lParam);
  }
}

LRESULT TreeControl::HandleWindow(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_LBUTTONDOWN:
      return LeftButtonDown(MousePoint(lParam));
    case WM_RBUTTONDOWN:
      return RightButtonDown(MousePoint(lParam));
    case WM_KEYDOWN:
      return KeyDown(wParam);
    case WM_SETFOCUS:
      Focused();
      return 0;
    case WM_KILLFOCUS:
      Notify(window, NM_KILLFOCUS);
      return 0;
    case WM_SIZE:
      barsStale = true;
      return 0;
    case WM_SETREDRAW:
      redraw = wParam != 0;
      return 0;
    case WM_PAINT:
      Painted();
      return 0;
    case WM_STYLECHANGED:
      StyleChanged(*reinterpret_cast<const STYLESTRUCT*>(lParam));
      return 0;
    case WM_DESTROY:
      DeleteAll();
      CloseLabelEdit();
      return 0;
    default:
      return DefWindowProcW(window, message, wParam, lParam);
  }
}

LRESULT TreeControl::SetImageList(WPARAM kind, HIMAGELIST list) {
  LayoutChanged();
  InvalidateRect(window, nullptr, TRUE);
  if (kind == TVSIL_STATE) return reinterpret_cast<LRESULT>(std::exchange(stateImages, list));
  if (kind != TVSIL_NORMAL) return 0;
  const SIZE size = ImageSize(list);
  indent = std::max<int>(kDefaultIndent, size.cx);
  rowHeight = std::max<int>(kDefaultRowHeight, (size.cy + 1) & ~1);
  return reinterpret_cast<LRESULT>(std::exchange(images, list));
}

// Any change ends a label edit. Turning check boxes on gives every item an empty box at once.
void TreeControl::StyleChanged(const STYLESTRUCT& change) {
  EndLabelEdit(true);
  if (Gone()) return;
  LayoutChanged();
  if (!(change.styleOld & TVS_CHECKBOXES) && (change.styleNew & TVS_CHECKBOXES)) MakeCheckBoxes();
}

// The control never frees the list.
void TreeControl::MakeCheckBoxes() {
  if (!stateImages) stateImages = MakeBlankList(kBoxSize, kBoxSize, kBoxImages);
  for (auto& [handle, item] : items) {
    item->state &= ~static_cast<UINT>(TVIS_STATEIMAGEMASK);
    item->state |= INDEXTOSTATEIMAGEMASK(1);
  }
  rowsStale = true;
}

// The first paint of a tree with check boxes but without images for them creates the images and
// empties all boxes.
void TreeControl::Painted() {
  ValidateRect(window, nullptr);
  if ((Style() & TVS_CHECKBOXES) && !stateImages) MakeCheckBoxes();
}

}  // namespace winsim
