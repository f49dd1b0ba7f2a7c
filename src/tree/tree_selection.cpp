// The selection: the visible items that carry the control's selected bit. There is no list of them
// anywhere; every question walks the control.
#include "platform/tree_control.h"
#include "tree/tree_view.h"
#include "tree/visible_walk.h"
#include "view/hit_flags.h"
#include "view/item_list.h"
#include "view/selection_bracket.h"

namespace {

constexpr HitFlagPair kHitFlags[] = {
    {TVHT_ABOVE, QVLHT_ABOVE},
    {TVHT_BELOW, QVLHT_BELOW},
    {TVHT_NOWHERE, QVLHT_NOWHERE},
    {TVHT_ONITEMICON | TVHT_ONITEMLABEL | TVHT_ONITEMSTATEICON, QVLHT_ONITEM},
    {TVHT_ONITEMBUTTON, QVLHT_ONITEMBUTTON},
    {TVHT_ONITEMICON, QVLHT_ONITEMICON},
    {TVHT_ONITEMINDENT, QVLHT_ONITEMINDENT},
    {TVHT_ONITEMLABEL, QVLHT_ONITEMLABEL},
    {TVHT_ONITEMRIGHT, QVLHT_ONITEMRIGHT},
    {TVHT_ONITEMSTATEICON, QVLHT_ONITEMSTATEICON},
    {TVHT_TOLEFT, QVLHT_TOLEFT},
    {TVHT_TORIGHT, QVLHT_TORIGHT},
};

}  // namespace

void QVLTreeView::Report(ItemHandle item) {
  if (client) client->OnItemSelectionChanged(owner, item);
}

void QVLTreeView::MarkAndReport(ItemHandle item, bool selected) {
  LifeWatch alive(life);
  tree::MarkSelected(controlWindow, item, selected);
  if (alive) Report(item);
}

int QVLTreeView::GetSelectedCount() {
  if (!controlWindow) return 0;
  return CountItems(tree::VisibleItems(controlWindow), tree::SelectedIn(controlWindow));
}

ItemHandle QVLTreeView::GetSelectedItem(int index) {
  if (!controlWindow) return 0;
  return ItemAt(tree::VisibleItems(controlWindow), index, tree::SelectedIn(controlWindow));
}

// The same items in the same order as GetSelectedItem gives them one by one, in a single walk.
bool QVLTreeView::CollectSelected(ItemHandleList& items) {
  return AppendItems(items, tree::VisibleItems(controlWindow), tree::SelectedIn(controlWindow));
}

void QVLTreeView::SetItemSelected(ItemHandle handle, bool selected) {
  if (!controlWindow || handle == -1) return;
  HeldItem item(life, handle);
  SelectionBracket bracket(owner, client, life);
  if (bracket && item.Get() == handle) MarkAndReport(handle, selected);
}

bool QVLTreeView::IsItemSelected(ItemHandle handle) {
  if (!controlWindow || handle == -1) return false;
  return tree::IsSelected(controlWindow, handle);
}

void QVLTreeView::SelectAll() {
  SelectionBracket bracket(owner, client, life);
  if (!bracket) return;
  RedrawPause pause(controlWindow, redraw, life);
  for (const ItemHandle item : VisibleWalk(controlWindow, life)) {
    if (tree::IsSelected(controlWindow, item)) continue;
    pause.BeforeChange();
    MarkAndReport(item, true);
  }
}

void QVLTreeView::ClearSelection() { DeselectAll(true); }

void QVLTreeView::InvertSelection() {
  SelectionBracket bracket(owner, client, life);
  if (!bracket) return;
  RedrawPause pause(controlWindow, redraw, life);
  for (const ItemHandle item : VisibleWalk(controlWindow, life)) {
    pause.BeforeChange();
    MarkAndReport(item, !tree::IsSelected(controlWindow, item));
  }
}

// The caret stays where it is, also on an item that loses its bit.
void QVLTreeView::DeselectAll(bool withBrackets) {
  if (withBrackets) {
    SelectionBracket bracket(owner, client, life);
    if (bracket) DeselectAll(false);
    return;
  }
  RedrawPause pause(controlWindow, redraw, life);
  for (const ItemHandle item : VisibleWalk(controlWindow, life)) {
    if (!tree::IsSelected(controlWindow, item)) continue;
    pause.BeforeChange();
    MarkAndReport(item, false);
  }
}

// Makes the selection among the visible items the stretch between the two ends, whichever comes
// first. With one end not among them it runs from the other to the last item.
void QVLTreeView::SelectRange(ItemHandle anchor, const HeldItem& targetItem) {
  const ItemHandle target = targetItem.Get();
  RedrawPause pause(controlWindow, redraw, life);
  VisibleWalk walk(controlWindow, life);
  auto item = walk.begin();
  for (; item != walk.end() && *item != anchor && *item != target; ++item) {
    pause.BeforeChange();
    MarkAndReport(*item, false);
  }
  if (item == walk.end()) return;
  const ItemHandle farEnd = *item == target ? anchor : target;
  // Between the two loops, because it takes the bit off the old caret, which may lie in the
  // stretch.
  tree::MoveCaret(controlWindow, targetItem.Get());
  bool selecting = true;
  for (; item != walk.end(); ++item) {
    const bool atFarEnd = *item == farEnd;
    pause.BeforeChange();
    MarkAndReport(*item, selecting);
    if (atFarEnd) selecting = false;
  }
}

// The item becomes the caret and, in multiple selection, the only selected item.
void QVLTreeView::SelectAlone(const HeldItem& item) {
  SelectionBracket bracket(owner, client, life);
  if (bracket && multiSelect) DeselectAll(false);
  if (bracket && item.Get()) tree::MoveCaret(controlWindow, item.Get());
}

ItemHandle QVLTreeView::HitTest(const POINT* screenPoint, bool select, std::uint32_t* hitFlags) {
  if (hitFlags) *hitFlags = 0;
  if (!controlWindow) return -1;
  TVHITTESTINFO hit{};
  hit.pt = *screenPoint;
  ScreenToClient(controlWindow, &hit.pt);
  HeldItem item(life, tree::HitTest(controlWindow, hit));
  if (!item.Get()) return -1;
  if (hitFlags) *hitFlags = TranslateHitFlags(hit.flags, kHitFlags);
  if (select && !tree::IsSelected(controlWindow, item.Get())) SelectAlone(item);
  return item.Get() ? item.Get() : -1;
}
