#include "controls/label_edit.h"

#include "window/control_class.h"
#include "window/window.h"

namespace winsim {
namespace {

constexpr LPCWSTR kClassName = u"Edit";

class EditControl : public Control {
 public:
  explicit EditControl(HWND field) : window(field) {}

  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override {
    const bool cancels = message == WM_KEYDOWN && wParam == VK_ESCAPE;
    const bool accepts = message == WM_KILLFOCUS || (message == WM_KEYDOWN && wParam == VK_RETURN);
    if ((cancels || accepts) && EndEdit(cancels)) return 0;
    return DefWindowProcW(window, message, wParam, lParam);
  }

 private:
  bool EndEdit(bool cancel) const {
    const auto own = ShareWindow(window);
    const auto parent = own ? ShareWindow(own->parent) : nullptr;
    const auto control = parent ? parent->control : nullptr;
    auto* owner = dynamic_cast<LabelEditOwner*>(control.get());
    if (owner) owner->EndLabelEdit(cancel);
    return owner != nullptr;
  }

  HWND window;
};

const ControlClass<EditControl> kEditClass(kClassName);

}  // namespace

HWND MakeLabelEdit(HWND owner, const std::u16string& text) {
  return CreateWindowExW(0, kClassName, text.c_str(),
                         WS_CHILD | WS_BORDER | WS_VISIBLE | ES_AUTOHSCROLL, 0, 0, 0, 0, owner,
                         nullptr, nullptr, nullptr);
}

std::u16string EditedText(HWND field) {
  const Window* window = FindWindow(field);
  return window ? window->text : u"";
}

}  // namespace winsim
