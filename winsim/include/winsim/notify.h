// Notification codes that all common controls share.
#pragma once

#include "../windows.h"

#define WINSIM_CODE(first, offset) (static_cast<UINT>(0) - (first) - (offset))

#define NM_RCLICK WINSIM_CODE(0U, 5U)
#define NM_SETFOCUS WINSIM_CODE(0U, 7U)
#define NM_KILLFOCUS WINSIM_CODE(0U, 8U)
