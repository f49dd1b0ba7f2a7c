// What both views ask the client in the same way.
#pragma once

#include "core/qvl.h"
#include "view/life_watch.h"

// Asks for the tool tip of `item`, which the control's record names. If the client gives one, its
// pointer and length replace those of the record, uncopied.
void RequestInfoTip(IQVLTreeView& view, IQVLTreeView* owner, IQVLTreeViewClient* client,
                    ViewLife& life, ItemHandle item, WCHAR*& text, int& length);

// Selects what lies under the screen position packed in `position` and tells the client that a
// context menu is wanted there. `client` is the view's field: selecting may change it.
void RequestContextMenu(IQVLTreeView& view, IQVLTreeView* owner, IQVLTreeViewClient* const& client,
                        ViewLife& life, LPARAM position);

// Asks about the label edit that the record is of. The result is the notification's answer.
LRESULT RequestLabelEdit(IQVLTreeView* owner, IQVLTreeViewClient* client, NMHDR& record);
