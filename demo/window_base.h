// A window whose messages go to an object.
#pragma once

#include <windows.h>

namespace demo {

// The arguments of CreateWindowExW, with usual values.
struct WindowPlan {
  const wchar_t* className = L"";
  const wchar_t* title = L"";
  LPCWSTR cursor = MAKEINTRESOURCEW(32512);  // IDC_ARROW
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
    if (window) DestroyWindow(window);
  }

  bool CreateFrom(const WindowPlan& plan) {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = &WindowBase::Procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, plan.cursor);
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
    if (!self) return DefWindowProcW(window, message, wParam, lParam);
    const LRESULT result = self->Receive(message, wParam, lParam);
    if (message == WM_NCDESTROY) {
      SetWindowLongPtrW(window, GWLP_USERDATA, 0);
      self->window = nullptr;
    }
    return result;
  }

  HWND window = nullptr;
};

// Pixels of the screen for pixels of a screen with 96 dpi.
inline int Scaled(int pixels) {
  static const int dpi = [] {
    const HDC screen = GetDC(nullptr);
    const int value = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return value;
  }();
  return MulDiv(pixels, dpi, 96);
}

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

inline HWND MakeLabel(HWND parent, const wchar_t* text) {
  const HWND label =
      CreateWindowExW(0, L"STATIC", text, WS_CHILD | WS_VISIBLE | SS_NOPREFIX | SS_ENDELLIPSIS, 0,
                      0, 0, 0, parent, nullptr, GetModuleHandleW(nullptr), nullptr);
  UseMessageFont(label);
  return label;
}

inline void MoveTo(HWND window, const RECT& area) {
  MoveWindow(window, static_cast<int>(area.left), static_cast<int>(area.top),
             static_cast<int>(area.right - area.left), static_cast<int>(area.bottom - area.top),
             TRUE);
}

}  // namespace demo
