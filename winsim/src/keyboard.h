#pragma once

namespace winsim {

// Lets go of every key and takes the focus and the capture from all windows.
void ResetInput();

}  // namespace winsim
