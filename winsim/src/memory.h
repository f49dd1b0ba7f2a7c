#pragma once

namespace winsim {

int CountGlobalBlocks();
int CountTaskBlocks();

}  // namespace winsim
