// The state images that a control made for its check boxes and never frees.
#pragma once

#include "platform/activation.h"

#include <windows.h>

#include <commctrl.h>

// Frees the images when told to, once the control is gone. An image list that the host gave is
// never among them.
class CheckBoxImages {
 public:
  void Own(HIMAGELIST made) { images = made; }
  void Free() {
    if (images) activated::ImageList_Destroy(images);
    images = nullptr;
  }

 private:
  HIMAGELIST images = nullptr;
};
