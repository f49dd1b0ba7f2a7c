#include "tree_control.h"

#include <algorithm>
#include <utility>

#include "controls.h"
#include "image_list.h"
#include "tool_tip.h"

namespace winsim {
namespace {

constexpr int kBoxSize = 13;
constexpr int kBoxImages = 3;
constexpr int kDefaultIndent = 19;
constexpr int kDefaultRowHeight = 16;

HTREEITEM ToItem(LPARAM value) { return reinterpret_cast<HTREEITEM>(value); }

std::shared_ptr<Control> Make(HWND window) { return std::make_shared<TreeControl>(window); }

}  // namespace

void AddTreeControlClass() { AddControlClass(WC_TREEVIEWW, &Make); }

TreeControl::TreeControl(HWND window) : window_(window) {
  root_.level = -1;
  root_.state = TVIS_EXPANDED;
  if (!(Style() & TVS_NOTOOLTIPS)) {
    toolTip_ = MakeToolTip(window);
  }
}

DWORD TreeControl::Style() const {
  const Window* window = FindWindow(window_);
  return window ? window->style : 0;
}

bool TreeControl::Gone() const { return FindWindow(window_) == nullptr; }

LRESULT TreeControl::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case TVM_INSERTITEMW:
      return Insert(*reinterpret_cast<const TVINSERTSTRUCTW*>(lParam));
    case TVM_SETITEMW:
      return SetItem(*reinterpret_cast<const TVITEMW*>(lParam));
    case TVM_GETITEMW:
      return GetItem(reinterpret_cast<TVITEMW*>(lParam));
    case TVM_GETITEMSTATE: {
      const TreeItem* item = Find(ToItem(static_cast<LPARAM>(wParam)));
      return item ? item->state & static_cast<UINT>(lParam) : 0;
    }
    case TVM_DELETEITEM:
      return Delete(ToItem(lParam));
    case TVM_EXPAND:
      return ExpandMessage(wParam, ToItem(lParam));
    case TVM_GETNEXTITEM:
      return NextItem(wParam, ToItem(lParam));
    case TVM_SELECTITEM:
      return SelectMessage(wParam, ToItem(lParam));
    case TVM_HITTEST:
      return HitTest(reinterpret_cast<TVHITTESTINFO*>(lParam));
    case TVM_ENSUREVISIBLE:
      return EnsureVisible(ToItem(lParam));
    case TVM_GETITEMRECT:
      return ItemRect(wParam != 0, reinterpret_cast<RECT*>(lParam));
    case TVM_GETEDITCONTROL:
      return reinterpret_cast<LRESULT>(edit_);
    case TVM_EDITLABELW:
      return BeginLabelEdit(ToItem(lParam));
    case TVM_SETIMAGELIST:
      return SetImageList(wParam, reinterpret_cast<HIMAGELIST>(lParam));
    case TVM_GETIMAGELIST:
      return reinterpret_cast<LRESULT>(wParam == TVSIL_STATE ? stateImages_ : images_);
    case TVM_GETTOOLTIPS:
      return reinterpret_cast<LRESULT>(toolTip_);
    case TVM_SETBKCOLOR:
      return static_cast<LRESULT>(std::exchange(backColor_, static_cast<COLORREF>(lParam)));
    case TVM_GETBKCOLOR:
      return static_cast<LRESULT>(backColor_);
    case TVM_SETTEXTCOLOR:
      return static_cast<LRESULT>(std::exchange(textColor_, static_cast<COLORREF>(lParam)));
    case TVM_GETTEXTCOLOR:
      return static_cast<LRESULT>(textColor_);
    default:
      return HandleWindow(message, wParam, lParam);
  }
}

LRESULT TreeControl::HandleWindow(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_LBUTTONDOWN:
      return LeftButtonDown(lParam);
    case WM_RBUTTONDOWN:
      return RightButtonDown(lParam);
    case WM_KEYDOWN:
      return KeyDown(wParam);
    case WM_SETFOCUS:
      Focused();
      return 0;
    case WM_KILLFOCUS: {
      NMHDR header = {};
      Notify(window_, NM_KILLFOCUS, &header);
      return 0;
    }
    case WM_SIZE:
      barsStale_ = true;
      return 0;
    case WM_SETREDRAW:
      redraw_ = wParam != 0;
      return 0;
    case WM_PAINT:
      Painted();
      return 0;
    case WM_STYLECHANGED:
      StyleChanged(*reinterpret_cast<const STYLESTRUCT*>(lParam));
      return 0;
    case WM_DESTROY:
      EndWindow();
      return 0;
    default:
      return DefWindowProcW(window_, message, wParam, lParam);
  }
}

LRESULT TreeControl::SetImageList(WPARAM kind, HIMAGELIST list) {
  barsStale_ = rowsStale_ = true;
  InvalidateRect(window_, nullptr, TRUE);
  if (kind == TVSIL_STATE) {
    return reinterpret_cast<LRESULT>(std::exchange(stateImages_, list));
  }
  if (kind != TVSIL_NORMAL) {
    return 0;
  }
  int width = 0;
  int height = 0;
  ImageList_GetIconSize(list, &width, &height);
  indent_ = std::max(kDefaultIndent, width);
  rowHeight_ = std::max(kDefaultRowHeight, (height + 1) & ~1);
  return reinterpret_cast<LRESULT>(std::exchange(images_, list));
}

// Any change closes a label edit. Taking the check box style on gives every item an empty box at
// once.
void TreeControl::StyleChanged(const STYLESTRUCT& change) {
  EndLabelEdit(true);
  if (Gone()) {
    return;
  }
  barsStale_ = rowsStale_ = true;
  if (!(change.styleOld & TVS_CHECKBOXES) && (change.styleNew & TVS_CHECKBOXES)) {
    MakeCheckBoxes();
  }
}

// The list is never freed by the control.
void TreeControl::MakeCheckBoxes() {
  if (!stateImages_) {
    stateImages_ = ImageList_Create(kBoxSize, kBoxSize, ILC_COLOR | ILC_MASK, kBoxImages, 0);
    ImageList_SetImageCount(stateImages_, kBoxImages);
  }
  for (auto& [handle, item] : items_) {
    item->state = (item->state & ~static_cast<UINT>(TVIS_STATEIMAGEMASK)) | 0x1000;
  }
  rowsStale_ = true;
}

// A tree with check boxes that has no images for them makes some when it is painted, and empties
// all the boxes.
void TreeControl::Painted() {
  ValidateRect(window_, nullptr);
  if ((Style() & TVS_CHECKBOXES) && !stateImages_) {
    MakeCheckBoxes();
  }
}

void TreeControl::EndWindow() {
  DeleteAll();
  if (edit_ && !Gone()) {
    CloseLabelEdit();
  }
}

}  // namespace winsim
