#include "shell/selection_flows.h"

#include "shell/drag_drop.h"

bool DragSelection(IQVLTreeView* view, IQVLTreeView* owner, IQVLTreeViewClient* client,
                   ViewLife& life, ItemHandleList& items) noexcept {
  if (!client || items.empty()) return false;

  const LifeWatch alive(life);
  FileNameList files;
  const bool agreed = client->OnBeginDrag(owner, &items, &files);
  if (!alive || !agreed || files.empty()) return false;

  QVLDragDrop().RunDrag(view, &files);
  return static_cast<bool>(alive);
}

bool ShowSelectionMenu(IQVLTreeView* owner, IQVLTreeViewClient* client, ViewLife& life,
                       HWND ownerWindow, int x, int y, ItemHandleList& items,
                       QVLShellContextMenu*& active) noexcept {
  if (!client || items.empty()) return false;

  const LifeWatch alive(life);
  FileNameList files;
  const bool agreed = client->OnShellContextMenu(owner, &items, &files);
  if (!alive || !agreed || files.empty()) return false;

  QVLShellContextMenu menu;
  // A menu that is shown from within another one leaves that one active behind it.
  QVLShellContextMenu* const outer = active;
  active = &menu;
  const bool known = menu.ShowForFiles(ownerWindow, x, y, &files);
  if (!alive) return false;
  active = outer;
  return known;
}
