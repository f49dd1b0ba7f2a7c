// Global blocks and task memory.
#pragma once

#include <cstddef>

namespace winsim {

int CountGlobalBlocks();
int CountTaskBlocks();

// A block for the caller to free with the IMalloc of SHGetMalloc, or null.
void* AllocateTaskBlock(std::size_t bytes);

}  // namespace winsim
