#include "support/contract_host.h"

#include <utility>

namespace {

constexpr const WCHAR* HOST_CLASS = TEXT("ContractHost");

std::string Narrow(const WCHAR* text) {
  std::string narrow;
  for (; text && *text; ++text) {
    narrow += static_cast<char>(*text);
  }
  return narrow;
}

std::string Edited(const std::string& item, const WCHAR* text) {
  return "edited " + item + (text ? "=" + Narrow(text) : "");
}

}  // namespace

ContractTest* ContractTest::current = nullptr;

void ContractTest::SetUp() {
  WNDCLASSW hostClass = {};
  hostClass.lpfnWndProc = &HostProc;
  hostClass.hInstance = GetModuleHandleW(nullptr);
  hostClass.lpszClassName = HOST_CLASS;
  RegisterClassW(&hostClass);
  current = this;
  host = CreateWindowExW(0, HOST_CLASS, TEXT("host"), WS_POPUP | WS_CLIPCHILDREN, 50, 50, 300, 400,
                         nullptr, nullptr, hostClass.hInstance, nullptr);
  ASSERT_NE(host, nullptr);
  ShowWindow(host, SW_SHOWNOACTIVATE);
  Pump();
}

void ContractTest::TearDown() {
  Hold(VK_SHIFT, false);
  Hold(VK_CONTROL, false);
  current = nullptr;
  DestroyWindow(host);
  Pump();
}

void ContractTest::MakeControl(const WCHAR* className, DWORD style) {
  if (control) {
    DestroyWindow(control);
  }
  control = CreateWindowExW(WS_EX_CLIENTEDGE, className, TEXT(""), WS_CHILD | WS_VISIBLE | style, 0,
                            0, 300, 400, host, reinterpret_cast<HMENU>(CONTROL_ID),
                            GetModuleHandleW(nullptr), nullptr);
  ASSERT_NE(control, nullptr);
  UpdateWindow(control);
  Pump();
  names.clear();
  heard.clear();
}

bool ContractTest::Press(int x, int y, WPARAM keys) {
  Pump();
  PostMessageW(control, WM_LBUTTONUP, keys, MAKELPARAM(x, y));
  Send(WM_LBUTTONDOWN, MK_LBUTTON | keys, MAKELPARAM(x, y));
  MSG message;
  const bool left = PeekMessageW(&message, control, WM_LBUTTONUP, WM_LBUTTONUP, PM_NOREMOVE);
  Pump();
  return !left;
}

void ContractTest::Drag(int x, int y, int dx, int dy, WPARAM keys) {
  Pump();
  PostMessageW(control, WM_MOUSEMOVE, MK_LBUTTON | keys, MAKELPARAM(x + dx, y + dy));
  PostMessageW(control, WM_LBUTTONUP, keys, MAKELPARAM(x + dx, y + dy));
  Send(WM_LBUTTONDOWN, MK_LBUTTON | keys, MAKELPARAM(x, y));
  Pump();
}

void ContractTest::RightPress(int x, int y) {
  Pump();
  PostMessageW(control, WM_RBUTTONUP, 0, MAKELPARAM(x, y));
  Send(WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(x, y));
  Pump();
}

void ContractTest::Hold(int key, bool down) {
  BYTE keys[256];
  GetKeyboardState(keys);
  keys[key] = down ? 0x80 : 0;
  SetKeyboardState(keys);
}

std::string ContractTest::Heard() { return std::exchange(heard, {}); }

void ContractTest::Pump() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

LRESULT CALLBACK ContractTest::HostProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (current && message == WM_NOTIFY) {
    return current->Notified(*reinterpret_cast<const NMHDR*>(lParam));
  }
  if (current && message == WM_CONTEXTMENU) {
    current->heard += current->heard.empty() ? "menu" : ",menu";
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

LRESULT ContractTest::Notified(const NMHDR& header) {
  const std::string word = header.idFrom == CONTROL_ID ? Describe(header) : "";
  if (word.empty()) {
    return 0;
  }
  heard += (heard.empty() ? "" : ",") + word;
  if (onHeard) {
    onHeard(header);
  }
  const bool edit = word.starts_with("edit");
  return edit ? answer : 0;
}

std::string ContractTest::Name(HTREEITEM item) const {
  const auto known = names.find(item);
  return known == names.end() ? "?" : known->second;
}

std::string ContractTest::Describe(const NMHDR& header) const {
  const auto& tree = reinterpret_cast<const NMTREEVIEWW&>(header);
  const auto& row = reinterpret_cast<const NMLISTVIEW&>(header);
  const auto& treeEdit = reinterpret_cast<const NMTVDISPINFOW&>(header).item;
  const auto& rowEdit = reinterpret_cast<const NMLVDISPINFOW&>(header).item;
  switch (header.code) {
    case TVN_SELCHANGEDW:
      return tree.itemNew.hItem ? "caret " + Name(tree.itemNew.hItem) : "clear";
    case TVN_ITEMEXPANDEDW:
      return (tree.action == TVE_EXPAND ? "expanded+" : "expanded-") + Name(tree.itemNew.hItem);
    case TVN_BEGINDRAGW:
      return "drag " + Name(tree.itemNew.hItem);
    case TVN_DELETEITEMW:
      return "deleted " + Name(tree.itemOld.hItem);
    case TVN_BEGINLABELEDITW:
      return "edit " + Name(treeEdit.hItem);
    case TVN_ENDLABELEDITW:
      return Edited(Name(treeEdit.hItem), treeEdit.pszText);
    case LVN_ITEMCHANGED:
      return "changed " + std::to_string(row.iItem);
    case LVN_BEGINDRAG:
      return "drag " + std::to_string(row.iItem);
    case LVN_COLUMNCLICK:
      return "column " + std::to_string(row.iSubItem);
    case LVN_BEGINLABELEDITW:
      return "edit " + std::to_string(rowEdit.iItem);
    case LVN_ENDLABELEDITW:
      return Edited(std::to_string(rowEdit.iItem), rowEdit.pszText);
    default:
      return {};
  }
}
