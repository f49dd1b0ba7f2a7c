#include "channel.h"

#include <cstdio>
#include <iostream>
#include <memory>
#include <string>
#include <thread>

namespace demo {

void Print(const std::string& text) { std::printf("%s\n", text.c_str()); }

void Finish(const char* result) {
  std::printf("%s\n", result);
  std::fflush(stdout);
}

void StartChannel(HWND window) {
  std::thread([window] {
    std::string line;
    while (std::getline(std::cin, line)) {
      while (!line.empty() && line.back() == '\r') line.pop_back();
      auto copy = std::make_unique<std::string>(line);
      if (PostMessageW(window, kChannelLine, 0, reinterpret_cast<LPARAM>(copy.get()))) {
        (void)copy.release();  // the window owns it
      }
    }
    PostMessageW(window, kChannelEnd, 0, 0);
  }).detach();
}

}  // namespace demo
