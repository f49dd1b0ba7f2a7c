// What the contract tests stand on: a bare control in a window that writes down what it is told.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>

#include "support/host_window.h"

// A tree or a list without the library round it. The host window keeps a word for each
// notification that the library acts on, each context request, and its own end, in their order:
//
//   caret b   clear (no caret)   +a  -a (expanded, collapsed)   deleted a   drag a
//   changed 3   column 1   menu   destroy   gone
//
// A tree's item is named by the letter that it has for its parameter.
class ContractTest : public HostTest {
 protected:
  void SetUp() override;
  void TearDown() override;

  void MakeControl(const WCHAR* className, DWORD style);

  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(control, message, wParam, lParam);
  }
  template <typename Record>
  LRESULT SendRecord(UINT message, WPARAM wParam, Record* record) const {
    return Send(message, wParam, reinterpret_cast<LPARAM>(record));
  }

  // A press after which the mouse moves by that much before the button is let go.
  void Drag(int x, int y, int dx, int dy, WPARAM keys = 0) const;
  void Press(int x, int y, WPARAM keys = 0) const { Drag(x, y, 0, 0, keys); }
  void RightPress(int x, int y) const;
  void Key(WPARAM key) const { Send(WM_KEYDOWN, key, 1); }

  // The words since the last call, with a comma between two.
  std::string Heard();

  HWND control = nullptr;

 private:
  static LRESULT CALLBACK HostProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
};
