#include "window/control_class.h"

#include <commctrl.h>

#include "window/window.h"

namespace winsim {
namespace {

LRESULT CALLBACK ControlProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
  const auto window = ShareWindow(handle);
  if (!window) return 0;
  if (message == WM_NCCREATE) window->control = window->windowClass->makeControl(handle);
  const std::shared_ptr<Control> control = window->control;
  return control ? control->Handle(message, wParam, lParam)
                 : DefWindowProcW(handle, message, wParam, lParam);
}

}  // namespace

void AddControlClass(LPCWSTR name, MakeControl makeControl) {
  AddClass(name, &ControlProcedure, makeControl);
}

LRESULT Notify(HWND control, UINT code, NMHDR* header) {
  const Window* window = FindWindow(control);
  if (!window) return 0;
  *header = {control, static_cast<UINT_PTR>(window->id), code};
  return SendMessageW(window->parent, WM_NOTIFY, header->idFrom, reinterpret_cast<LPARAM>(header));
}

LRESULT Notify(HWND control, UINT code) {
  NMHDR header = {};
  return Notify(control, code, &header);
}

}  // namespace winsim

BOOL WINAPI InitCommonControlsEx(const INITCOMMONCONTROLSEX*) { return TRUE; }
