// The tool tip window of a control.
#pragma once

#include "notify.h"

#define TOOLTIPS_CLASSW TEXT("tooltips_class32")
#define TOOLTIPS_CLASS TOOLTIPS_CLASSW

#define TTDT_AUTOMATIC 0
#define TTDT_RESHOW 1
#define TTDT_AUTOPOP 2
#define TTDT_INITIAL 3

#define TTM_ACTIVATE (WM_USER + 1)
#define TTM_SETDELAYTIME (WM_USER + 3)
#define TTM_GETTOOLCOUNT (WM_USER + 13)
#define TTM_GETDELAYTIME (WM_USER + 21)
#define TTM_SETMAXTIPWIDTH (WM_USER + 24)
#define TTM_GETMAXTIPWIDTH (WM_USER + 25)
#define TTM_POP (WM_USER + 28)

#define TTN_FIRST (0U - 520U)
#define TTN_GETDISPINFOW (TTN_FIRST - 10)
#define TTN_NEEDTEXTW TTN_GETDISPINFOW
#define TTN_SHOW (TTN_FIRST - 1)
#define TTN_POP (TTN_FIRST - 2)

struct NMTTDISPINFOW {
  NMHDR hdr;
  LPWSTR lpszText;
  WCHAR szText[80];
  HINSTANCE hinst;
  UINT uFlags;
  LPARAM lParam;
};
static_assert(sizeof(NMTTDISPINFOW) == 216);
