// Messages to a tool tip window; a null window is passed over.
#pragma once

#include <windows.h>

#include <commctrl.h>

namespace tool_tip {

inline void SetMaxWidth(HWND tip, int width) {
  if (tip) SendMessageW(tip, TTM_SETMAXTIPWIDTH, 0, width);
}

// The delay in milliseconds until the tip shows; its low 16 bits count.
inline void SetInitialDelay(HWND tip, int delay) {
  if (tip) SendMessageW(tip, TTM_SETDELAYTIME, TTDT_INITIAL, delay & 0xFFFF);
}

}  // namespace tool_tip
