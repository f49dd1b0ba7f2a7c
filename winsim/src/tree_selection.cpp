// Caret and expansion, and what the parent hears of them.
#include "tree_control.h"

namespace winsim {
namespace {

constexpr UINT kSelectionMask = TVIF_TEXT | TVIF_PARAM | TVIF_STATE | TVIF_HANDLE;
constexpr UINT kExpansionMask =
    TVIF_IMAGE | TVIF_PARAM | TVIF_STATE | TVIF_HANDLE | TVIF_SELECTEDIMAGE;

}  // namespace

// True if the parent answered with anything but 0.
bool TreeControl::NotifyItems(UINT code, UINT action, HTREEITEM before, UINT beforeMask,
                              HTREEITEM now, UINT nowMask) {
  NMTREEVIEWW record = {};
  record.action = action;
  std::u16string texts[2];
  const auto describe = [this](HTREEITEM handle, UINT mask, TVITEMW* values, std::u16string* text) {
    if (const TreeItem* item = Find(handle)) {
      *text = item->text;
      values->mask = mask;
      values->hItem = handle;
      values->state = item->state;
      values->stateMask = 0xFFFFFFFF;
      values->pszText = (mask & TVIF_TEXT) ? text->data() : nullptr;
      values->iImage = item->image;
      values->iSelectedImage = item->selectedImage;
      values->lParam = item->param;
    }
  };
  describe(before, beforeMask, &record.itemOld, &texts[0]);
  describe(now, nowMask, &record.itemNew, &texts[1]);
  return Notify(window_, code, &record.hdr) != 0;
}

bool TreeControl::SelectMessage(WPARAM relation, HTREEITEM handle) {
  if (relation == TVGN_CARET) {
    return Select(handle, TVC_UNKNOWN);
  }
  WriteRows();
  const TreeItem* item = relation == TVGN_FIRSTVISIBLE ? Find(handle) : nullptr;
  if (!item || !IsShown(item)) {
    return false;
  }
  ScrollTo(item->row);
  return true;
}

bool TreeControl::Select(HTREEITEM handle, UINT action) {
  if (handle && !Find(handle)) {
    return false;
  }
  const HTREEITEM before = caret_;
  if (handle == before) {
    return true;
  }
  const bool refused =
      NotifyItems(TVN_SELCHANGINGW, action, before, kSelectionMask, handle, kSelectionMask);
  if (refused || Gone() || (handle && !Find(handle))) {
    return false;
  }
  if (TreeItem* former = Find(caret_)) {
    former->state &= ~static_cast<UINT>(TVIS_SELECTED);
  }
  caret_ = handle;
  if (TreeItem* item = Find(handle)) {
    item->state |= TVIS_SELECTED;
    ShowBranchOf(handle);
    ScrollIntoView(handle, false);
  }
  if (!Gone()) {
    NotifyItems(TVN_SELCHANGEDW, action, before, kSelectionMask, handle, kSelectionMask);
  }
  return true;
}

// Expands what hides the item, the nearest first, as the user would. What hears of it can collapse
// what is further up, so each is looked at when its turn comes.
void TreeControl::ShowBranchOf(HTREEITEM handle) {
  const TreeItem* item = Find(handle);
  while (item && item->parent != &root_) {
    const HTREEITEM above = item->parent->handle;
    if (!(item->parent->state & TVIS_EXPANDED)) {
      Expand(above, true);
    }
    item = Find(above);
  }
}

bool TreeControl::ExpandMessage(WPARAM action, HTREEITEM handle) {
  const TreeItem* item = Find(handle);
  if (!item) {
    return false;
  }
  switch (action & (TVE_COLLAPSE | TVE_EXPAND)) {
    case TVE_EXPAND:
      return Expand(handle, false);
    case TVE_COLLAPSE:
      return Collapse(handle, false);
    default:
      return false;
  }
}

// By message the parent hears of an item's first expansion alone, by the user's hand of each. The
// first one lasts until it has been told: another in the middle of it is told as well.
bool TreeControl::Expand(HTREEITEM handle, bool byUser) {
  TreeItem* item = Find(handle);
  if (!item || !item->firstChild) {
    return false;
  }
  // A user's expansion is told again even if there is nothing left to expand.
  const UINT before = item->state & (TVIS_EXPANDED | TVIS_EXPANDEDONCE);
  if (before == (TVIS_EXPANDED | TVIS_EXPANDEDONCE) && !byUser) {
    return true;
  }
  const bool tells = byUser || !(item->state & TVIS_EXPANDEDONCE);
  if (tells && NotifyItems(TVN_ITEMEXPANDINGW, TVE_EXPAND, nullptr, 0, handle, kExpansionMask)) {
    return false;
  }
  item = Find(handle);
  if (!item) {
    return false;
  }
  item->state |= TVIS_EXPANDED;
  rowsStale_ = barsStale_ = true;
  ScrollBranchIntoView(handle);
  if (tells) {
    NotifyItems(TVN_ITEMEXPANDEDW, TVE_EXPAND, nullptr, 0, handle, kExpansionMask);
    item = Find(handle);
  }
  if (item) {
    item->state |= TVIS_EXPANDEDONCE;
  }
  return true;
}

// By message nobody is told. A caret inside the branch goes to its head without a word too.
bool TreeControl::Collapse(HTREEITEM handle, bool byUser) {
  TreeItem* item = Find(handle);
  if (!item || !item->firstChild || !(item->state & TVIS_EXPANDED)) {
    return false;
  }
  if (byUser && NotifyItems(TVN_ITEMEXPANDINGW, TVE_COLLAPSE, nullptr, 0, handle, kExpansionMask)) {
    return false;
  }
  item = Find(handle);
  if (!item) {
    return false;
  }
  item->state &= ~static_cast<UINT>(TVIS_EXPANDED);
  rowsStale_ = barsStale_ = true;
  if (byUser) {
    NotifyItems(TVN_ITEMEXPANDEDW, TVE_COLLAPSE, nullptr, 0, handle, kExpansionMask);
    item = Find(handle);
  }
  if (!item) {
    return true;
  }
  TreeItem* caret = Find(caret_);
  if (caret && caret != item && IsInBranch(caret, item)) {
    caret->state &= ~static_cast<UINT>(TVIS_SELECTED);
    item->state |= TVIS_SELECTED;
    caret_ = handle;
  }
  const TreeItem* first = Find(firstVisible_);
  if (first && first != item && IsInBranch(first, item)) {
    firstVisible_ = handle;
  }
  return true;
}

void TreeControl::ToggleExpansion(HTREEITEM handle) {
  const TreeItem* item = Find(handle);
  if (item && (item->state & TVIS_EXPANDED)) {
    Collapse(handle, true);
  } else if (item) {
    Expand(handle, true);
  }
}

}  // namespace winsim
