// Operations on all visible items at once: expansion and check boxes.
#include "platform/tree_control.h"
#include "tree/tree_view.h"
#include "tree/visible_walk.h"
#include "view/item_list.h"

// Expanding makes the children visible before the walk goes on, so it reaches every item.
void QVLTreeView::ExpandAll() {
  if (!controlWindow) return;
  RedrawPause pause(controlWindow, redraw, life);
  for (const ItemHandle item : VisibleWalk(controlWindow, life)) {
    pause.BeforeChange();
    tree::Expand(controlWindow, item, TVE_EXPAND);
  }
}

// Collapsing takes the children out before the walk goes on, so it reaches the top level alone.
void QVLTreeView::CollapseAll() {
  if (!controlWindow) return;
  RedrawPause pause(controlWindow, redraw, life);
  for (const ItemHandle item : VisibleWalk(controlWindow, life)) {
    pause.BeforeChange();
    tree::Expand(controlWindow, item, TVE_COLLAPSE);
  }
}

int QVLTreeView::GetCheckedCount() {
  if (!controlWindow) return 0;
  return CountItems(tree::VisibleItems(controlWindow), tree::TickedIn(controlWindow));
}

ItemHandle QVLTreeView::GetCheckedItem(int index) {
  if (!controlWindow) return 0;
  return ItemAt(tree::VisibleItems(controlWindow), index, tree::TickedIn(controlWindow));
}

void QVLTreeView::SetItemChecked(ItemHandle handle, bool checked) {
  if (!controlWindow || handle == -1) return;
  tree::SetStateImage(controlWindow, handle, checked ? tree::kTickedBox : tree::kEmptyBox);
}

bool QVLTreeView::IsItemChecked(ItemHandle handle) {
  if (!controlWindow || handle == -1) return false;
  return tree::StateImage(controlWindow, handle) != tree::kEmptyBox;
}

void QVLTreeView::CheckAll() { ReplaceStateImages(tree::kEmptyBox, tree::kTickedBox); }

void QVLTreeView::UncheckAll() { ReplaceStateImages(tree::kTickedBox, tree::kEmptyBox); }

void QVLTreeView::ReplaceStateImages(UINT from, UINT to) {
  if (!controlWindow) return;
  RedrawPause pause(controlWindow, redraw, life);
  for (const ItemHandle item : tree::VisibleItems(controlWindow)) {
    if (tree::StateImage(controlWindow, item) != from) continue;
    pause.BeforeChange();
    tree::SetStateImage(controlWindow, item, to);
  }
}
