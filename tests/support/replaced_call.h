#pragma once

#include "support/import_patch.h"

// Replaces a platform call of the library by a lambda that may capture, for the life of the object:
//
//   const Replaced refuse("DestroyWindow", &DestroyWindow, [&](HWND) { return ++calls, FALSE; });
//
// The function gives the signature. One object of each lambda at a time.
template <class Lambda>
class Replaced {
 public:
  template <class Result, class... Arguments>
  Replaced(const char* name, Result (*)(Arguments...), Lambda replacement)
      : lambda(replacement),
        patch(
            name, +[](Arguments... arguments) -> Result { return (*current)(arguments...); }) {
    current = &lambda;
  }

 private:
  static inline const Lambda* current = nullptr;
  Lambda lambda;
  ImportPatch patch;
};
