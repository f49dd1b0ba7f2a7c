// What tree and list do alike once a view has listed its selected items: ask the client for the
// names and hand them to the system.
//
// The client may end the view from its callback, and the host may while a drag or a menu is
// running. After that nothing of the view is touched, nothing starts and the result is false.
#pragma once

#include "core/qvl.h"
#include "shell/context_menu.h"
#include "view/life_watch.h"

// Drags the files that the client names for `items`. True if a drag ran, whatever came of it;
// false without a client, an item or a name.
bool DragSelection(IQVLTreeView* view, IQVLTreeView* owner, IQVLTreeViewClient* client,
                   ViewLife& life, ItemHandleList& items) noexcept;

// Shows the shell's menu for the files that the client names for `items`, at the screen position
// x, y. `active`, a field of the view, points to the menu while it is shown, so that the window
// `ownerWindow` can forward messages to it. False without a client, an item or a name, or when the
// shell does not know the first name.
bool ShowSelectionMenu(IQVLTreeView* owner, IQVLTreeViewClient* client, ViewLife& life,
                       HWND ownerWindow, int x, int y, ItemHandleList& items,
                       QVLShellContextMenu*& active) noexcept;
