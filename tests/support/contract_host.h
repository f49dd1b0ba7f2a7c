// What the contract tests stand on: a bare control in a window that writes down what it is told.
#pragma once

#include <gtest/gtest.h>

#include <windows.h>
#include <commctrl.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

// A tree or a list without the library round it. The window above it keeps a word for each
// notification that the library acts on and each context request, in the order in which they came:
//
//   caret b      expanded+a  expanded-a     drag a       deleted a      clear (caret nowhere)
//   edit b       edited b=text   edited b   changed 3    column 1       menu
class ContractTest : public ::testing::Test {
 protected:
  static constexpr int CONTROL_ID = 100;

  void SetUp() override;
  void TearDown() override;

  void MakeControl(const WCHAR* className, DWORD style);

  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    return SendMessageW(control, message, wParam, lParam);
  }
  template <typename Record>
  LRESULT SendRecord(UINT message, WPARAM wParam, Record* record) {
    return SendMessageW(control, message, wParam, reinterpret_cast<LPARAM>(record));
  }

  // A press with the button let go right after it. True if the control waited for that.
  bool Press(int x, int y, WPARAM keys = 0);
  // A press after which the mouse moves by that much before the button is let go.
  void Drag(int x, int y, int dx, int dy, WPARAM keys = 0);
  void RightPress(int x, int y);
  void Key(WPARAM key) { Send(WM_KEYDOWN, key, 1); }
  static void Hold(int key, bool down);

  // The words since the last call, with a comma between two.
  std::string Heard();

  static void Pump();

  HWND host = nullptr;
  HWND control = nullptr;
  std::map<HTREEITEM, std::string> names;
  LRESULT answer = 0;                         // to a label edit
  std::function<void(const NMHDR&)> onHeard;  // called once a word is written

 private:
  static LRESULT CALLBACK HostProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT Notified(const NMHDR& header);
  std::string Describe(const NMHDR& header) const;
  std::string Name(HTREEITEM item) const;

  static ContractTest* current;
  std::string heard;
};
