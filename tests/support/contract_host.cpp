#include "support/contract_host.h"

#include <utility>

namespace {

std::string heard;

void Write(const std::string& word) {
  if (!word.empty()) heard += (heard.empty() ? "" : ",") + word;
}

std::string WordFor(const NMHDR& header) {
  const auto& tree = reinterpret_cast<const NMTREEVIEWW&>(header);
  const auto& row = reinterpret_cast<const NMLISTVIEW&>(header);
  const auto item = [](const TVITEMW& of) { return std::string(1, static_cast<char>(of.lParam)); };
  switch (header.code) {
    case TVN_SELCHANGEDW:
      return tree.itemNew.hItem ? "caret " + item(tree.itemNew) : "clear";
    case TVN_ITEMEXPANDEDW:
      return (tree.action == TVE_EXPAND ? "+" : "-") + item(tree.itemNew);
    case TVN_DELETEITEMW:
      return "deleted " + item(tree.itemOld);
    case TVN_BEGINDRAGW:
      return "drag " + item(tree.itemNew);
    case LVN_ITEMCHANGED:
      return "changed " + std::to_string(row.iItem);
    case LVN_BEGINDRAG:
      return "drag " + std::to_string(row.iItem);
    case LVN_COLUMNCLICK:
      return "column " + std::to_string(row.iSubItem);
    default:
      return {};
  }
}

}  // namespace

void ContractTest::SetUp() {
  HostTest::SetUp();
  SetWindowLongPtrW(host, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&HostProc));
}

void ContractTest::TearDown() {
  HostTest::TearDown();
  Heard();
}

void ContractTest::MakeControl(const WCHAR* className, DWORD style) {
  if (control) DestroyWindow(control);
  control = CreateWindowExW(WS_EX_CLIENTEDGE, className, TEXT(""), WS_CHILD | style, 0, 0, WIDTH,
                            HEIGHT, host, nullptr, GetModuleHandleW(nullptr), nullptr);
  ASSERT_NE(control, nullptr);
}

void ContractTest::Drag(int x, int y, int dx, int dy, WPARAM keys) const {
  const LPARAM end = MAKELPARAM(x + dx, y + dy);
  if (dx != 0 || dy != 0) PostMessageW(control, WM_MOUSEMOVE, MK_LBUTTON | keys, end);
  PostMessageW(control, WM_LBUTTONUP, keys, end);
  Send(WM_LBUTTONDOWN, MK_LBUTTON | keys, MAKELPARAM(x, y));
  PumpMessages();
}

void ContractTest::RightPress(int x, int y) const {
  PostMessageW(control, WM_RBUTTONUP, 0, MAKELPARAM(x, y));
  Send(WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(x, y));
  PumpMessages();
}

std::string ContractTest::Heard() { return std::exchange(heard, {}); }

LRESULT CALLBACK ContractTest::HostProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_NOTIFY:
      Write(WordFor(*reinterpret_cast<const NMHDR*>(lParam)));
      return 0;
    case WM_CONTEXTMENU:
      Write("menu");
      break;
    case WM_DESTROY:
      Write("destroy");
      break;
    case WM_NCDESTROY:
      Write("gone");
      break;
    default:
      break;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}
