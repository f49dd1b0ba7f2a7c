#include "header.h"

#include <utility>

#include "controls.h"
#include "list_control.h"

namespace winsim {
namespace {

// Reports a column when the button goes down and up over it, unless the list's style forbids.
class Header : public Control {
 public:
  explicit Header(HWND window) : window_(window) {}

  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override {
    const int x = static_cast<short>(LOWORD(lParam));
    if (message == HDM_GETITEMCOUNT) {
      const auto list = List();
      return list ? list->ColumnCount() : 0;
    }
    if (message == WM_LBUTTONDOWN) {
      pressed_ = ColumnAt(x);
      return 0;
    }
    if (message == WM_LBUTTONUP) {
      Release(std::exchange(pressed_, -1), ColumnAt(x));
      return 0;
    }
    return DefWindowProcW(window_, message, wParam, lParam);
  }

 private:
  std::shared_ptr<ListControl> List() const {
    const Window* window = FindWindow(window_);
    const Window* parent = window ? FindWindow(window->parent) : nullptr;
    return parent ? std::dynamic_pointer_cast<ListControl>(parent->control) : nullptr;
  }

  int ColumnAt(int x) const {
    const auto list = List();
    return list ? list->ColumnAt(x) : -1;
  }

  void Release(int pressed, int released) {
    const Window* window = FindWindow(window_);
    const Window* parent = FindWindow(window->parent);
    const auto list = List();
    if (list && pressed != -1 && pressed == released && !(parent->style & LVS_NOSORTHEADER)) {
      list->ColumnClicked(released);
    }
  }

  HWND window_;
  int pressed_ = -1;
};

std::shared_ptr<Control> Make(HWND window) { return std::make_shared<Header>(window); }

}  // namespace

void AddHeaderClass() { AddControlClass(WC_HEADERW, &Make); }

HWND MakeHeader(HWND list, bool visible) {
  constexpr int kHeight = 17;
  RECT client = {};
  GetClientRect(list, &client);
  return CreateWindowExW(WS_EX_NOPARENTNOTIFY, WC_HEADERW, nullptr,
                         WS_CHILD | (visible ? WS_VISIBLE : 0), 0, 0, client.right,
                         visible ? kHeight : 0, list, nullptr, nullptr, nullptr);
}

}  // namespace winsim
