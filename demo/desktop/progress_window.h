// A small window that shows how far a long piece of work has come.
#ifndef DEMO_PROGRESS_WINDOW_H
#define DEMO_PROGRESS_WINDOW_H

#include <windows.h>

#include <cstddef>
#include <string>

#include "window_base.h"

namespace demo {

// Comes up by itself once the work turns out to be large, and goes with the object.
class ProgressWindow final : public WindowBase {
 public:
  explicit ProgressWindow(HWND owner) : owner(owner) {}

  // `total` 0: not known yet.
  void Report(const wchar_t* work, std::size_t done, std::size_t total);

 private:
  void Open();

  HWND owner;
  HWND label = nullptr;
  HWND bar = nullptr;
  std::size_t lastShown = 0;
};

}  // namespace demo

#endif
