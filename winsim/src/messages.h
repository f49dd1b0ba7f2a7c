#pragma once

namespace winsim {

// Empties the queue of posted messages.
void ForgetAllMessages();

}  // namespace winsim
