// The edit field in which a control lets the user change a label.
#pragma once

#include <string>

#include <windows.h>

namespace winsim {

class LabelEditOwner {
 public:
  virtual ~LabelEditOwner() = default;
  // Called when the user leaves the field, presses Return, or cancels with Escape.
  virtual void EndLabelEdit(bool cancel) = 0;
};

HWND MakeLabelEdit(HWND owner, const std::u16string& text);

// What the field holds; empty if it is gone.
std::u16string EditedText(HWND field);

}  // namespace winsim
