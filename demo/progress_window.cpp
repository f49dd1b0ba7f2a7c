#include "progress_window.h"

#include <commctrl.h>

namespace demo {
namespace {

constexpr std::size_t kLarge = 2000;  // items from which a user notices the wait
constexpr ULONGLONG kPeriod = 100;    // milliseconds between two updates
constexpr int kWidth = 380;
constexpr int kHeight = 96;
constexpr int kMargin = 16;

}  // namespace

void ProgressWindow::Report(const wchar_t* work, std::size_t done, std::size_t total) {
  if (done < kLarge) return;
  const ULONGLONG now = GetTickCount64();
  if (now - lastShown < kPeriod) return;
  lastShown = now;
  if (!Window()) Open();
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
  plan.width = Scaled(kWidth);
  plan.height = Scaled(kHeight) + GetSystemMetrics(SM_CYCAPTION);
  if (!CreateFrom(plan)) return;
  const HWND window = Window();
  const int margin = Scaled(kMargin);
  const int width = plan.width - 3 * margin;
  const HINSTANCE module = GetModuleHandleW(nullptr);
  label = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, margin, margin, width,
                          LineHeight(), window, nullptr, module, nullptr);
  UseMessageFont(label);
  bar = CreateWindowExW(0, PROGRESS_CLASSW, L"", WS_CHILD | WS_VISIBLE, margin,
                        margin + LineHeight() + Scaled(8), width, Scaled(18), window, nullptr,
                        module, nullptr);
  const int left = (GetSystemMetrics(SM_CXSCREEN) - plan.width) / 2;
  const int top = (GetSystemMetrics(SM_CYSCREEN) - plan.height) / 3;
  SetWindowPos(window, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_SHOWWINDOW);
}

}  // namespace demo
