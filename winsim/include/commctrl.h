// The common controls: image lists, tree, list and tool tip.
#pragma once

#include "windows.h"

#include "winsim/image_list.h"
#include "winsim/list_view.h"
#include "winsim/tool_tip.h"
#include "winsim/tree_view.h"

struct INITCOMMONCONTROLSEX {
  DWORD dwSize;
  DWORD dwICC;
};
WINSIM_API BOOL WINAPI InitCommonControlsEx(const INITCOMMONCONTROLSEX* controls);
