#pragma once

#include <windows.h>

#include <commctrl.h>

#include <map>
#include <string>
#include <vector>

#include "support/import_patch.h"

// One message that the library sent, with what its record held when it was sent.
struct SentMessage {
  HWND window;
  UINT message;
  WPARAM wParam;
  LPARAM lParam;
  LVITEMW item;  // what is written, of a tree item too
  std::basic_string<WCHAR> text;
  LVCOLUMNW column;
  TVITEMW treeItem;
  TVINSERTSTRUCTW insertion;
};

// Sees every message that the library sends for the life of the object. They go on to their window,
// unless the test has an answer of its own for them. One at a time.
class SentMessages {
 public:
  SentMessages();
  ~SentMessages();

  // The messages of that number since the last Forget, oldest first.
  std::vector<SentMessage> Of(UINT message) const;
  void Forget() { all.clear(); }

  std::vector<SentMessage> all;
  std::map<UINT, LRESULT> answers;

 private:
  static LRESULT WINAPI Relay(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  ImportPatch patch{"SendMessageW", &Relay};
};
