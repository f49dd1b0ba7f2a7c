// Lines from the standard input, brought to the window's thread.
#ifndef DEMO_CHANNEL_H
#define DEMO_CHANNEL_H

#include <windows.h>

namespace demo {

constexpr UINT CHANNEL_LINE = WM_APP + 20;  // lParam: a std::string that the receiver owns
constexpr UINT CHANNEL_END = WM_APP + 21;   // the input has ended

// Posts every line to `window` until the input ends, from a thread that lasts as long as the
// process. Windows keep getting posted messages while a menu is up or a drag goes on.
void StartChannel(HWND window);

}  // namespace demo

#endif
