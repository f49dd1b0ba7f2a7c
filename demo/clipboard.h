// Files on the clipboard.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace demo {

// Names of the files that were copied or cut to the clipboard, none if it holds other data.
std::vector<std::wstring> ClipboardFiles(HWND window);

// False if another program uses the clipboard.
bool EmptyTheClipboard(HWND window);

}  // namespace demo
