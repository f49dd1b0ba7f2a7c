#include "progress_window.h"

#include <commctrl.h>

namespace demo {
namespace {

constexpr std::size_t LARGE = 2000;  // items from which a user would notice the wait
constexpr std::size_t STEP = 250;    // items between two updates
constexpr int WIDTH = 380;
constexpr int HEIGHT = 96;
constexpr int MARGIN = 16;

}  // namespace

void ProgressWindow::Report(const wchar_t* work, std::size_t done, std::size_t total) {
  if (done < lastShown) lastShown = 0;
  if (done - lastShown < STEP && done != total) return;
  if (Window() == nullptr) {
    if (done < LARGE) return;
    Open();
  }
  lastShown = done;
  std::wstring text = work + std::to_wstring(done);
  if (total > 0) text += L" of " + std::to_wstring(total);
  SetWindowTextW(label, text.c_str());
  SendMessageW(bar, PBM_SETRANGE32, 0, static_cast<LPARAM>(total));
  SendMessageW(bar, PBM_SETPOS, total > 0 ? done : 0, 0);
  RedrawWindow(Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void ProgressWindow::Open() {
  WindowPlan plan;
  plan.className = L"QVLDemoProgress";
  plan.title = L"qvl demo";
  plan.style = WS_POPUP | WS_CAPTION;
  plan.parent = owner;
  plan.width = WIDTH;
  plan.height = HEIGHT + GetSystemMetrics(SM_CYCAPTION);
  if (!CreateFrom(plan)) return;
  const HWND window = Window();
  const HINSTANCE module = GetModuleHandleW(nullptr);
  label = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, MARGIN, MARGIN,
                          WIDTH - 3 * MARGIN, LineHeight(), window, nullptr, module, nullptr);
  UseMessageFont(label);
  bar = CreateWindowExW(0, PROGRESS_CLASSW, L"", WS_CHILD | WS_VISIBLE, MARGIN,
                        MARGIN + LineHeight() + 8, WIDTH - 3 * MARGIN, 18, window, nullptr, module,
                        nullptr);
  const int left = (GetSystemMetrics(SM_CXSCREEN) - plan.width) / 2;
  const int top = (GetSystemMetrics(SM_CYSCREEN) - plan.height) / 3;
  SetWindowPos(window, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_SHOWWINDOW);
}

}  // namespace demo
