#include "drop_pane.h"

#include <string>

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

std::vector<WideText> NamesOf(IDataObject& data) {
  FORMATETC format = FileListFormat();
  STGMEDIUM medium{};
  if (FAILED(data.GetData(&format, &medium))) return {};
  std::vector<WideText> names = FileNames(static_cast<HDROP>(medium.hGlobal));
  ReleaseStgMedium(&medium);
  return names;
}

}  // namespace

std::vector<WideText> FileNames(HDROP drop) {
  std::vector<WideText> names;
  const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
  for (UINT i = 0; i < count; ++i) {
    WideText name(DragQueryFileW(drop, i, nullptr, 0), L'\0');
    DragQueryFileW(drop, i, name.data(), static_cast<UINT>(name.size()) + 1);
    names.push_back(name);
  }
  return names;
}

DropPane::~DropPane() {
  if (registered && Window() != nullptr) RevokeDragDrop(Window());
}

bool DropPane::Create(HWND parent) {
  WindowPlan plan;
  plan.className = L"QVLDemoDropPane";
  plan.style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
  plan.parent = parent;
  if (!CreateFrom(plan)) return false;
  const DWORD style = WS_CHILD | WS_VISIBLE | WS_VSCROLL | LBS_NOINTEGRALHEIGHT | LBS_NOSEL;
  names = CreateWindowExW(WS_EX_CLIENTEDGE, L"LISTBOX", L"", style, 0, 0, 0, 0, Window(), nullptr,
                          GetModuleHandleW(nullptr), nullptr);
  UseMessageFont(names);
  registered = SUCCEEDED(RegisterDragDrop(Window(), this));
  return registered && names != nullptr;
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
      if (registered) RevokeDragDrop(Window());
      registered = false;
      return 0;
    default:
      return WindowBase::Receive(message, wParam, lParam);
  }
}

void DropPane::Arrange() {
  RECT area{};
  GetClientRect(Window(), &area);
  const int top = LineHeight() + 6;
  MoveWindow(names, 0, top, area.right, area.bottom - top, TRUE);
  InvalidateRect(Window(), nullptr, TRUE);
}

void DropPane::Paint() {
  PAINTSTRUCT paint{};
  const HDC canvas = BeginPaint(Window(), &paint);
  RECT area{};
  GetClientRect(Window(), &area);
  area.bottom = LineHeight() + 6;
  area.left += 2;
  FillRect(canvas, &area, GetSysColorBrush(hovered ? COLOR_HIGHLIGHT : COLOR_BTNFACE));
  SetBkMode(canvas, TRANSPARENT);
  SetTextColor(canvas, GetSysColor(hovered ? COLOR_HIGHLIGHTTEXT : COLOR_BTNTEXT));
  const HGDIOBJ former = SelectObject(canvas, MessageFont());
  std::wstring title = L"Drop pane: drag files here";
  if (!dropped.empty()) title = L"Dropped: " + std::to_wstring(dropped.size());
  DrawTextW(canvas, title.c_str(), -1, &area, DT_SINGLELINE | DT_VCENTER);
  SelectObject(canvas, former);
  EndPaint(Window(), &paint);
}

void DropPane::ShowNames() {
  SendMessageW(names, LB_RESETCONTENT, 0, 0);
  for (const WideText& name : dropped) {
    SendMessageW(names, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
  }
  InvalidateRect(Window(), nullptr, TRUE);
}

HRESULT DropPane::QueryInterface(REFIID id, void** object) {
  const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDropTarget);
  *object = known ? static_cast<IDropTarget*>(this) : nullptr;
  return known ? S_OK : E_NOINTERFACE;
}

HRESULT DropPane::DragEnter(IDataObject* data, DWORD, POINTL, DWORD* effect) {
  FORMATETC format = FileListFormat();
  takes = data->QueryGetData(&format) == S_OK;
  hovered = takes;
  InvalidateRect(Window(), nullptr, TRUE);
  log.Add(takes ? "drop pane: files come in" : "drop pane: something else comes in");
  *effect = takes ? DROPEFFECT_COPY : DROPEFFECT_NONE;
  return S_OK;
}

HRESULT DropPane::DragOver(DWORD, POINTL, DWORD* effect) {
  *effect = takes ? DROPEFFECT_COPY : DROPEFFECT_NONE;
  return S_OK;
}

HRESULT DropPane::DragLeave() {
  hovered = false;
  InvalidateRect(Window(), nullptr, TRUE);
  log.Add("drop pane: they leave");
  return S_OK;
}

HRESULT DropPane::Drop(IDataObject* data, DWORD, POINTL, DWORD* effect) {
  hovered = false;
  dropped = NamesOf(*data);
  ShowNames();
  log.Add("drop pane: " + std::to_string(dropped.size()) + " files dropped");
  for (const WideText& name : dropped) log.Add("drop pane: " + Utf8(name));
  *effect = dropped.empty() ? DROPEFFECT_NONE : DROPEFFECT_COPY;
  return S_OK;
}

}  // namespace demo
