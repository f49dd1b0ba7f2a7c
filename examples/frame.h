// The window of the examples. The view fills it, follows its size and gets its focus.
#pragma once

#include <qvl_host.h>

#include <ole2.h>

class Frame {
 public:
  Frame(const wchar_t* title, int width, int height) {
    // A program calls these two once, before its first view.
    const INITCOMMONCONTROLSEX controls{sizeof controls,
                                        ICC_TREEVIEW_CLASSES | ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&controls);
    OleInitialize(nullptr);

    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = WindowProc;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.lpszClassName = L"Frame";
    RegisterClassW(&windowClass);
    window =
        CreateWindowExW(0, L"Frame", title, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN | WS_VISIBLE, 100,
                        100, width, height, nullptr, nullptr, windowClass.hInstance, nullptr);
  }

  void SetTitle(const wchar_t* title) { SetWindowTextW(window, title); }

  /// Makes the view's control in the window, or makes it again in another style.
  bool Show(IQVLTreeView& view, std::uint32_t style) {
    RECT area{};
    GetClientRect(window, &area);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&view));
    const HWND control = view.Create(window, 1, 0, 0, area.right, area.bottom, style, nullptr);
    SetFocus(control);
    return control != nullptr;
  }

 private:
  static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto view = reinterpret_cast<IQVLTreeView*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (view && message == WM_SIZE) {
      view->Move(0, 0, LOWORD(lParam), HIWORD(lParam));
      view->Redraw();
    }
    if (view && message == WM_SETFOCUS) SetFocus(view->GetControlWindow());
    if (message == WM_DESTROY) PostQuitMessage(0);
    return DefWindowProcW(window, message, wParam, lParam);
  }

  HWND window = nullptr;
};
