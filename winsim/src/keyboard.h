#pragma once

namespace winsim {

// Lets go of every key and takes the focus from all windows.
void ResetInput();

}  // namespace winsim
