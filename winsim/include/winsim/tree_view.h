// Messages, styles, notifications and records of the tree control.
#pragma once

#include "image_list.h"
#include "notify.h"

#define WC_TREEVIEWW TEXT("SysTreeView32")

struct _TREEITEM;
using HTREEITEM = _TREEITEM*;

#define TVS_HASBUTTONS 0x0001
#define TVS_HASLINES 0x0002
#define TVS_LINESATROOT 0x0004
#define TVS_EDITLABELS 0x0008
#define TVS_DISABLEDRAGDROP 0x0010
#define TVS_SHOWSELALWAYS 0x0020
#define TVS_NOTOOLTIPS 0x0080
#define TVS_CHECKBOXES 0x0100
#define TVS_INFOTIP 0x0800
#define TVS_FULLROWSELECT 0x1000
#define TVS_NOSCROLL 0x2000

#define TVIF_TEXT 0x0001
#define TVIF_IMAGE 0x0002
#define TVIF_PARAM 0x0004
#define TVIF_STATE 0x0008
#define TVIF_HANDLE 0x0010
#define TVIF_SELECTEDIMAGE 0x0020

#define TVIS_SELECTED 0x0002
#define TVIS_CUT 0x0004
#define TVIS_BOLD 0x0010
#define TVIS_EXPANDED 0x0020
#define TVIS_EXPANDEDONCE 0x0040
#define TVIS_STATEIMAGEMASK 0xF000

#define LPSTR_TEXTCALLBACKW (reinterpret_cast<LPWSTR>(static_cast<INT_PTR>(-1)))

#define WINSIM_TREEITEM(value) (reinterpret_cast<HTREEITEM>(static_cast<LONG_PTR>(value)))
#define TVI_ROOT WINSIM_TREEITEM(-0x10000)
#define TVI_LAST WINSIM_TREEITEM(-0x0FFFE)

#define TVE_COLLAPSE 0x0001
#define TVE_EXPAND 0x0002

#define TVGN_ROOT 0x0000
#define TVGN_NEXT 0x0001
#define TVGN_PARENT 0x0003
#define TVGN_CHILD 0x0004
#define TVGN_FIRSTVISIBLE 5
#define TVGN_NEXTVISIBLE 0x0006
#define TVGN_PREVIOUSVISIBLE 0x0007
#define TVGN_DROPHILITE 8
#define TVGN_CARET 0x0009

#define TVSIL_NORMAL 0
#define TVSIL_STATE 2

#define TVHT_NOWHERE 0x0001
#define TVHT_ONITEMICON 0x0002
#define TVHT_ONITEMLABEL 0x0004
#define TVHT_ONITEMINDENT 0x0008
#define TVHT_ONITEMBUTTON 0x0010
#define TVHT_ONITEMRIGHT 0x0020
#define TVHT_ONITEMSTATEICON 0x0040
#define TVHT_ONITEM (TVHT_ONITEMICON | TVHT_ONITEMLABEL | TVHT_ONITEMSTATEICON)
#define TVHT_ABOVE 0x0100
#define TVHT_BELOW 0x0200
#define TVHT_TORIGHT 0x0400
#define TVHT_TOLEFT 0x0800

#define TV_FIRST 0x1100
#define TVM_DELETEITEM (TV_FIRST + 1)
#define TVM_EXPAND (TV_FIRST + 2)
#define TVM_GETITEMRECT (TV_FIRST + 4)
#define TVM_GETIMAGELIST (TV_FIRST + 8)
#define TVM_SETIMAGELIST (TV_FIRST + 9)
#define TVM_GETNEXTITEM (TV_FIRST + 10)
#define TVM_SELECTITEM (TV_FIRST + 11)
#define TVM_GETEDITCONTROL (TV_FIRST + 15)
#define TVM_HITTEST (TV_FIRST + 17)
#define TVM_ENSUREVISIBLE (TV_FIRST + 20)
#define TVM_GETTOOLTIPS (TV_FIRST + 25)
#define TVM_SETBKCOLOR (TV_FIRST + 29)
#define TVM_SETTEXTCOLOR (TV_FIRST + 30)
#define TVM_GETBKCOLOR (TV_FIRST + 31)
#define TVM_GETTEXTCOLOR (TV_FIRST + 32)
#define TVM_GETITEMSTATE (TV_FIRST + 39)
#define TVM_INSERTITEMW (TV_FIRST + 50)
#define TVM_GETITEMW (TV_FIRST + 62)
#define TVM_SETITEMW (TV_FIRST + 63)
#define TVM_EDITLABELW (TV_FIRST + 65)

#define TVN_FIRST (0U - 400U)
#define TVN_KEYDOWN (TVN_FIRST - 12)
#define TVN_GETINFOTIPW (TVN_FIRST - 14)
#define TVN_SELCHANGINGW (TVN_FIRST - 50)
#define TVN_SELCHANGEDW (TVN_FIRST - 51)
#define TVN_ITEMEXPANDINGW (TVN_FIRST - 54)
#define TVN_ITEMEXPANDEDW (TVN_FIRST - 55)
#define TVN_BEGINDRAGW (TVN_FIRST - 56)
#define TVN_DELETEITEMW (TVN_FIRST - 58)
#define TVN_BEGINLABELEDITW (TVN_FIRST - 59)
#define TVN_ENDLABELEDITW (TVN_FIRST - 60)

struct TVITEMW {
  UINT mask;
  HTREEITEM hItem;
  UINT state;
  UINT stateMask;
  LPWSTR pszText;
  int cchTextMax;
  int iImage;
  int iSelectedImage;
  int cChildren;
  LPARAM lParam;
};

struct TVITEMEXW {
  UINT mask;
  HTREEITEM hItem;
  UINT state;
  UINT stateMask;
  LPWSTR pszText;
  int cchTextMax;
  int iImage;
  int iSelectedImage;
  int cChildren;
  LPARAM lParam;
  int iIntegral;
  UINT uStateEx;
  HWND hwnd;
  int iExpandedImage;
  int iReserved;
};

struct TVINSERTSTRUCTW {
  HTREEITEM hParent;
  HTREEITEM hInsertAfter;
  union {
    TVITEMEXW itemex;
    TVITEMW item;
  };
};

struct TVHITTESTINFO {
  POINT pt;
  UINT flags;
  HTREEITEM hItem;
};

struct NMTREEVIEWW {
  NMHDR hdr;
  UINT action;
  TVITEMW itemOld;
  TVITEMW itemNew;
  POINT ptDrag;
};

struct NMTVDISPINFOW {
  NMHDR hdr;
  TVITEMW item;
};

struct NMTVGETINFOTIPW {
  NMHDR hdr;
  LPWSTR pszText;
  int cchTextMax;
  HTREEITEM hItem;
  LPARAM lParam;
};

static_assert(sizeof(TVITEMW) == 56 && sizeof(TVITEMEXW) == 80);
static_assert(sizeof(TVINSERTSTRUCTW) == 96 && sizeof(TVHITTESTINFO) == 24);
static_assert(sizeof(NMTREEVIEWW) == 152 && sizeof(NMTVDISPINFOW) == 80);
static_assert(sizeof(NMTVGETINFOTIPW) == 56);
