// Shows the call log as it grows.
#ifndef DEMO_LOG_PANE_H
#define DEMO_LOG_PANE_H

#include <windows.h>

#include <commctrl.h>

#include "call_log.h"

namespace demo {

class LogPane {
 public:
  explicit LogPane(const CallLog& log) : log(log) {}

  bool Create(HWND parent);
  HWND Handle() const { return list; }
  void Move(const RECT& area);

  // Shows what came since the last call, the newest line last.
  void Refresh();

  // Gives the control the text that it draws.
  void FillText(NMLVDISPINFOW& request) const;

 private:
  const CallLog& log;
  HWND list = nullptr;
};

}  // namespace demo

#endif
