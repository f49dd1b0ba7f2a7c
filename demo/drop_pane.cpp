#include "drop_pane.h"

#include <algorithm>
#include <string>

#include "text.h"

namespace demo {
namespace {

FORMATETC FileListFormat() {
  FORMATETC format{};
  format.cfFormat = CF_HDROP;
  format.dwAspect = DVASPECT_CONTENT;
  format.lindex = -1;
  format.tymed = TYMED_HGLOBAL;
  return format;
}

std::vector<std::wstring> NamesOf(IDataObject& data) {
  FORMATETC format = FileListFormat();
  STGMEDIUM medium{};
  if (FAILED(data.GetData(&format, &medium))) return {};
  std::vector<std::wstring> names = FileNames(static_cast<HDROP>(medium.hGlobal));
  ReleaseStgMedium(&medium);
  return names;
}

int TextWidth(const std::wstring& text) {
  const HDC screen = GetDC(nullptr);
  const HGDIOBJ former = SelectObject(screen, MessageFont());
  SIZE size{};
  GetTextExtentPoint32W(screen, text.c_str(), static_cast<int>(text.size()), &size);
  SelectObject(screen, former);
  ReleaseDC(nullptr, screen);
  return static_cast<int>(size.cx);
}

}  // namespace

std::vector<std::wstring> FileNames(HDROP drop) {
  std::vector<std::wstring> names;
  const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
  for (UINT i = 0; i < count; ++i) {
    std::wstring name(DragQueryFileW(drop, i, nullptr, 0), L'\0');
    DragQueryFileW(drop, i, name.data(), static_cast<UINT>(name.size()) + 1);
    names.push_back(name);
  }
  return names;
}

DropPane::~DropPane() {
  if (isRegistered && Window()) RevokeDragDrop(Window());
}

bool DropPane::Create(HWND parent) {
  WindowPlan plan;
  plan.className = L"QVLDemoDropPane";
  plan.style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
  plan.parent = parent;
  if (!CreateFrom(plan)) return false;
  const DWORD style =
      WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | LBS_NOINTEGRALHEIGHT | LBS_NOSEL;
  names = CreateWindowExW(WS_EX_CLIENTEDGE, L"LISTBOX", L"", style, 0, 0, 0, 0, Window(), nullptr,
                          GetModuleHandleW(nullptr), nullptr);
  UseMessageFont(names);
  isRegistered = SUCCEEDED(RegisterDragDrop(Window(), this));
  return isRegistered && names;
}

LRESULT DropPane::Receive(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SIZE:
      Arrange();
      return 0;
    case WM_PAINT:
      Paint();
      return 0;
    case WM_DESTROY:
      if (isRegistered) RevokeDragDrop(Window());
      isRegistered = false;
      return 0;
    default:
      return WindowBase::Receive(message, wParam, lParam);
  }
}

void DropPane::Arrange() {
  RECT area{};
  GetClientRect(Window(), &area);
  const int top = LineHeight() + Scaled(6);
  MoveTo(names, {0, top, area.right, std::max<LONG>(area.bottom, top)});
  InvalidateRect(Window(), nullptr, TRUE);
}

void DropPane::Paint() {
  PAINTSTRUCT paint{};
  const HDC canvas = BeginPaint(Window(), &paint);
  RECT area{};
  GetClientRect(Window(), &area);
  area.bottom = LineHeight() + Scaled(6);
  area.left += 2;
  FillRect(canvas, &area, GetSysColorBrush(isHovered ? COLOR_HIGHLIGHT : COLOR_BTNFACE));
  SetBkMode(canvas, TRANSPARENT);
  SetTextColor(canvas, GetSysColor(isHovered ? COLOR_HIGHLIGHTTEXT : COLOR_BTNTEXT));
  const HGDIOBJ former = SelectObject(canvas, MessageFont());
  std::wstring title = L"Drop pane: drag files here";
  if (!dropped.empty()) title = L"Dropped: " + std::to_wstring(dropped.size());
  DrawTextW(canvas, title.c_str(), -1, &area, DT_SINGLELINE | DT_VCENTER);
  SelectObject(canvas, former);
  EndPaint(Window(), &paint);
}

void DropPane::ShowNames() {
  SendMessageW(names, LB_RESETCONTENT, 0, 0);
  int widest = 0;
  for (const std::wstring& name : dropped) {
    SendMessageW(names, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
    widest = std::max(widest, TextWidth(name));
  }
  SendMessageW(names, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest) + Scaled(6), 0);
  InvalidateRect(Window(), nullptr, TRUE);
}

HRESULT DropPane::QueryInterface(REFIID id, void** object) {
  const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDropTarget);
  *object = known ? static_cast<IDropTarget*>(this) : nullptr;
  return known ? S_OK : E_NOINTERFACE;
}

HRESULT DropPane::DragEnter(IDataObject* data, DWORD, POINTL, DWORD* effect) {
  FORMATETC format = FileListFormat();
  accepts = data->QueryGetData(&format) == S_OK;
  isHovered = accepts;
  InvalidateRect(Window(), nullptr, TRUE);
  log.Add(accepts ? "drop pane: files enter" : "drop pane: other data enters");
  *effect = accepts ? DROPEFFECT_COPY : DROPEFFECT_NONE;
  return S_OK;
}

HRESULT DropPane::DragOver(DWORD, POINTL, DWORD* effect) {
  *effect = accepts ? DROPEFFECT_COPY : DROPEFFECT_NONE;
  return S_OK;
}

HRESULT DropPane::DragLeave() {
  isHovered = false;
  InvalidateRect(Window(), nullptr, TRUE);
  log.Add("drop pane: the drag leaves");
  return S_OK;
}

HRESULT DropPane::Drop(IDataObject* data, DWORD, POINTL, DWORD* effect) {
  isHovered = false;
  dropped = NamesOf(*data);
  ShowNames();
  log.Add("drop pane: " + std::to_string(dropped.size()) + " files dropped");
  for (const std::wstring& name : dropped) log.Add("drop pane: " + Utf8(name));
  *effect = dropped.empty() ? DROPEFFECT_NONE : DROPEFFECT_COPY;
  return S_OK;
}

}  // namespace demo
