// Messages to a tool tip window. A null window is ignored.
#pragma once

#include <windows.h>

#include <commctrl.h>

namespace tool_tip {

inline void SetMaxWidth(HWND tip, int width) {
  if (tip) SendMessageW(tip, TTM_SETMAXTIPWIDTH, 0, width);
}

// The time in milliseconds until the tip shows; only its low 16 bits are used.
inline void SetInitialDelay(HWND tip, int delay) {
  if (tip) SendMessageW(tip, TTM_SETDELAYTIME, TTDT_INITIAL, delay & 0xFFFF);
}

}  // namespace tool_tip
