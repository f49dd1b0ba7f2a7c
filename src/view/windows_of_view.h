// The two windows of a view: a parent of a class of its own, inside the host's window, and the
// native control that covers it whole.
#pragma once

#include "core/qvl.h"
#include "view/life_watch.h"

// Registers the parent's class and makes the parent, a visible child without an id. The
// class may be there from an earlier view. Null on failure.
HWND CreateViewParent(const WCHAR* className, WNDPROC procedure, HWND host, int x, int y, int width,
                      int height);

// Makes the native control at the parent's origin. Null on failure.
HWND CreateViewControl(const WCHAR* className, DWORD style, DWORD exStyle, HWND parent,
                       int controlId, int width, int height);

// Puts a procedure in the place of the control's own, which goes into `saved`, unless the platform
// refuses.
void ReplaceControlProc(HWND control, WNDPROC procedure, WNDPROC& saved);

// Moves the parent, and the control with it, without repainting.
void MoveViewWindows(HWND parent, HWND control, int x, int y, int width, int height);

// Ends the view's life and its windows, the control first, and clears both fields. What the control
// reports meanwhile still finds the view whole. False if a callback has ended the view in the
// middle of this; nothing of the view may be touched then.
bool EndViewWindows(ViewLife& life, HWND& control, HWND& parent);
