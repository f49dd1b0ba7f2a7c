// Draws once at the end of an operation over many items instead of once for each item.
#pragma once

#include "core/life_watch.h"

// Records whether a control's drawing is suspended, and by whom. A native control cannot be asked,
// so its window procedure notes each WM_SETREDRAW.
class ControlRedraw {
 public:
  ControlRedraw() = default;
  ControlRedraw(const ControlRedraw&) = delete;
  ControlRedraw& operator=(const ControlRedraw&) = delete;
  virtual ~ControlRedraw() = default;

  // The control's window procedure calls NoteRequest. Without that, drawing is never suspended,
  // because the end of a pause could end a suspension of the host's.
  void Observe() { observed = true; }

  // The control receives WM_SETREDRAW.
  void NoteRequest(bool on) {
    if (!sendingOwn) suspendedByHost = !on;
  }

  // Ends the pause, if there is one, and redraws the control.
  void EndPause(HWND control);

 protected:
  bool IsPaused() const { return paused; }

  // Called when a pause begins and ends, also if the host suspends the drawing.
  virtual void OnBegin(HWND /*control*/) {}
  virtual void OnEnd(HWND /*control*/) {}

 private:
  friend class RedrawPause;

  bool BeginPause(HWND control);
  void Suspend(HWND control);
  void Resume(HWND control);
  void Send(HWND control, bool on);

  bool observed = false;
  bool suspendedByHost = false;
  bool paused = false;
  bool suspended = false;  // by the pause
  bool sendingOwn = false;
};

// Suspends the drawing of a visible control from the ninth change to the end of the scope, and then
// redraws the control. A suspension by the host stays in force, also one that begins meanwhile. A
// nested pause does nothing.
class RedrawPause {
 public:
  RedrawPause(HWND pausedControl, ControlRedraw& state, ViewLife& life)
      : alive(life), control(pausedControl), redraw(state) {}
  RedrawPause(const RedrawPause&) = delete;
  RedrawPause& operator=(const RedrawPause&) = delete;
  ~RedrawPause() {
    if (began && alive) redraw.EndPause(control);
  }

  // Call this before each change of an item.
  void BeforeChange() {
    if (changes++ == kUnpausedChanges) began = redraw.BeginPause(control);
  }

 private:
  static constexpr int kUnpausedChanges = 8;

  LifeWatch alive;
  HWND control;
  ControlRedraw& redraw;  // a field of the view, touched only while the view lives
  int changes = 0;
  bool began = false;
};
