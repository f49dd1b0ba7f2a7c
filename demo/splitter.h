// A bar between two panes that the user drags to resize them.
#pragma once

#include <windows.h>

#include <functional>
#include <utility>

#include "window_base.h"

namespace demo {

class Splitter final : public WindowBase {
 public:
  // `dragged` is called while the user drags, with the new left edge in the parent's client area.
  explicit Splitter(std::function<void(int x)> dragged) : moved(std::move(dragged)) {}

  bool Create(HWND parent);

 private:
  LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) override;

  std::function<void(int x)> moved;
  int grip = 0;  // where the user holds the bar, from its left edge
};

}  // namespace demo
