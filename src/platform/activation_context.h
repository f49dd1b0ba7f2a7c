// The library's activation context, and the common controls module that this context selects.
//
// The context is determined at the first use in the process, and the module is loaded at the first
// lookup. Neither is ever released. Nothing is locked: all calls come from the views' thread.
#pragma once

#include <windows.h>

namespace activation {

// Determines the library's context. False means that it cannot be determined now. The last error
// is the reason, and the next call tries again.
bool EnsureActivationContext();

// Determines and activates the library's context. After true the caller must deactivate it.
bool ActivateLibraryContext(ULONG_PTR* cookie);

// Looks up a function of the common controls with the library's context active. Null on failure,
// with the last error of the step that failed.
FARPROC GetCommonControlsProc(const char* name);

// Activates the library's context, if possible, and deactivates it in the destructor.
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

// Restores the last error of a failed call after the calls that clean up. Declare it first:
// destroyed last, it restores the error.
class LastErrorOfFailure {
 public:
  LastErrorOfFailure() = default;
  ~LastErrorOfFailure();
  LastErrorOfFailure(const LastErrorOfFailure&) = delete;
  LastErrorOfFailure& operator=(const LastErrorOfFailure&) = delete;

  // Reads the last error. The destructor sets it again.
  void Keep();

 private:
  DWORD error = 0;
  bool kept = false;
};

}  // namespace activation
