// The header above the columns of a list.
#pragma once

#include <windows.h>

namespace winsim {

constexpr int kHeaderHeight = 17;

// Implemented by the control of a header's parent.
class HeaderOwner {
 public:
  virtual ~HeaderOwner() = default;
  virtual int ColumnCount() const = 0;
};

HWND MakeHeader(HWND owner, bool visible);

}  // namespace winsim
