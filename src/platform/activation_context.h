// The library's own activation context, and the common controls as that context resolves them.
//
// The context is settled at the first use in the process, the module is loaded at the first
// lookup, and neither is ever released. Nothing here is locked: everything runs on the thread that
// owns the windows, as the views do.
#pragma once

#include <windows.h>

namespace activation {

// Settles the library's context. False means that it can't be settled now; the last error tells
// why, and the next call tries again.
bool EnsureActivationContext();

// Settles the library's context and activates it. After true the caller owes a deactivation.
bool ActivateLibraryContext(ULONG_PTR* cookie);

// Finds a function of the common controls, with the library's context active during the search.
// Null with the last error of the step that failed.
FARPROC GetCommonControlsProc(const char* name);

// The library's context is active from construction to destruction, if it could be activated.
class LibraryContext {
 public:
  LibraryContext() : active(ActivateLibraryContext(&cookie)) {}
  ~LibraryContext();
  LibraryContext(const LibraryContext&) = delete;
  LibraryContext& operator=(const LibraryContext&) = delete;

  bool IsActive() const { return active; }

 private:
  ULONG_PTR cookie = 0;
  bool active;
};

// Carries the last error past the calls that clean up after a failure. Stands before the objects
// that clean up, so that it ends after them and has the last word.
class LastErrorOfFailure {
 public:
  LastErrorOfFailure() = default;
  ~LastErrorOfFailure();
  LastErrorOfFailure(const LastErrorOfFailure&) = delete;
  LastErrorOfFailure& operator=(const LastErrorOfFailure&) = delete;

  // Reads the last error, to be set again at the end of this object.
  void Keep();

 private:
  DWORD error = 0;
  bool kept = false;
};

}  // namespace activation
