#include "controls/tool_tip.h"

#include <commctrl.h>

#include <utility>

#include "window/control_class.h"

namespace winsim {
namespace {

constexpr int kDefaultDelay = 500;

// Stores the two settings that views use.
class ToolTip : public Control {
 public:
  explicit ToolTip(HWND toolTip) : window(toolTip) {}

  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override {
    switch (message) {
      case TTM_SETMAXTIPWIDTH:
        return std::exchange(maxWidth, static_cast<int>(lParam));
      case TTM_GETMAXTIPWIDTH:
        return maxWidth;
      case TTM_SETDELAYTIME:
        initialDelay = static_cast<short>(LOWORD(lParam));
        if (initialDelay < 0) initialDelay = kDefaultDelay;
        return 0;
      case TTM_GETDELAYTIME:
        return initialDelay;
      default:
        return DefWindowProcW(window, message, wParam, lParam);
    }
  }

 private:
  HWND window;
  int maxWidth = -1;
  int initialDelay = kDefaultDelay;
};

const ControlClass<ToolTip> kToolTipClass(TOOLTIPS_CLASSW);

}  // namespace

HWND MakeToolTip(HWND owner) {
  return CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP, 0, 0, 0, 0, owner, nullptr, nullptr,
                         nullptr);
}

}  // namespace winsim
