// Shows the call log as it grows.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include "call_log.h"

namespace demo {

class LogPane {
 public:
  explicit LogPane(const CallLog& shownLog) : log(shownLog) {}

  bool Create(HWND parent);
  HWND Handle() const { return list; }
  void Move(const RECT& area);

  // Shows the lines since the last call, the newest line last.
  void Refresh();

  // Answers the control's request for the text of a line.
  void FillText(NMLVDISPINFOW& request) const;

 private:
  void FitColumn();

  const CallLog& log;
  HWND list = nullptr;
};

}  // namespace demo
