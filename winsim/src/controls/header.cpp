#include "controls/header.h"

#include <commctrl.h>

#include "window/control_class.h"
#include "window/window.h"

namespace winsim {
namespace {

class Header : public Control {
 public:
  explicit Header(HWND header) : window(header) {}

  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override {
    return message == HDM_GETITEMCOUNT ? ColumnCount()
                                       : DefWindowProcW(window, message, wParam, lParam);
  }

 private:
  int ColumnCount() const {
    const Window* parent = FindWindow(FindWindow(window)->parent);
    const auto* owner = dynamic_cast<const HeaderOwner*>(parent->control.get());
    return owner ? owner->ColumnCount() : 0;
  }

  HWND window;
};

const ControlClass<Header> kHeaderClass(WC_HEADERW);

}  // namespace

HWND MakeHeader(HWND owner, bool visible) {
  RECT client = {};
  GetClientRect(owner, &client);
  return CreateWindowExW(0, WC_HEADERW, nullptr, WS_CHILD | (visible ? WS_VISIBLE : 0), 0, 0,
                         client.right, visible ? kHeaderHeight : 0, owner, nullptr, nullptr,
                         nullptr);
}

}  // namespace winsim
