#include "clipboard.h"

#include "drop_pane.h"

namespace demo {

std::vector<WideText> ClipboardFiles(HWND window) {
  if (!OpenClipboard(window)) return {};
  std::vector<WideText> names;
  if (const HANDLE files = GetClipboardData(CF_HDROP)) names = FileNames(static_cast<HDROP>(files));
  CloseClipboard();
  return names;
}

bool EmptyTheClipboard(HWND window) {
  if (!OpenClipboard(window)) return false;
  const bool emptied = EmptyClipboard() != FALSE;
  CloseClipboard();
  return emptied;
}

}  // namespace demo
