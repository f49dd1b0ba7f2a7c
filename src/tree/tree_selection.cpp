// The selection of a tree: the visible items with the control's selected bit. There is no list of
// them; every query walks the control.
#include "common/hit_flags.h"
#include "common/selection_bracket.h"
#include "platform/tree_control.h"
#include "tree/tree_view.h"
#include "tree/visible_walk.h"

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

void QVLTreeView::MarkAndReport(ItemHandle item, bool selected) {
  LifeWatch alive(life);
  TreeControl::MarkSelected(controlWindow, item, selected);
  if (alive) Report(item);
}

int QVLTreeView::GetSelectedCount() {
  if (!controlWindow) return 0;
  return CountItems(TreeControl::VisibleItems(controlWindow),
                    TreeControl::SelectedIn(controlWindow));
}

void QVLTreeView::InvalidateSelection() {
  RECT area{};
  GetClientRect(controlWindow, &area);
  RECT row{};
  ItemHandle item = TreeControl::TopItem(controlWindow);
  while (item && TreeControl::GetRow(controlWindow, item, row) && row.top < area.bottom) {
    if (TreeControl::IsSelected(controlWindow, item)) InvalidateRect(controlWindow, &row, TRUE);
    item = TreeControl::NextVisible(controlWindow, item);
  }
}

// During a right press the runtime's control paints only the pressed item as selected, and after it
// only the caret, until the drop highlight changes.
void QVLTreeView::ShowWholeSelection() {
  if (!multiSelect) return;
  TreeControl::ClearDropHighlight(controlWindow);
  InvalidateSelection();
}

void QVLTreeView::SetItemSelected(ItemHandle handle, bool selected) {
  if (!controlWindow || handle == -1) return;
  HeldItem item(life, handle);
  SelectionBracket bracket(*this);
  if (bracket && item.Get() == handle) MarkAndReport(handle, selected);
}

void QVLTreeView::SelectAll() { ChangeInBracket(Inverted::kUnselected); }

void QVLTreeView::ClearSelection() { ChangeInBracket(Inverted::kSelected); }

void QVLTreeView::InvertSelection() { ChangeInBracket(Inverted::kAll); }

void QVLTreeView::ChangeInBracket(Inverted inverted) {
  SelectionBracket bracket(*this);
  if (bracket) ChangeItems(inverted);
}

// The caret stays, also on an item that is deselected.
void QVLTreeView::ChangeItems(Inverted inverted) {
  ChangeSelection(inverted,
                  [this](ItemHandle item, bool selected) { MarkAndReport(item, selected); });
}

void QVLTreeView::DeselectAll() { ChangeItems(Inverted::kSelected); }

// Selects exactly the visible items between the two ends, whichever comes first. If one end is not
// visible, selects from the other to the last item.
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
  // Between the two loops, because it clears the bit of the old caret, which may be in the range.
  TreeControl::MoveCaret(controlWindow, targetItem.Get());
  bool selecting = true;
  for (; item != walk.end(); ++item) {
    const bool atFarEnd = *item == farEnd;
    pause.BeforeChange();
    MarkAndReport(*item, selecting);
    if (atFarEnd) selecting = false;
  }
}

// Makes the item the caret and, in multiple selection, the only selected item. Moving the caret to
// its own item does nothing, so a deselected caret is marked.
void QVLTreeView::SelectAlone(const HeldItem& item) {
  SelectionBracket bracket(*this);
  if (bracket && multiSelect) DeselectAll();
  if (!item.Get()) return;
  if (item.Get() == TreeControl::Caret(controlWindow)) {
    MarkAndReport(item.Get(), true);
  } else {
    TreeControl::MoveCaret(controlWindow, item.Get());
  }
}

ItemHandle QVLTreeView::HitTest(const POINT* screenPoint, bool select, std::uint32_t* hitFlags) {
  if (hitFlags) *hitFlags = 0;
  if (!controlWindow) return -1;
  TVHITTESTINFO hit{};
  hit.pt = *screenPoint;
  ScreenToClient(controlWindow, &hit.pt);
  HeldItem item(life, TreeControl::HitTest(controlWindow, hit));
  if (!item.Get()) return -1;
  if (select && !TreeControl::IsSelected(controlWindow, item.Get())) SelectAlone(item);
  if (!item.Get()) return -1;
  if (hitFlags) *hitFlags = TranslateHitFlags(hit.flags, kHitFlags);
  return item.Get();
}
