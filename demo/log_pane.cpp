#include "log_pane.h"

#include <algorithm>

#include "text.h"
#include "window_base.h"

namespace demo {
namespace {

constexpr std::size_t kIndent = 4;

}  // namespace

bool LogPane::Create(HWND parent) {
  const DWORD style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | LVS_REPORT | LVS_OWNERDATA |
                      LVS_NOCOLUMNHEADER | LVS_SINGLESEL;
  list = CreateWindowExW(WS_EX_CLIENTEDGE, WC_LISTVIEWW, L"", style, 0, 0, 0, 0, parent, nullptr,
                         GetModuleHandleW(nullptr), nullptr);
  if (!list) return false;
  UseMessageFont(list);
  LVCOLUMNW column{};
  column.mask = LVCF_WIDTH;
  column.cx = 100;
  SendMessageW(list, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
  return true;
}

void LogPane::Move(const RECT& area) {
  MoveTo(list, area);
  FitColumn();
}

void LogPane::FitColumn() {
  RECT area{};
  GetClientRect(list, &area);
  SendMessageW(list, LVM_SETCOLUMNWIDTH, 0, area.right);
}

void LogPane::Refresh() {
  const std::size_t count = log.Lines().size();
  SendMessageW(list, LVM_SETITEMCOUNT, count, LVSICF_NOSCROLL);
  FitColumn();
  if (count > 0) SendMessageW(list, LVM_ENSUREVISIBLE, count - 1, FALSE);
}

void LogPane::FillText(NMLVDISPINFOW& request) const {
  const auto row = static_cast<std::size_t>(request.item.iItem);
  const int room = request.item.cchTextMax;
  if ((request.item.mask & LVIF_TEXT) == 0 || row >= log.Lines().size() || room <= 0) return;
  const LogLine& line = log.Lines()[row];
  const auto indent = static_cast<std::size_t>(std::max(line.depth, 0)) * kIndent;
  const std::wstring text = std::wstring(indent, L' ') + Wide(line.text);
  const std::size_t length = text.copy(request.item.pszText, static_cast<std::size_t>(room) - 1);
  request.item.pszText[length] = L'\0';
}

}  // namespace demo
