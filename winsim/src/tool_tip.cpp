#include "tool_tip.h"

#include <utility>

#include "controls.h"
#include "window.h"

namespace winsim {
namespace {

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
        SetDelay(wParam, static_cast<short>(LOWORD(lParam)));
        return 0;
      case TTM_GETDELAYTIME:
        return wParam <= TTDT_INITIAL ? delays_[wParam] : 0;
      case TTM_GETTOOLCOUNT:
        return 1;
      default:
        return DefWindowProcW(window_, message, wParam, lParam);
    }
  }

 private:
  // A negative time stands for the default.
  void SetDelay(WPARAM which, short time) {
    const int base = static_cast<int>(GetDoubleClickTime());
    const int defaults[] = {base, base / 5, base * 10, base};
    if (which == TTDT_AUTOMATIC) {
      const int initial = time < 0 ? base : time;
      delays_[TTDT_INITIAL] = initial;
      delays_[TTDT_RESHOW] = initial / 5;
      delays_[TTDT_AUTOPOP] = initial * 10;
    } else if (which <= TTDT_INITIAL) {
      delays_[which] = time < 0 ? defaults[which] : time;
    }
  }

  HWND window_;
  int maxWidth_ = -1;
  int delays_[4] = {500, 100, 5000, 500};
};

std::shared_ptr<Control> Make(HWND window) { return std::make_shared<ToolTip>(window); }

}  // namespace

void AddToolTipClass() { AddControlClass(TOOLTIPS_CLASSW, &Make); }

HWND MakeToolTip(HWND owner) {
  return CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP, 0, 0, 0, 0, owner, nullptr, nullptr,
                         nullptr);
}

}  // namespace winsim
