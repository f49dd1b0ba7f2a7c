#include "common/redraw_pause.h"

#include <utility>

bool ControlRedraw::BeginPause(HWND control) {
  if (paused) return false;
  paused = true;
  Suspend(control);
  OnBegin(control);
  return true;
}

void ControlRedraw::EndPause(HWND control) {
  if (!paused) return;
  paused = false;
  OnEnd(control);
  Resume(control);
}

void ControlRedraw::Suspend(HWND control) {
  if (!observed || suspendedByHost || !IsWindowVisible(control)) return;
  suspended = true;
  Send(control, false);
}

// The frame too, because a control may not update its scroll bars while its drawing is suspended.
void ControlRedraw::Resume(HWND control) {
  if (!std::exchange(suspended, false) || suspendedByHost) return;
  Send(control, true);
  RedrawWindow(control, nullptr, nullptr, RDW_ERASE | RDW_FRAME | RDW_INVALIDATE | RDW_ALLCHILDREN);
}

void ControlRedraw::Send(HWND control, bool on) {
  sendingOwn = true;
  SendMessageW(control, WM_SETREDRAW, on, 0);
  sendingOwn = false;
}
