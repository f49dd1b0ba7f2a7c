// Creates and destroys the tree's windows.
#include "common/parent_proc.h"
#include "common/style_map.h"
#include "platform/tree_control.h"
#include "tree/tree_view.h"

WNDPROC savedControlProc = nullptr;

namespace {

constexpr StylePair kStyles[] = {
    {QVLS_SHOWSELALWAYS, TVS_SHOWSELALWAYS},
    {QVLS_BORDER, WS_BORDER},
    {QVLS_CHECKBOXES, TVS_CHECKBOXES},
    {QVLS_HASBUTTONS, TVS_HASBUTTONS},
    {QVLS_HASLINES, TVS_HASLINES},
    {QVLS_LINESATROOT, TVS_LINESATROOT},
    {QVLS_INFOTIP, TVS_INFOTIP},
    {QVLS_NODRAGDROP, TVS_DISABLEDRAGDROP},
    {QVLS_EDITLABELS, TVS_EDITLABELS},
    {QVLS_FULLROWSELECT, TVS_FULLROWSELECT},
};

}  // namespace

LRESULT CALLBACK TreeParentWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return HandleParentMessage<QVLTreeView>(window, message, wParam, lParam);
}

QVLTreeView::~QVLTreeView() { Destroy(); }

HWND QVLTreeView::Create(HWND parent, int id, int x, int y, int width, int height,
                         std::uint32_t style, QVLTreeViewStyleExt* styleExt) {
  if (!CreateParent(TEXT("QVLTreeViewParent"), TreeParentWindowProc, parent, id, x, y, width,
                    height, style)) {
    return nullptr;
  }
  if (!CreateControl(width, height, styleExt)) return nullptr;
  SetMultiSelect((style & QVLS_SINGLESEL) == 0);
  SubclassControl();
  return controlWindow;
}

// The subclass procedure finds the view through the user data, so that comes first. If the platform
// refuses, the control keeps its procedure.
void QVLTreeView::SubclassControl() {
  SetWindowLongPtrW(controlWindow, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  const LONG_PTR previous = SetWindowLongPtrW(controlWindow, GWLP_WNDPROC,
                                              reinterpret_cast<LONG_PTR>(TreeControlSubclassProc));
  if (!previous) return;
  savedControlProc = reinterpret_cast<WNDPROC>(previous);
  redraw.Observe();
}

bool QVLTreeView::CreateControl(int width, int height, QVLTreeViewStyleExt* styleExt) {
  DWORD style = WS_CHILD | WS_VISIBLE | TranslateStyle(styleFlags, kStyles);
  DWORD exStyle = WS_EX_CLIENTEDGE;
  if (styleExt) {
    style |= styleExt->GetStyle();
    exStyle |= styleExt->GetStyleEx();
  }
  if (!CreateNativeControl(WC_TREEVIEWW, style, exStyle, width, height)) return false;
  if (style & TVS_CHECKBOXES) MakeCheckBoxImages();
  return true;
}

// By itself the control makes its boxes at the first paint and empties them all. Taking the style
// off and on makes them now, so that boxes checked before the first paint stay checked.
void QVLTreeView::MakeCheckBoxImages() {
  const LONG_PTR withBoxes = GetWindowLongPtrW(controlWindow, GWL_STYLE);
  SetWindowLongPtrW(controlWindow, GWL_STYLE, withBoxes & ~static_cast<LONG_PTR>(TVS_CHECKBOXES));
  SetWindowLongPtrW(controlWindow, GWL_STYLE, withBoxes);
  checkBoxImages.NoteMade(TreeControl::ImageList(controlWindow, TVSIL_STATE));
}

void QVLTreeView::Destroy() {
  FreeCheckBoxImages();
  if (!DestroyWindows(ControlData::kOfView)) return;
  client = nullptr;
  usingSystemImages = false;
  multiSelect = false;
}

bool QVLTreeView::Move(int x, int y, int width, int height) {
  if (!controlWindow) return false;
  MoveWindows(x, y, width, height);
  return true;
}
