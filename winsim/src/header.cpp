#include "header.h"

#include "controls.h"
#include "list_control.h"

namespace winsim {
namespace {

class Header : public Control {
 public:
  explicit Header(HWND window) : window_(window) {}

  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override {
    return message == HDM_GETITEMCOUNT ? CountColumns()
                                       : DefWindowProcW(window_, message, wParam, lParam);
  }

 private:
  int CountColumns() const {
    const Window* list = FindWindow(FindWindow(window_)->parent);
    const auto control = std::dynamic_pointer_cast<ListControl>(list->control);
    return control ? control->ColumnCount() : 0;
  }

  HWND window_;
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
