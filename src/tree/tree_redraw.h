// Removes a tree's scroll bars while many items change.
#pragma once

#include "common/redraw_pause.h"

// The runtime's tree control computes its scroll bars at each change of an item, over all visible
// items, also while its drawing is suspended. With TVS_NOSCROLL it does not.
class TreeRedraw final : public ControlRedraw {
 public:
  // A label edit delays the return of the bars. Call this before each paint: it returns them once
  // the edit is closed.
  void ReturnLateBars(HWND control) {
    if (barsTaken && !IsPaused()) ReturnBars(control);
  }

 private:
  void OnBegin(HWND control) override { TakeBars(control); }
  void OnEnd(HWND control) override { ReturnBars(control); }

  void TakeBars(HWND control);
  void ReturnBars(HWND control);

  bool barsTaken = false;
};
