#include "tool_row.h"

#include <commctrl.h>

#include "command_ids.h"
#include "window_base.h"

namespace demo {
namespace {

void AddSeparator(HWND toolbar) {
  TBBUTTON separator{};
  separator.fsStyle = BTNS_SEP;
  SendMessageW(toolbar, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&separator));
}

}  // namespace

bool ToolRow::Create(HWND parent) {
  toolbar = CreateWindowExW(0, TOOLBARCLASSNAMEW, L"",
                            WS_CHILD | WS_VISIBLE | TBSTYLE_FLAT | TBSTYLE_LIST | TBSTYLE_WRAPABLE,
                            0, 0, 0, 0, parent, nullptr, GetModuleHandleW(nullptr), nullptr);
  if (!toolbar) return false;
  SendMessageW(toolbar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
  SendMessageW(toolbar, TB_SETBITMAPSIZE, 0, 0);
  UseMessageFont(toolbar);
  for (const CommandText& each : kCommands) {
    if (each.beginsGroup) AddSeparator(toolbar);
    TBBUTTON button{};
    button.iBitmap = I_IMAGENONE;
    button.idCommand = static_cast<int>(each.command);
    button.fsState = TBSTATE_ENABLED;
    button.fsStyle = BTNS_BUTTON | BTNS_AUTOSIZE;
    button.iString = reinterpret_cast<INT_PTR>(each.label);
    SendMessageW(toolbar, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&button));
  }
  return true;
}

void ToolRow::Fit(int width) {
  MoveWindow(toolbar, 0, 0, width, Height(), TRUE);
  SendMessageW(toolbar, TB_AUTOSIZE, 0, 0);
}

int ToolRow::Height() const {
  RECT area{};
  GetWindowRect(toolbar, &area);
  return static_cast<int>(area.bottom - area.top);
}

std::optional<POINT> ToolRow::PointOf(const std::string& name) const {
  for (const CommandText& each : kCommands) {
    if (name != each.name) continue;
    RECT area{};
    SendMessageW(toolbar, TB_GETRECT, static_cast<WPARAM>(each.command),
                 reinterpret_cast<LPARAM>(&area));
    POINT middle{(area.left + area.right) / 2, (area.top + area.bottom) / 2};
    ClientToScreen(toolbar, &middle);
    return middle;
  }
  return std::nullopt;
}

}  // namespace demo
