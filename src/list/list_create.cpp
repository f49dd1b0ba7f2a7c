// How the list's windows come into being and go away.
#include "list/list_view.h"
#include "platform/list_control.h"
#include "view/style_map.h"
#include "view/windows_of_view.h"

namespace {

// The procedure that a list control had before; all list controls have the same class procedure.
WNDPROC savedListProc = nullptr;

// Whether that is an address to be called. For a procedure of the other character set the platform
// gives a handle instead, which only CallWindowProcW can make something of.
bool savedListProcIsAddress = false;

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

}  // namespace

QVLListView::~QVLListView() { Destroy(); }

HWND QVLListView::Create(HWND parent, int id, int x, int y, int width, int height,
                         std::uint32_t style, QVLTreeViewStyleExt* styleExt) {
  parentWindow = CreateViewParent(TEXT("QVLListViewParent"), ListParentWindowProc, parent, x, y,
                                  width, height);
  if (!parentWindow) return nullptr;
  SetWindowLongPtrW(parentWindow, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  styleFlags = style;
  controlId = id;
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
  controlWindow =
      CreateViewControl(WC_LISTVIEWW, style, exStyle, parentWindow, controlId, width, height);
  if (!controlWindow) return false;
  SubclassControl();
  list::SetExtendedStyle(controlWindow, listStyle);
  // The control shares its image lists, so it does not free this one either.
  if (listStyle & LVS_EX_CHECKBOXES) {
    checkBoxImages.Own(list::ImageList(controlWindow, LVSIL_STATE));
  }
  return true;
}

// The subclass procedure finds the view through the user data, so that comes first.
void QVLListView::SubclassControl() {
  SetWindowLongPtrW(controlWindow, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  savedListProcIsAddress = IsWindowUnicode(controlWindow);
  ReplaceControlProc(controlWindow, ListControlSubclassProc, savedListProc);
}

// Notes what the host asks of the control's drawing, and changes nothing. Every message passes, so
// the view is looked up for that one alone, and the way on is the shortest that there is:
// CallWindowProcW alone would cost a question to the control a third of its time.
LRESULT CALLBACK ListControlSubclassProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_SETREDRAW) {
    auto* view = reinterpret_cast<QVLListView*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (view) view->redraw.NoteRequest(wParam != 0);
  }
  return savedListProcIsAddress ? savedListProc(window, message, wParam, lParam)
                                : CallWindowProcW(savedListProc, window, message, wParam, lParam);
}

RECT QVLListView::ControlRect() const {
  RECT rect{};
  GetClientRect(controlWindow, &rect);
  return rect;
}

// The client may make the columns itself; otherwise there is one without a title, as wide as the
// control.
void QVLListView::MakeColumns() {
  LifeWatch alive(life);
  RECT rect = ControlRect();
  clientColumns = false;
  if (client) {
    const bool made = client->OnCreateColumns(owner, controlWindow, &rect);
    if (!alive) return;
    clientColumns = made;
  }
  if (clientColumns) return;
  LVCOLUMNW column{};
  column.mask = LVCF_FMT | LVCF_WIDTH | LVCF_SUBITEM;
  column.fmt = LVCFMT_LEFT;
  column.cx = rect.right - rect.left;
  list::InsertColumn(controlWindow, 1, column);
}

void QVLListView::Destroy() {
  if (!EndViewWindows(life, controlWindow, parentWindow)) return;
  client = nullptr;
  nextRow = 0;
  usingSystemImages = false;
  multiSelect = false;
  clientColumns = false;
  checkBoxImages.Free();
}

HWND QVLListView::GetControlWindow() { return controlWindow; }

void QVLListView::SetClient(IQVLTreeViewClient* newClient) { client = newClient; }

void QVLListView::SetMultiSelect(bool enabled) { multiSelect = enabled; }

bool QVLListView::GetMultiSelect() { return multiSelect; }

bool QVLListView::Move(int x, int y, int width, int height) {
  if (!controlWindow) return false;
  MoveViewWindows(parentWindow, controlWindow, x, y, width, height);
  if (!clientColumns) {
    const RECT rect = ControlRect();
    list::SetColumnWidth(controlWindow, 0, rect.right - rect.left);
  }
  return true;
}
