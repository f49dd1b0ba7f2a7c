#pragma once

namespace winsim {

void ForgetDragScript();

}  // namespace winsim
