// Files on the clipboard.
#ifndef DEMO_CLIPBOARD_H
#define DEMO_CLIPBOARD_H

#include <windows.h>

#include <vector>

#include "text.h"

namespace demo {

// Names of the files that were copied or cut to the clipboard, none if it holds something else.
std::vector<WideText> ClipboardFiles(HWND window);

// Whether the clipboard could be emptied.
bool EmptyTheClipboard(HWND window);

}  // namespace demo

#endif
