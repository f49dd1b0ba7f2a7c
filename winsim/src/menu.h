#pragma once

#include <winsim.h>

namespace winsim {

int CountMenus();
void ForgetMenuScript();

}  // namespace winsim
