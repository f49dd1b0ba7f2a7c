#include "label_edit.h"

#include "controls.h"
#include "window.h"

namespace winsim {
namespace {

LabelEditOwner* OwnerOf(HWND edit) {
  const Window* window = FindWindow(edit);
  const Window* owner = window ? FindWindow(window->parent) : nullptr;
  return owner ? dynamic_cast<LabelEditOwner*>(owner->control.get()) : nullptr;
}

class EditControl : public Control {
 public:
  explicit EditControl(HWND window) : window_(window) {}

  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override {
    const bool ends = message == WM_KEYDOWN && (wParam == VK_RETURN || wParam == VK_ESCAPE);
    const bool left = message == WM_KILLFOCUS;
    const Window* window = FindWindow(window_);
    const auto owner = window ? ShareWindow(window->parent) : nullptr;
    const auto keptAlive = owner ? owner->control : nullptr;
    if (LabelEditOwner* editOwner = ends || left ? OwnerOf(window_) : nullptr) {
      editOwner->EndLabelEdit(ends && wParam == VK_ESCAPE);
      return 0;
    }
    return DefWindowProcW(window_, message, wParam, lParam);
  }

 private:
  HWND window_;
};

std::shared_ptr<Control> Make(HWND window) { return std::make_shared<EditControl>(window); }

}  // namespace

void AddEditClass() { AddControlClass(u"Edit", &Make); }

HWND MakeLabelEdit(HWND owner, const std::u16string& text) {
  return CreateWindowExW(WS_EX_NOPARENTNOTIFY, u"Edit", text.c_str(),
                         WS_CHILD | WS_BORDER | WS_VISIBLE | ES_AUTOHSCROLL, 0, 0, 0, 0, owner,
                         nullptr, nullptr, nullptr);
}

std::u16string EditedText(HWND field) {
  const Window* window = FindWindow(field);
  return window ? window->text : u"";
}

}  // namespace winsim
