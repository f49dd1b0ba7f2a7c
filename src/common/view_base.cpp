#include "common/view_base.h"

#include "core/module_handle.h"
#include "platform/activation.h"
#include "platform/screen_point.h"
#include "shell/context_menu.h"
#include "shell/drag_drop.h"

#include <utility>

void QVLView::Show() {
  if (controlWindow) ShowWindow(controlWindow, SW_SHOW);
}

void QVLView::Redraw() {
  if (controlWindow) InvalidateRect(controlWindow, nullptr, TRUE);
}

// An earlier view may have registered the class; the result does not matter.
bool QVLView::CreateParent(const WCHAR* className, WNDPROC procedure, HWND host, int id, int x,
                           int y, int width, int height, std::uint32_t style) {
  WNDCLASSW parentClass{};
  parentClass.style = CS_HREDRAW | CS_VREDRAW;
  parentClass.lpfnWndProc = procedure;
  parentClass.hInstance = moduleHandle;
  parentClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  parentClass.lpszClassName = className;
  activated::RegisterClassW(&parentClass);
  parentWindow =
      activated::CreateWindowExW(0, className, TEXT("QVL Tree View Parent"), WS_CHILD | WS_VISIBLE,
                                 x, y, width, height, host, nullptr, moduleHandle, nullptr);
  if (!parentWindow) return false;
  SetWindowLongPtrW(parentWindow, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  styleFlags = style;
  controlId = id;
  return true;
}

bool QVLView::CreateNativeControl(const WCHAR* className, DWORD style, DWORD exStyle, int width,
                                  int height) {
  const auto id = reinterpret_cast<HMENU>(static_cast<INT_PTR>(controlId));
  controlWindow =
      activated::CreateWindowExW(exStyle, className, TEXT("QVL Tree View"), style, 0, 0, width,
                                 height, parentWindow, id, moduleHandle, nullptr);
  return controlWindow != nullptr;
}

namespace {

// The platform may refuse to destroy a window. Such a window must not find the view any more.
void DestroyOrDetach(HWND window, bool holdsView) {
  if (!window || DestroyWindow(window)) return;
  if (holdsView) SetWindowLongPtrW(window, GWLP_USERDATA, 0);
}

}  // namespace

bool QVLView::DestroyWindows(ControlData data) {
  life.End();
  LifeWatch alive(life);
  DestroyOrDetach(controlWindow, data == ControlData::kOfView);
  if (alive) DestroyOrDetach(parentWindow, true);
  if (!alive) return false;
  controlWindow = nullptr;
  parentWindow = nullptr;
  return true;
}

void QVLView::MoveWindows(int x, int y, int width, int height) {
  MoveWindow(parentWindow, x, y, width, height, FALSE);
  MoveWindow(controlWindow, 0, 0, width, height, FALSE);
}

void QVLView::Report(ItemHandle item) {
  if (client) client->OnItemSelectionChanged(owner, item);
}

void QVLView::RequestInfoTip(ItemHandle item, WCHAR*& text, int& length) {
  LifeWatch alive(life);
  const POINT point = LastMessagePoint();
  std::uint32_t hitFlags = 0;
  HitTest(&point, false, &hitFlags);
  WCHAR* clientText = nullptr;
  int clientLength = 0;
  if (!client->OnGetInfoTip(owner, item, &clientText, &clientLength, hitFlags) || !alive) return;
  text = clientText;
  length = clientLength;
}

void QVLView::RequestContextMenu(LPARAM position) {
  LifeWatch alive(life);
  const POINT point = PointFromParam(position);
  std::uint32_t hitFlags = 0;
  const ItemHandle item = HitTest(&point, true, &hitFlags);
  if (alive && client) client->OnContextMenu(owner, point.x, point.y, item, hitFlags);
}

LRESULT QVLView::RequestLabelEdit(NMHDR& record) {
  return client->OnLabelEdit(owner, &record, record.code) ? 1 : 0;
}

bool QVLView::DragSelection(ItemHandleList& items) noexcept {
  if (!client || items.empty()) return false;
  const LifeWatch alive(life);
  FileNameList files;
  const bool agreed = client->OnBeginDrag(owner, &items, &files);
  if (!alive || !agreed || files.empty()) return false;
  QVLDragDrop().RunDrag(this, &files);
  return static_cast<bool>(alive);
}

bool QVLView::ShowSelectionMenu(int x, int y, ItemHandleList& items) noexcept {
  if (!client || items.empty()) return false;
  const LifeWatch alive(life);
  FileNameList files;
  const bool agreed = client->OnShellContextMenu(owner, &items, &files);
  if (!alive || !agreed || files.empty()) return false;

  QVLShellContextMenu menu;
  // A menu that is shown from within another one makes that one active again at its end.
  QVLShellContextMenu* const outer = std::exchange(activeContextMenu, &menu);
  const bool known = menu.ShowForFiles(parentWindow, x, y, &files);
  if (!alive) return false;
  activeContextMenu = outer;
  return known;
}
