#pragma once

#include <windows.h>

#include <commctrl.h>

#include <map>
#include <string>
#include <vector>

#include "support/import_patch.h"

// One message that the library sent, with what its record held when it was sent.
struct SentMessage {
  UINT message;
  WPARAM wParam;
  LPARAM lParam;
  LVITEMW item;  // for a tree item too: the fields that both records have
  std::basic_string<WCHAR> text;
  LVCOLUMNW column;
  TVITEMW treeItem;
  TVINSERTSTRUCTW insertion;
};

// Notes every message that the library sends for the life of the object. It goes on to its window,
// unless the test has an answer for it. Objects nest; only the innermost one notes.
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

  SentMessages* outer;
  ImportPatch patch{"SendMessageW", &Relay};
};
