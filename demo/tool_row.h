// The row of buttons above the view.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace demo {

class ToolRow {
 public:
  bool Create(HWND parent);

  HWND Handle() const { return toolbar; }
  int Height() const;

  // Takes this width and the height that its buttons then need.
  void Fit(int width);

  // The middle of a button in screen pixels, by the command's name on the channel.
  std::optional<POINT> PointOf(const std::string& name) const;

 private:
  HWND toolbar = nullptr;
};

}  // namespace demo
