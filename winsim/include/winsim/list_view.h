// Messages, styles, notifications and records of the list control.
#pragma once

#include "image_list.h"
#include "notify.h"

#define WC_LISTVIEWW TEXT("SysListView32")
#define WC_HEADERW TEXT("SysHeader32")

#define LVS_REPORT 0x0001
#define LVS_SINGLESEL 0x0004
#define LVS_SHOWSELALWAYS 0x0008
#define LVS_SHAREIMAGELISTS 0x0040
#define LVS_EDITLABELS 0x0200
#define LVS_NOCOLUMNHEADER 0x4000
#define LVS_NOSORTHEADER 0x8000

#define LVS_EX_GRIDLINES 0x0001
#define LVS_EX_SUBITEMIMAGES 0x0002
#define LVS_EX_CHECKBOXES 0x0004
#define LVS_EX_FULLROWSELECT 0x0020
#define LVS_EX_INFOTIP 0x0400
#define LVS_EX_LABELTIP 0x4000

#define LVIF_TEXT 0x0001
#define LVIF_IMAGE 0x0002
#define LVIF_PARAM 0x0004
#define LVIF_STATE 0x0008
#define LVIF_INDENT 0x0010

#define LVIS_FOCUSED 0x0001
#define LVIS_SELECTED 0x0002
#define LVIS_CUT 0x0004
#define LVIS_STATEIMAGEMASK 0xF000

#define LVSIL_SMALL 1
#define LVSIL_STATE 2

#define LVCF_FMT 0x0001
#define LVCF_WIDTH 0x0002
#define LVCF_SUBITEM 0x0008
#define LVCFMT_LEFT 0x0000

#define LVIR_BOUNDS 0
#define LVIR_LABEL 2

#define LVHT_NOWHERE 0x0001
#define LVHT_ONITEMICON 0x0002
#define LVHT_ONITEMLABEL 0x0004
#define LVHT_ONITEMSTATEICON 0x0008
#define LVHT_ABOVE 0x0008
#define LVHT_BELOW 0x0010
#define LVHT_TORIGHT 0x0020
#define LVHT_TOLEFT 0x0040

#define LVM_FIRST 0x1000
#define LVM_GETBKCOLOR (LVM_FIRST + 0)
#define LVM_SETBKCOLOR (LVM_FIRST + 1)
#define LVM_GETIMAGELIST (LVM_FIRST + 2)
#define LVM_SETIMAGELIST (LVM_FIRST + 3)
#define LVM_GETITEMCOUNT (LVM_FIRST + 4)
#define LVM_DELETEITEM (LVM_FIRST + 8)
#define LVM_DELETEALLITEMS (LVM_FIRST + 9)
#define LVM_GETITEMRECT (LVM_FIRST + 14)
#define LVM_HITTEST (LVM_FIRST + 18)
#define LVM_ENSUREVISIBLE (LVM_FIRST + 19)
#define LVM_SCROLL (LVM_FIRST + 20)
#define LVM_GETCOLUMNWIDTH (LVM_FIRST + 29)
#define LVM_SETCOLUMNWIDTH (LVM_FIRST + 30)
#define LVM_GETHEADER (LVM_FIRST + 31)
#define LVM_GETTEXTCOLOR (LVM_FIRST + 35)
#define LVM_SETTEXTCOLOR (LVM_FIRST + 36)
#define LVM_GETTEXTBKCOLOR (LVM_FIRST + 37)
#define LVM_SETTEXTBKCOLOR (LVM_FIRST + 38)
#define LVM_GETTOPINDEX (LVM_FIRST + 39)
#define LVM_UPDATE (LVM_FIRST + 42)
#define LVM_SETITEMSTATE (LVM_FIRST + 43)
#define LVM_GETITEMSTATE (LVM_FIRST + 44)
#define LVM_GETSELECTEDCOUNT (LVM_FIRST + 50)
#define LVM_SETEXTENDEDLISTVIEWSTYLE (LVM_FIRST + 54)
#define LVM_GETEXTENDEDLISTVIEWSTYLE (LVM_FIRST + 55)
#define LVM_GETITEMW (LVM_FIRST + 75)
#define LVM_SETITEMW (LVM_FIRST + 76)
#define LVM_INSERTITEMW (LVM_FIRST + 77)
#define LVM_GETTOOLTIPS (LVM_FIRST + 78)
#define LVM_INSERTCOLUMNW (LVM_FIRST + 97)
#define LVM_GETITEMTEXTW (LVM_FIRST + 115)
#define LVM_EDITLABELW (LVM_FIRST + 118)

#define LVN_FIRST (0U - 100U)
#define LVN_ITEMCHANGED (LVN_FIRST - 1)
#define LVN_COLUMNCLICK (LVN_FIRST - 8)
#define LVN_BEGINDRAG (LVN_FIRST - 9)
#define LVN_KEYDOWN (LVN_FIRST - 55)
#define LVN_GETINFOTIPW (LVN_FIRST - 58)
#define LVN_BEGINLABELEDITW (LVN_FIRST - 75)
#define LVN_ENDLABELEDITW (LVN_FIRST - 76)

#define HDM_FIRST 0x1200
#define HDM_GETITEMCOUNT (HDM_FIRST + 0)

struct LVITEMW {
  UINT mask;
  int iItem;
  int iSubItem;
  UINT state;
  UINT stateMask;
  LPWSTR pszText;
  int cchTextMax;
  int iImage;
  LPARAM lParam;
  int iIndent;
  int iGroupId;
  UINT cColumns;
  UINT* puColumns;
  int* piColFmt;
  int iGroup;
};

struct LVCOLUMNW {
  UINT mask;
  int fmt;
  int cx;
  LPWSTR pszText;
  int cchTextMax;
  int iSubItem;
  int iImage;
  int iOrder;
  int cxMin;
  int cxDefault;
  int cxIdeal;
};

struct LVHITTESTINFO {
  POINT pt;
  UINT flags;
  int iItem;
  int iSubItem;
  int iGroup;
};

struct NMLISTVIEW {
  NMHDR hdr;
  int iItem;
  int iSubItem;
  UINT uNewState;
  UINT uOldState;
  UINT uChanged;
  POINT ptAction;
  LPARAM lParam;
};

struct NMLVDISPINFOW {
  NMHDR hdr;
  LVITEMW item;
};

struct NMLVGETINFOTIPW {
  NMHDR hdr;
  DWORD dwFlags;
  LPWSTR pszText;
  int cchTextMax;
  int iItem;
  int iSubItem;
  LPARAM lParam;
};

static_assert(sizeof(LVITEMW) == 88 && sizeof(LVCOLUMNW) == 56 && sizeof(LVHITTESTINFO) == 24);
static_assert(sizeof(NMLISTVIEW) == 64 && sizeof(NMLVDISPINFOW) == 112);
static_assert(sizeof(NMLVGETINFOTIPW) == 64);
