// The row of buttons above the view.
#ifndef DEMO_TOOL_ROW_H
#define DEMO_TOOL_ROW_H

#include <windows.h>

#include <optional>
#include <string>

namespace demo {

class ToolRow {
 public:
  bool Create(HWND parent);

  HWND Handle() const { return toolbar; }
  int Height() const;

  // Middle of a button on the screen, by the command's name on the channel.
  std::optional<POINT> PointOf(const std::string& name) const;

 private:
  HWND toolbar = nullptr;
};

}  // namespace demo

#endif
