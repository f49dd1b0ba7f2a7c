#include "tool_tip.h"

#include <utility>

#include "controls.h"
#include "window.h"

namespace winsim {
namespace {

constexpr int kDefaultDelay = 500;

// Keeps the two settings that a view makes.
class ToolTip : public Control {
 public:
  explicit ToolTip(HWND window) : window_(window) {}

  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override {
    switch (message) {
      case TTM_SETMAXTIPWIDTH:
        return std::exchange(maxWidth_, static_cast<int>(lParam));
      case TTM_GETMAXTIPWIDTH:
        return maxWidth_;
      case TTM_SETDELAYTIME:
        initialDelay_ = static_cast<short>(LOWORD(lParam));
        if (initialDelay_ < 0) {
          initialDelay_ = kDefaultDelay;
        }
        return 0;
      case TTM_GETDELAYTIME:
        return initialDelay_;
      default:
        return DefWindowProcW(window_, message, wParam, lParam);
    }
  }

 private:
  HWND window_;
  int maxWidth_ = -1;
  int initialDelay_ = kDefaultDelay;
};

std::shared_ptr<Control> Make(HWND window) { return std::make_shared<ToolTip>(window); }

}  // namespace

void AddToolTipClass() { AddControlClass(TOOLTIPS_CLASSW, &Make); }

HWND MakeToolTip(HWND owner) {
  return CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP, 0, 0, 0, 0, owner, nullptr, nullptr,
                         nullptr);
}

}  // namespace winsim
