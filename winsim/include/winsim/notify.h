// Notification codes that all common controls share.
#pragma once

#include "../windows.h"

#define CCM_FIRST 0x2000
#define CCM_SETUNICODEFORMAT (CCM_FIRST + 5)
#define CCM_GETUNICODEFORMAT (CCM_FIRST + 6)

#define WINSIM_CODE(first, offset) (static_cast<UINT>(0) - (first) - (offset))

#define NM_OUTOFMEMORY WINSIM_CODE(0U, 1U)
#define NM_CLICK WINSIM_CODE(0U, 2U)
#define NM_DBLCLK WINSIM_CODE(0U, 3U)
#define NM_RETURN WINSIM_CODE(0U, 4U)
#define NM_RCLICK WINSIM_CODE(0U, 5U)
#define NM_RDBLCLK WINSIM_CODE(0U, 6U)
#define NM_SETFOCUS WINSIM_CODE(0U, 7U)
#define NM_KILLFOCUS WINSIM_CODE(0U, 8U)
#define NM_CUSTOMDRAW WINSIM_CODE(0U, 12U)
#define NM_HOVER WINSIM_CODE(0U, 13U)
#define NM_KEYDOWN WINSIM_CODE(0U, 15U)
#define NM_RELEASEDCAPTURE WINSIM_CODE(0U, 16U)
#define NM_SETCURSOR WINSIM_CODE(0U, 17U)

#define CDRF_DODEFAULT 0x0
