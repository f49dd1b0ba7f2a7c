#pragma once

namespace winsim {

// How many contexts are active on this thread.
int CountActiveContexts();

}  // namespace winsim
