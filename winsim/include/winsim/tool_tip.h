// The tool tip window of a control.
#pragma once

#include "notify.h"

#define TOOLTIPS_CLASSW TEXT("tooltips_class32")

#define TTDT_INITIAL 3

#define TTM_SETDELAYTIME (WM_USER + 3)
#define TTM_GETDELAYTIME (WM_USER + 21)
#define TTM_SETMAXTIPWIDTH (WM_USER + 24)
#define TTM_GETMAXTIPWIDTH (WM_USER + 25)
