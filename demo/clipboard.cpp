#include "clipboard.h"

#include "drop_pane.h"

namespace demo {

std::vector<std::wstring> ClipboardFiles(HWND window) {
  if (!OpenClipboard(window)) return {};
  std::vector<std::wstring> names;
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
