// The queue of posted messages.
#pragma once

#include <windows.h>

namespace winsim {

void ForgetMessagesOf(HWND window);
void ForgetAllMessages();

}  // namespace winsim
