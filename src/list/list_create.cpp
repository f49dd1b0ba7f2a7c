// Creates and destroys the list's windows.
#include "common/parent_proc.h"
#include "common/style_map.h"
#include "list/list_view.h"
#include "platform/list_control.h"

namespace {

// The class procedure of list controls that ListControlSubclassProc has replaced; one value for the
// process.
WNDPROC savedListProc = nullptr;

constexpr StylePair kStyles[] = {
    {QVLS_SHOWSELALWAYS, LVS_SHOWSELALWAYS},
    {QVLS_BORDER, WS_BORDER},
    {QVLS_NOCOLUMNHEADER, LVS_NOCOLUMNHEADER},
    {QVLS_SINGLESEL, LVS_SINGLESEL},
};

constexpr StylePair kListStyles[] = {
    {QVLS_CHECKBOXES, LVS_EX_CHECKBOXES},
    {QVLS_HASLINES, LVS_EX_GRIDLINES},
    {QVLS_INFOTIP, LVS_EX_INFOTIP},
};

DWORD WindowStyle(std::uint32_t flags) {
  DWORD style = WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SHAREIMAGELISTS;
  if (!(flags & QVLS_SORTHEADER)) style |= LVS_NOSORTHEADER;
  return style | TranslateStyle(flags, kStyles);
}

DWORD ListStyle(std::uint32_t flags) {
  return LVS_EX_LABELTIP | LVS_EX_FULLROWSELECT | LVS_EX_SUBITEMIMAGES |
         TranslateStyle(flags, kListStyles);
}

// The procedure of the window's class.
WNDPROC ClassProc(HWND window) {
  return reinterpret_cast<WNDPROC>(GetClassLongPtrW(window, GCLP_WNDPROC));
}

// Finds the view through the parent window, because the control's user data is the host's. Null if
// the host has moved the control to another parent.
QVLListView* ViewOf(HWND control) {
  const HWND parent = GetParent(control);
  if (ClassProc(parent) != ListParentWindowProc) return nullptr;
  return reinterpret_cast<QVLListView*>(GetWindowLongPtrW(parent, GWLP_USERDATA));
}

}  // namespace

LRESULT CALLBACK ListParentWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return HandleParentMessage<QVLListView>(window, message, wParam, lParam);
}

QVLListView::~QVLListView() { Destroy(); }

HWND QVLListView::Create(HWND parent, int id, int x, int y, int width, int height,
                         std::uint32_t style, QVLTreeViewStyleExt* styleExt) {
  if (!CreateParent(TEXT("QVLListViewParent"), ListParentWindowProc, parent, id, x, y, width,
                    height, style)) {
    return nullptr;
  }
  if (!CreateControl(width, height, styleExt)) return nullptr;
  LifeWatch alive(life);
  MakeColumns();
  return alive ? controlWindow : nullptr;
}

bool QVLListView::CreateControl(int width, int height, QVLTreeViewStyleExt* styleExt) {
  DWORD style = WindowStyle(styleFlags);
  DWORD exStyle = WS_EX_CLIENTEDGE;
  DWORD listStyle = ListStyle(styleFlags);
  if (styleExt) {
    style |= styleExt->GetStyle();
    exStyle |= styleExt->GetStyleEx();
    listStyle |= styleExt->GetStyleExCtrl();
  }
  if (!CreateNativeControl(WC_LISTVIEWW, style, exStyle, width, height)) return false;
  ObserveRedraw();
  ListControl::SetExtendedStyle(controlWindow, listStyle);
  // The control shares its image lists, so it does not free these either.
  if (listStyle & LVS_EX_CHECKBOXES) {
    checkBoxImages.NoteMade(ListControl::ImageList(controlWindow, LVSIL_STATE));
  }
  return true;
}

// Replaces the control's procedure only if it is the class procedure, and the same as that of the
// other list controls, so that the one saved value is right for all. For a class of the other
// character set the platform returns a handle that cannot be called directly.
void QVLListView::ObserveRedraw() {
  const WNDPROC own = ClassProc(controlWindow);
  const LONG_PTR current = GetWindowLongPtrW(controlWindow, GWLP_WNDPROC);
  if (!own || current != reinterpret_cast<LONG_PTR>(own) || !IsWindowUnicode(controlWindow)) return;
  if (savedListProc && savedListProc != own) return;
  savedListProc = own;
  if (SetWindowLongPtrW(controlWindow, GWLP_WNDPROC,
                        reinterpret_cast<LONG_PTR>(ListControlSubclassProc))) {
    redraw.Observe();
  }
}

// Notes WM_SETREDRAW and passes every message on. It calls the saved procedure directly, because
// CallWindowProcW would take a third of the time of a query.
LRESULT CALLBACK ListControlSubclassProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_SETREDRAW) {
    if (QVLListView* view = ViewOf(window)) view->redraw.NoteRequest(wParam != 0);
  }
  return savedListProc(window, message, wParam, lParam);
}

RECT QVLListView::ControlRect() const {
  RECT rect{};
  GetClientRect(controlWindow, &rect);
  return rect;
}

// The client may make the columns. Otherwise there is one without a title, as wide as the control.
void QVLListView::MakeColumns() {
  LifeWatch alive(life);
  const RECT rect = ControlRect();
  clientColumns = false;
  if (client) {
    RECT clientRect = rect;  // a copy, which the client may change
    const bool made = client->OnCreateColumns(owner, controlWindow, &clientRect);
    if (!alive) return;
    clientColumns = made;
  }
  if (clientColumns) return;
  LVCOLUMNW column{};
  column.mask = LVCF_FMT | LVCF_WIDTH | LVCF_SUBITEM;
  column.fmt = LVCFMT_LEFT;
  column.cx = rect.right - rect.left;
  ListControl::InsertColumn(controlWindow, 1, column);
}

void QVLListView::Destroy() {
  FreeCheckBoxImages();
  if (!DestroyWindows(ControlData::kOfHost)) return;
  client = nullptr;
  nextRow = 0;
  usingSystemImages = false;
  multiSelect = false;
  clientColumns = false;
}

bool QVLListView::Move(int x, int y, int width, int height) {
  if (!controlWindow) return false;
  MoveWindows(x, y, width, height);
  if (!clientColumns) {
    const RECT rect = ControlRect();
    ListControl::SetColumnWidth(controlWindow, 0, rect.right - rect.left);
  }
  return true;
}
