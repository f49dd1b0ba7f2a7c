#include "browser_window.h"

#include <algorithm>
#include <array>
#include <string>

#include "item_points.h"
#include "options.h"
#include "progress_window.h"

namespace demo {
namespace {

constexpr int WIDTH = 1080;
constexpr int HEIGHT = 760;
constexpr int GAP = 6;
constexpr std::size_t MOST_COUNTED = 1000;  // counting walks all items, too long for many more
constexpr UINT REFRESH_LOG = WM_APP + 1;
constexpr UINT SORT_LIST = WM_APP + 2;

constexpr std::array<ACCEL, 10> KEYS{{
    {FVIRTKEY | FCONTROL, 'E', static_cast<WORD>(Command::ExpandAll)},
    {FVIRTKEY | FCONTROL, 'W', static_cast<WORD>(Command::CollapseAll)},
    {FVIRTKEY | FCONTROL, 'T', static_cast<WORD>(Command::TickAll)},
    {FVIRTKEY | FCONTROL, 'U', static_cast<WORD>(Command::UntickAll)},
    {FVIRTKEY | FCONTROL, 'A', static_cast<WORD>(Command::SelectAll)},
    {FVIRTKEY | FCONTROL, 'I', static_cast<WORD>(Command::InvertSelection)},
    {FVIRTKEY, VK_DELETE, static_cast<WORD>(Command::Remove)},
    {FVIRTKEY, VK_F2, static_cast<WORD>(Command::Rename)},
    {FVIRTKEY, VK_F4, static_cast<WORD>(Command::Colours)},
    {FVIRTKEY, VK_F6, static_cast<WORD>(Command::Switch)},
}};

HWND MakeLabel(HWND parent, const wchar_t* text) {
  const HWND label =
      CreateWindowExW(0, L"STATIC", text, WS_CHILD | WS_VISIBLE | SS_NOPREFIX | SS_ENDELLIPSIS, 0,
                      0, 0, 0, parent, nullptr, GetModuleHandleW(nullptr), nullptr);
  UseMessageFont(label);
  return label;
}

}  // namespace

BrowserWindow::BrowserWindow(DirectoryModel& model, CallLog& log)
    : model(model), log(log), browser(model, log, *this), drops(log), logPane(log) {}

BrowserWindow::~BrowserWindow() {
  log.ForgetListeners();
  if (keys != nullptr) DestroyAcceleratorTable(keys);
}

bool BrowserWindow::Create(const Options& options) {
  const std::wstring title = WidePath(model.At(0).path) + L" - qvl demo";
  WindowPlan plan;
  plan.className = L"QVLDemo";
  plan.title = title.c_str();
  plan.style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
  plan.width = WIDTH;
  plan.height = HEIGHT;
  if (!CreateFrom(plan) || !CreateParts() || !OpenView(options.list)) return false;
  log.AddListener([this] {
    if (refreshPosted) return;
    refreshPosted = PostMessageW(Window(), REFRESH_LOG, 0, 0) != FALSE;
  });
  Arrange();
  return true;
}

bool BrowserWindow::CreateParts() {
  const HWND window = Window();
  keys = CreateAcceleratorTableW(const_cast<ACCEL*>(KEYS.data()), static_cast<int>(KEYS.size()));
  logTitle = MakeLabel(window, L"Calls of the client");
  status = MakeLabel(window, L"");
  return tools.Create(window) && drops.Create(window) && logPane.Create(window);
}

bool BrowserWindow::OpenView(bool asList) {
  ProgressWindow progress(IsWindowVisible(Window()) ? Window() : nullptr);
  const std::size_t total = model.Size();
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
    case REFRESH_LOG:
      RefreshLog();
      return 0;
    case SORT_LIST: {
      ProgressWindow progress(Window());
      const std::size_t total = model.Size();
      browser.SortBy(static_cast<Column>(wParam),
                     [&](std::size_t done) { progress.Report(L"Sorting: ", done, total); });
      return 0;
    }
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

RECT BrowserWindow::ViewArea() const {
  RECT area{};
  GetClientRect(Window(), &area);
  area.left = GAP;
  area.top = tools.Height() + GAP;
  area.right = area.right * 11 / 20;
  area.bottom -= LineHeight() + 2 * GAP;
  return area;
}

void BrowserWindow::Arrange() {
  if (logTitle == nullptr || tools.Handle() == nullptr) return;
  SendMessageW(tools.Handle(), TB_AUTOSIZE, 0, 0);
  RECT client{};
  GetClientRect(Window(), &client);
  const RECT view = ViewArea();
  if (browser.View().GetControlWindow() != nullptr) browser.Move(view);
  const LONG left = view.right + GAP;
  const LONG width = std::max<LONG>(client.right - left - GAP, 0);
  const LONG dropHeight = (view.bottom - view.top) / 4;
  const LONG line = LineHeight();
  MoveWindow(drops.Window(), left, view.top, width, dropHeight, TRUE);
  const LONG titleTop = view.top + dropHeight + GAP;
  MoveWindow(logTitle, left + 2, titleTop + 3, width, line, TRUE);
  logPane.Move({left, titleTop + line + GAP, left + width, view.bottom});
  MoveWindow(status, GAP + 2, view.bottom + GAP, client.right - 2 * GAP, line, TRUE);
}

void BrowserWindow::Run(Command command) {
  IQVLTreeView& view = browser.View();
  switch (command) {
    case Command::ExpandAll:
      view.ExpandAll();
      break;
    case Command::CollapseAll:
      view.CollapseAll();
      break;
    case Command::TickAll:
      view.CheckAll();
      break;
    case Command::UntickAll:
      view.UncheckAll();
      break;
    case Command::SelectAll:
      view.SelectAll();
      break;
    case Command::InvertSelection:
      view.InvertSelection();
      break;
    case Command::Remove:
      browser.RemoveSelected();
      break;
    case Command::Rename:
      browser.BeginRename();
      return;
    case Command::Colours:
      browser.NextColours();
      break;
    case Command::Switch:
      OpenView(!browser.IsList());
      break;
  }
  SetFocus(view.GetControlWindow());
}

void BrowserWindow::RefreshLog() {
  refreshPosted = false;
  logPane.Refresh();
}

void BrowserWindow::ShowStatus() {
  IQVLTreeView& view = browser.View();
  std::wstring text = std::to_wstring(model.Size()) + L" entries";
  if (model.IsCutShort()) text += L" (cut short)";
  if (model.Size() <= MOST_COUNTED) {
    text += L"    " + std::to_wstring(view.GetSelectedCount()) + L" selected    ";
    text += std::to_wstring(view.GetCheckedCount()) + L" checked";
  }
  if (text != counts) notice.clear();
  counts = text;
  if (!notice.empty()) text += L"    " + notice;
  if (text == statusText) return;
  statusText = text;
  SetWindowTextW(status, text.c_str());
}

void BrowserWindow::ShowNotice(const WideText& text) {
  ShowStatus();
  notice = text;
}

void BrowserWindow::OpenContextMenu(int x, int y, ItemHandle item) {
  POINT place{x, y};
  if (x == -1 && y == -1) {
    const auto selected = browser.SelectedItems();
    if (selected.empty()) return;
    const auto found = PointOnItem(browser.View(), selected.front(), QVLHT_ONITEMLABEL);
    place = found.value_or(POINT{0, 0});
  } else if (item == -1) {
    return;
  }
  browser.View().ShowContextMenu(static_cast<int>(place.x), static_cast<int>(place.y));
}

void BrowserWindow::MakeColumns(HWND listWindow, const RECT& clientRect) {
  UseMessageFont(listWindow);
  browser.MakeColumns(listWindow, clientRect);
}

bool BrowserWindow::AnswerLabelEdit(NMHDR* record, std::uint32_t code) {
  const auto& edit = *reinterpret_cast<NMTVDISPINFOW*>(record);
  if (code == TVN_BEGINLABELEDITW) return !browser.MayEdit(edit);
  return code == TVN_ENDLABELEDITW && browser.TakeLabel(edit);
}

// The rows are made anew, so not while the list is still telling of the click.
void BrowserWindow::SortBy(Column column) {
  PostMessageW(Window(), SORT_LIST, static_cast<WPARAM>(column), 0);
}

}  // namespace demo
