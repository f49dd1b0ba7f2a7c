// How the tree's windows come into being and go away.
#include "platform/tree_control.h"
#include "tree/tree_view.h"
#include "view/style_map.h"
#include "view/windows_of_view.h"

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

QVLTreeView::~QVLTreeView() { Destroy(); }

HWND QVLTreeView::Create(HWND parent, int id, int x, int y, int width, int height,
                         std::uint32_t style, QVLTreeViewStyleExt* styleExt) {
  parentWindow = CreateViewParent(TEXT("QVLTreeViewParent"), TreeParentWindowProc, parent, x, y,
                                  width, height);
  if (!parentWindow) return nullptr;
  SetWindowLongPtrW(parentWindow, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  styleFlags = style;
  controlId = id;
  if (!CreateControl(width, height, styleExt)) return nullptr;
  SetMultiSelect((style & QVLS_SINGLESEL) == 0);
  SubclassControl();
  return controlWindow;
}

// The subclass procedure finds the view through the user data, so that comes first.
void QVLTreeView::SubclassControl() {
  SetWindowLongPtrW(controlWindow, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  ReplaceControlProc(controlWindow, TreeControlSubclassProc, savedControlProc);
}

bool QVLTreeView::CreateControl(int width, int height, QVLTreeViewStyleExt* styleExt) {
  DWORD style = WS_CHILD | WS_VISIBLE | TranslateStyle(styleFlags, kStyles);
  DWORD exStyle = WS_EX_CLIENTEDGE;
  if (styleExt) {
    style |= styleExt->GetStyle();
    exStyle |= styleExt->GetStyleEx();
  }
  controlWindow =
      CreateViewControl(WC_TREEVIEWW, style, exStyle, parentWindow, controlId, width, height);
  if (!controlWindow) return false;
  if (style & TVS_CHECKBOXES) MakeCheckBoxImages();
  return true;
}

// Left alone the control makes its boxes at its first paint and empties them all; taking the style
// off and on has it make them now, so that boxes ticked before the window shows stay ticked.
void QVLTreeView::MakeCheckBoxImages() {
  const LONG_PTR withBoxes = GetWindowLongPtrW(controlWindow, GWL_STYLE);
  SetWindowLongPtrW(controlWindow, GWL_STYLE, withBoxes & ~static_cast<LONG_PTR>(TVS_CHECKBOXES));
  SetWindowLongPtrW(controlWindow, GWL_STYLE, withBoxes);
  checkBoxImages.Own(tree::ImageList(controlWindow, TVSIL_STATE));
}

void QVLTreeView::Destroy() {
  if (!EndViewWindows(life, controlWindow, parentWindow)) return;
  client = nullptr;
  usingSystemImages = false;
  multiSelect = false;
  checkBoxImages.Free();
}

HWND QVLTreeView::GetControlWindow() { return controlWindow; }

void QVLTreeView::SetClient(IQVLTreeViewClient* newClient) { client = newClient; }

void QVLTreeView::SetMultiSelect(bool enabled) { multiSelect = enabled; }

bool QVLTreeView::GetMultiSelect() { return multiSelect; }

bool QVLTreeView::Move(int x, int y, int width, int height) {
  if (!controlWindow) return false;
  MoveViewWindows(parentWindow, controlWindow, x, y, width, height);
  return true;
}
