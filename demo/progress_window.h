// A small window that shows the progress of a long operation.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>

#include "window_base.h"

namespace demo {

// Opens when there are many items, and closes with the object.
class ProgressWindow final : public WindowBase {
 public:
  explicit ProgressWindow(HWND owner) : owner(owner) {}

  // `total` 0: unknown.
  void Report(const wchar_t* work, std::size_t done, std::size_t total);

 private:
  void Open();

  HWND owner;
  HWND label = nullptr;
  HWND bar = nullptr;
  ULONGLONG lastShown = 0;  // in ticks
};

}  // namespace demo
