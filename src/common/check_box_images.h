// The state images that a control creates for its check boxes and never frees.
#pragma once

#include "platform/activation.h"

#include <windows.h>

#include <commctrl.h>

#include <utility>

class CheckBoxImages {
 public:
  void NoteMade(HIMAGELIST images) { made = images; }

  // Call this just before the control is destroyed. `take` removes the state images from the
  // control and returns them. If they are not those that the control made, they are the host's and
  // stay.
  template <class Take>
  void Free(Take take) {
    const HIMAGELIST own = std::exchange(made, nullptr);
    if (own && take() == own) activated::ImageList_Destroy(own);
  }

 private:
  HIMAGELIST made = nullptr;
};
