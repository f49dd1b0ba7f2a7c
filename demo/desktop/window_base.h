// A window whose messages go to an object.
#ifndef DEMO_WINDOW_BASE_H
#define DEMO_WINDOW_BASE_H

#include <windows.h>

namespace demo {

// What CreateWindowExW wants to know, with the usual values filled in.
struct WindowPlan {
  const wchar_t* className = L"";
  const wchar_t* title = L"";
  DWORD style = WS_CHILD | WS_VISIBLE;
  DWORD extendedStyle = 0;
  HWND parent = nullptr;
  int width = 0;
  int height = 0;
};

// Owns its window; the object must outlive every message.
class WindowBase {
 public:
  WindowBase() = default;
  WindowBase(const WindowBase&) = delete;
  WindowBase& operator=(const WindowBase&) = delete;

  HWND Window() const { return window; }

 protected:
  virtual ~WindowBase() {
    if (window != nullptr) DestroyWindow(window);
  }

  bool CreateFrom(const WindowPlan& plan) {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = &WindowBase::Procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));
    windowClass.hIcon = LoadIconW(nullptr, MAKEINTRESOURCEW(32512));
    windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    windowClass.lpszClassName = plan.className;
    RegisterClassW(&windowClass);
    CreateWindowExW(plan.extendedStyle, plan.className, plan.title, plan.style, CW_USEDEFAULT,
                    CW_USEDEFAULT, plan.width, plan.height, plan.parent, nullptr,
                    windowClass.hInstance, this);
    return window != nullptr;
  }

  virtual LRESULT Receive(UINT message, WPARAM wParam, LPARAM lParam) {
    return DefWindowProcW(window, message, wParam, lParam);
  }

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
      const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
      auto* self = static_cast<WindowBase*>(creation->lpCreateParams);
      self->window = window;
      SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    auto* self = reinterpret_cast<WindowBase*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self == nullptr) return DefWindowProcW(window, message, wParam, lParam);
    const LRESULT result = self->Receive(message, wParam, lParam);
    if (message == WM_NCDESTROY) {
      SetWindowLongPtrW(window, GWLP_USERDATA, 0);
      self->window = nullptr;
    }
    return result;
  }

  HWND window = nullptr;
};

// The font of the user's messages, for every control of the demo.
inline HFONT MessageFont() {
  static const HFONT font = [] {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return CreateFontIndirectW(&metrics.lfMessageFont);
  }();
  return font;
}

inline void UseMessageFont(HWND window) {
  SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(MessageFont()), TRUE);
}

// Height of a line of text in that font.
inline int LineHeight() {
  const HDC screen = GetDC(nullptr);
  const HGDIOBJ former = SelectObject(screen, MessageFont());
  TEXTMETRICW metrics{};
  GetTextMetricsW(screen, &metrics);
  SelectObject(screen, former);
  ReleaseDC(nullptr, screen);
  return metrics.tmHeight;
}

}  // namespace demo

#endif
