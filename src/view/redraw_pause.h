// Drawing once at the end of an operation over many items instead of once an item.
#pragma once

#include "core/qvl.h"
#include "view/life_watch.h"

// What is known of the drawing of a view's control. A native control does not tell whether its
// redrawing is suspended, so its window procedure notes who asked for what.
class ControlRedraw {
 public:
  // A WM_SETREDRAW has reached the control.
  void NoteRequest(bool on) {
    if (!sendingOwn) suspendedByHost = !on;
  }

 private:
  friend class RedrawPause;

  bool suspendedByHost = false;
  bool paused = false;
  bool sendingOwn = false;
};

// Suspends a shown control's redrawing from the moment when more than a handful of items have
// changed to the end of the scope, and has the control drawn then. Leaves a suspension of the
// host's alone, also one that begins meanwhile; an inner pause leaves the work to the outer.
class RedrawPause {
 public:
  RedrawPause(HWND pausedControl, ControlRedraw& state, ViewLife& life)
      : alive(life), control(pausedControl), redraw(state) {}
  RedrawPause(const RedrawPause&) = delete;
  RedrawPause& operator=(const RedrawPause&) = delete;
  ~RedrawPause();

  // To be called before each change of an item.
  void BeforeChange() {
    if (changes++ == kHandful) Begin();
  }

 private:
  static constexpr int kHandful = 8;

  void Begin();
  void SetRedraw(bool on);

  LifeWatch alive;
  HWND control;
  ControlRedraw& redraw;  // a field of the view, touched only while the view lives
  int changes = 0;
  bool began = false;
};
