#include "view/redraw_pause.h"

RedrawPause::~RedrawPause() {
  if (!began || !alive) return;
  redraw.paused = false;
  if (redraw.suspendedByHost) return;
  SetRedraw(true);
  InvalidateRect(control, nullptr, TRUE);
}

void RedrawPause::Begin() {
  if (redraw.paused || redraw.suspendedByHost || !IsWindowVisible(control)) return;
  SetRedraw(false);
  redraw.paused = true;
  began = true;
}

void RedrawPause::SetRedraw(bool on) {
  redraw.sendingOwn = true;
  SendMessageW(control, WM_SETREDRAW, on, 0);
  redraw.sendingOwn = false;
}
