// Drag and drop.
#pragma once

namespace winsim {

// Restores the drag that DoDragDrop runs without a script.
void ForgetDragScript();

}  // namespace winsim
