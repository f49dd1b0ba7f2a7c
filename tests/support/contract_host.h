// What the contract tests stand on: a bare control in a window that writes down what it is told.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>
#include <utility>

#include "support/host_window.h"

inline std::string WordFor(const NMHDR& header) {
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
    default:
      return {};
  }
}

// The control of TreeTest or ListTest without the library round it. The host window keeps a word
// for each notification that the library acts on, each context request, and its own end, in their
// order:
//
//   caret b   clear (no caret)   +a  -a (expanded, collapsed)   deleted a   drag a
//   changed 3   menu   destroy   gone
//
// A tree's item is named by the letter that it has for its parameter.
template <class View>
class ContractTest : public View {
 protected:
  using View::control, View::host;

  void SetUp() override {
    View::SetUp();
    SetWindowLongPtrW(host, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&HostProc));
  }

  void TearDown() override {
    View::TearDown();
    told.clear();
  }

  void MakeControl(const WCHAR* className, DWORD style) {
    if (control) DestroyWindow(control);
    control =
        CreateWindowExW(WS_EX_CLIENTEDGE, className, TEXT(""), WS_CHILD | style, 0, 0, View::WIDTH,
                        View::HEIGHT, host, nullptr, GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(control, nullptr);
  }

  void ShowControl() {
    ShowWindow(control, SW_SHOW);
    UpdateWindow(control);
    PumpMessages();
  }

  // A press after which the mouse moves by that much before the button is let go.
  void Drag(POINT from, int dx, int dy, WPARAM keys = 0) const {
    const LPARAM end = MAKELPARAM(from.x + dx, from.y + dy);
    if (dx != 0 || dy != 0) PostMessageW(control, WM_MOUSEMOVE, MK_LBUTTON | keys, end);
    PostMessageW(control, WM_LBUTTONUP, keys, end);
    View::Ask(WM_LBUTTONDOWN, MK_LBUTTON | keys, MAKELPARAM(from.x, from.y));
    PumpMessages();
  }
  void Press(POINT point, WPARAM keys = 0) const { Drag(point, 0, 0, keys); }

  void RightPress(POINT point) const {
    PostMessageW(control, WM_RBUTTONUP, 0, MAKELPARAM(point.x, point.y));
    View::Ask(WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(point.x, point.y));
    PumpMessages();
  }

  // A key, with another one held down.
  void Key(WPARAM key, int held = 0) const {
    BYTE keys[256] = {};
    if (held) keys[held] = 0x80;
    SetKeyboardState(keys);
    View::Ask(WM_KEYDOWN, key, 1);
    if (held) keys[held] = 0;
    SetKeyboardState(keys);
  }

  // The words since the last call, with a comma between two.
  std::string Told() { return std::exchange(told, {}); }

 private:
  static LRESULT CALLBACK HostProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const bool notified = message == WM_NOTIFY;
    const std::string word = notified ? WordFor(*reinterpret_cast<NMHDR*>(lParam))
                             : message == WM_CONTEXTMENU ? "menu"
                             : message == WM_DESTROY     ? "destroy"
                             : message == WM_NCDESTROY   ? "gone"
                                                         : "";
    if (!word.empty()) told += (told.empty() ? "" : ",") + word;
    return notified ? 0 : DefWindowProcW(window, message, wParam, lParam);
  }

  static inline std::string told;
};
