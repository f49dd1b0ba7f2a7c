#include "browser_window.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "options.h"
#include "progress_window.h"

namespace demo {
namespace {

constexpr int kWidth = 1080;
constexpr int kHeight = 760;
constexpr int kGap = 6;
constexpr UINT kDirectoryRead = WM_APP + 1;
constexpr UINT_PTR kLogTimer = 1;
constexpr UINT kLogPeriod = 50;  // milliseconds
constexpr UINT_PTR kFollowTimer = 2;
constexpr UINT kFollowPeriod = 200;  // milliseconds

int Gap() { return Scaled(kGap); }

}  // namespace

BrowserWindow::BrowserWindow(DirectoryModel& shownModel, CallLog& callLog)
    : model(shownModel),
      log(callLog),
      browser(shownModel, callLog, *this),
      drops(callLog),
      logPane(callLog),
      splitter([this](int x) { MoveSplitter(x); }) {}

BrowserWindow::~BrowserWindow() {
  log.ForgetListeners();
  if (keys) DestroyAcceleratorTable(keys);
}

bool BrowserWindow::Create(const Options& options) {
  const std::wstring title = model.PathOf(0) + L" - qvl demo";
  RECT work{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
  WindowPlan plan;
  plan.className = L"QVLDemo";
  plan.title = title.c_str();
  plan.style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
  plan.width = std::min(Scaled(kWidth), static_cast<int>(work.right - work.left));
  plan.height = std::min(Scaled(kHeight), static_cast<int>(work.bottom - work.top));
  if (!CreateFrom(plan) || !CreateParts() || !OpenView(options.list)) return false;
  log.AddListener([this] { RequestLogRefresh(); });
  ReadLimits limits;
  limits.skip = options.skip;
  watch.Start(Window(), kDirectoryRead, model.PathOf(0), limits);
  Arrange();
  return true;
}

bool BrowserWindow::CreateParts() {
  const HWND window = Window();
  keys = MakeKeys();
  logTitle = MakeLabel(window, L"Callbacks");
  return status.Create(window) && tools.Create(window) && drops.Create(window) &&
         logPane.Create(window) && splitter.Create(window);
}

bool BrowserWindow::OpenView(bool asList) {
  ProgressWindow progress(IsWindowVisible(Window()) ? Window() : nullptr);
  const std::size_t total = model.Count();
  return browser.Open(Window(), asList, ViewArea(),
                      [&](std::size_t done) { progress.Report(L"Filling: ", done, total); });
}

void BrowserWindow::Show() {
  ShowWindow(Window(), SW_SHOW);
  SetForegroundWindow(Window());
  SetFocus(browser.View().GetControlWindow());
  UpdateWindow(Window());
}

bool BrowserWindow::IsEditingLabel() const {
  wchar_t className[16] = L"";
  GetClassNameW(GetFocus(), className, 16);
  return lstrcmpiW(className, L"EDIT") == 0;
}

bool BrowserWindow::TranslateKey(MSG& message) {
  if (IsEditingLabel()) return false;
  if (qvl::IsMenuKey(browser.View(), message)) {
    ShowMenu(qvl::MenuPoint(browser.View()));
    return true;
  }
  return TranslateAcceleratorW(Window(), keys, &message) != 0;
}

LRESULT BrowserWindow::Receive(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SIZE:
      Arrange();
      return 0;
    case WM_SETFOCUS:
      SetFocus(browser.View().GetControlWindow());
      return 0;
    case WM_COMMAND:
      Run(static_cast<Command>(LOWORD(wParam)));
      return 0;
    case WM_NOTIFY:
      return HandleNotify(reinterpret_cast<NMHDR*>(lParam));
    case WM_TIMER:
      HandleTimer(wParam);
      return 0;
    case kDirectoryRead:
      latest.reset(reinterpret_cast<DirectoryModel*>(lParam));
      FollowDisk();
      return 0;
    case WM_DESTROY:
      PostQuitMessage(0);
      return 0;
    default:
      return WindowBase::Receive(message, wParam, lParam);
  }
}

LRESULT BrowserWindow::HandleNotify(NMHDR* record) {
  if (record->code == LVN_GETDISPINFOW && record->hwndFrom == logPane.Handle()) {
    logPane.FillText(*reinterpret_cast<NMLVDISPINFOW*>(record));
  }
  return 0;
}

// A timer collects the lines of many callbacks, and comes after input and painting.
void BrowserWindow::RequestLogRefresh() {
  if (!isRefreshPending) isRefreshPending = SetTimer(Window(), kLogTimer, kLogPeriod, nullptr) != 0;
}

void BrowserWindow::HandleTimer(WPARAM timer) {
  KillTimer(Window(), timer);
  if (timer == kFollowTimer) {
    FollowDisk();
  } else if (timer == kLogTimer) {
    isRefreshPending = false;
    log.Flush();
    logPane.Refresh();
  }
}

// While the user edits a label, the items keep their places.
void BrowserWindow::FollowDisk() {
  if (IsEditingLabel()) {
    SetTimer(Window(), kFollowTimer, kFollowPeriod, nullptr);
  } else if (latest) {
    browser.Follow(std::move(*latest));
    latest.reset();
  }
}

RECT BrowserWindow::ViewArea() const {
  RECT area{};
  GetClientRect(Window(), &area);
  area.left = Gap();
  area.top = tools.Height() + Gap();
  area.right = std::max(std::lround(viewShare * static_cast<double>(area.right)), area.left);
  area.bottom = std::max<LONG>(area.bottom - LineHeight() - 2 * Gap(), area.top);
  return area;
}

void BrowserWindow::Arrange() {
  RECT client{};
  GetClientRect(Window(), &client);
  if (!logTitle || !tools.Handle() || client.right == 0) return;
  tools.Fit(static_cast<int>(client.right));
  const RECT view = ViewArea();
  if (browser.View().GetControlWindow()) browser.Move(view);
  const LONG left = view.right + Gap();
  const LONG right = std::max<LONG>(client.right - Gap(), left);
  MoveTo(splitter.Window(), {view.right, view.top, left, view.bottom});
  const LONG dropBottom = view.top + (view.bottom - view.top) / 4;
  MoveTo(drops.Window(), {left, view.top, right, dropBottom});
  const LONG titleTop = dropBottom + Gap() + Gap() / 2;
  const LONG titleBottom = titleTop + LineHeight();
  MoveTo(logTitle, {left + 2, titleTop, right, titleBottom});
  logPane.Move({left, titleBottom + Gap() / 2, right, view.bottom});
  const LONG statusTop = view.bottom + Gap();
  status.Move({Gap() + 2, statusTop, client.right - Gap(), statusTop + LineHeight()});
  RedrawWindow(Window(), nullptr, nullptr, RDW_ERASE | RDW_INVALIDATE | RDW_ALLCHILDREN);
}

void BrowserWindow::MoveSplitter(int x) {
  RECT client{};
  GetClientRect(Window(), &client);
  viewShare = std::clamp(static_cast<double>(x) / std::max<LONG>(client.right, 1), 0.2, 0.8);
  Arrange();
}

}  // namespace demo
