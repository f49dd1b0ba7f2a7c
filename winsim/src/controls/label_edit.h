// The edit field in which the user changes a label.
#pragma once

#include <string>

#include <windows.h>

namespace winsim {

// Implemented by the control that owns the field.
class LabelEditOwner {
 public:
  virtual ~LabelEditOwner() = default;
  // Called when the field loses the focus or gets Return or Escape.
  virtual void EndLabelEdit(bool cancel) = 0;
};

HWND MakeLabelEdit(HWND owner, const std::u16string& text);

// The text of the field; empty if the field is destroyed.
std::u16string EditedText(HWND field);

}  // namespace winsim
