// The demo with its window.
#pragma once

namespace demo {

struct Options;

// Opens the window and returns when it is closed. Result: the exit status of the program.
int RunBrowser(const Options& options);

}  // namespace demo
