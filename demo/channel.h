// Sends lines from the standard input to the window's thread, and answers to the standard output.
#pragma once

#include <windows.h>

#include <string>

namespace demo {

constexpr UINT kChannelLine = WM_APP + 20;  // lParam: a std::string that the receiver owns
constexpr UINT kChannelEnd = WM_APP + 21;   // the input has ended

// Posts every line to `window` until the input ends, from a thread that runs until the process
// ends. Posted messages also arrive while a menu is open and during a drag.
void StartChannel(HWND window);

// Prints one line of an answer.
void Print(const std::string& text);

// Prints the last line of an answer and sends the answer.
void Finish(const char* result);

}  // namespace demo
