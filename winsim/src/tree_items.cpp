// What the tree holds: insertion, deletion, reading, and the ways from item to item.
#include <algorithm>

#include "tree_control.h"

namespace winsim {
namespace {

// Handles are never given twice in a process, so a stale one finds nothing.
HTREEITEM NextHandle() {
  static ULONG_PTR last = 0x200000;
  last += 0x10;
  return reinterpret_cast<HTREEITEM>(last);
}

HTREEITEM HandleOf(const TreeItem* item) { return item ? item->handle : nullptr; }

LRESULT ToResult(HTREEITEM handle) { return reinterpret_cast<LRESULT>(handle); }

std::u16string TextOf(const TVITEMW& values) {
  return values.pszText && values.pszText != LPSTR_TEXTCALLBACKW ? values.pszText : u"";
}

}  // namespace

TreeItem* TreeControl::Find(HTREEITEM handle) {
  const auto found = items_.find(handle);
  return found == items_.end() ? nullptr : found->second.get();
}

TreeItem* TreeControl::FindOrRoot(HTREEITEM handle) {
  return !handle || handle == TVI_ROOT ? &root_ : Find(handle);
}

LRESULT TreeControl::Insert(const TVINSERTSTRUCTW& insert) {
  TreeItem* parent = FindOrRoot(insert.hParent);
  if (!parent) {
    return 0;
  }
  auto owned = std::make_unique<TreeItem>();
  TreeItem* item = owned.get();
  item->handle = NextHandle();
  Store(item, insert.item);
  if ((Style() & TVS_CHECKBOXES) && !(item->state & TVIS_STATEIMAGEMASK)) {
    item->state |= 0x1000;
  }
  Link(item, parent);
  items_.emplace(item->handle, std::move(owned));
  if (!firstVisible_) {
    firstVisible_ = item->handle;
  }
  rowsStale_ = barsStale_ = true;
  return ToResult(item->handle);
}

void TreeControl::Store(TreeItem* item, const TVITEMW& values) {
  if (values.mask & TVIF_TEXT) {
    item->text = TextOf(values);
  }
  if (values.mask & TVIF_IMAGE) {
    item->image = values.iImage;
  }
  if (values.mask & TVIF_SELECTEDIMAGE) {
    item->selectedImage = values.iSelectedImage;
  }
  if (values.mask & TVIF_PARAM) {
    item->param = values.lParam;
  }
  if (values.mask & TVIF_STATE) {
    item->state = (item->state & ~values.stateMask) | (values.state & values.stateMask);
  }
}

// Every item comes last below its parent.
void TreeControl::Link(TreeItem* item, TreeItem* parent) {
  item->parent = parent;
  item->level = parent->level + 1;
  item->previous = parent->lastChild;
  (item->previous ? item->previous->next : parent->firstChild) = item;
  parent->lastChild = item;
}

void TreeControl::Unlink(TreeItem* item) {
  (item->previous ? item->previous->next : item->parent->firstChild) = item->next;
  (item->next ? item->next->previous : item->parent->lastChild) = item->previous;
}

LRESULT TreeControl::SetItem(const TVITEMW& values) {
  TreeItem* item = Find(values.hItem);
  if (!item) {
    return FALSE;
  }
  const UINT before = item->state;
  Store(item, values);
  constexpr UINT kPlacing = TVIS_EXPANDED | TVIS_BOLD | TVIS_STATEIMAGEMASK;
  if ((values.mask & TVIF_TEXT) || ((before ^ item->state) & kPlacing)) {
    rowsStale_ = barsStale_ = true;
  }
  return TRUE;
}

LRESULT TreeControl::GetItem(TVITEMW* values) {
  const TreeItem* item = Find(values->hItem);
  if (!item) {
    return FALSE;
  }
  if ((values->mask & TVIF_TEXT) && values->pszText && values->cchTextMax > 0) {
    const auto room = static_cast<std::size_t>(values->cchTextMax - 1);
    values->pszText[item->text.copy(values->pszText, room)] = 0;
  }
  if (values->mask & TVIF_IMAGE) {
    values->iImage = item->image;
  }
  if (values->mask & TVIF_SELECTEDIMAGE) {
    values->iSelectedImage = item->selectedImage;
  }
  if (values->mask & TVIF_PARAM) {
    values->lParam = item->param;
  }
  if (values->mask & TVIF_STATE) {
    values->state = item->state & values->stateMask;
  }
  return TRUE;
}

bool TreeControl::IsInBranch(const TreeItem* item, const TreeItem* head) const {
  while (item && item != head) {
    item = item->parent;
  }
  return item != nullptr;
}

// The caret of a deleted branch goes to the next sibling of the branch, else up, else back.
LRESULT TreeControl::Delete(HTREEITEM handle) {
  if (!handle || handle == TVI_ROOT) {
    DeleteAll();
    return TRUE;
  }
  TreeItem* item = Find(handle);
  if (!item) {
    return FALSE;
  }
  const TreeItem* caret = Find(caret_);
  HTREEITEM successor = nullptr;
  const bool movesCaret = caret && IsInBranch(caret, item);
  if (movesCaret) {
    successor = HandleOf(item->next               ? item->next
                         : item->parent != &root_ ? item->parent
                                                  : item->previous);
  }
  DeleteBranch(handle);
  if (movesCaret && !Gone() && !caret_ && Find(successor)) {
    Select(successor, TVC_UNKNOWN);
  }
  return TRUE;
}

// Children go first, and each item is told of while it still exists.
void TreeControl::DeleteBranch(HTREEITEM handle) {
  for (TreeItem* item = Find(handle); item && item->firstChild; item = Find(handle)) {
    DeleteBranch(item->firstChild->handle);
  }
  NotifyItems(TVN_DELETEITEMW, 0, handle, TVIF_HANDLE | TVIF_PARAM, nullptr, 0);
  TreeItem* item = Find(handle);
  if (!item) {
    return;
  }
  if (caret_ == handle) {
    caret_ = nullptr;
  }
  if (edited_ == handle) {
    edited_ = nullptr;
  }
  if (firstVisible_ == handle) {
    TreeItem* other = VisibleAfter(item);
    firstVisible_ = HandleOf(other ? other : VisibleBefore(item));
  }
  Unlink(item);
  items_.erase(handle);
  rows_.clear();
  rowsStale_ = barsStale_ = true;
}

void TreeControl::DeleteAll() {
  while (root_.firstChild) {
    const HTREEITEM head = root_.firstChild->handle;
    DeleteBranch(head);
  }
  caret_ = nullptr;
  firstVisible_ = nullptr;
  scrollX_ = 0;
}

LRESULT TreeControl::NextItem(WPARAM relation, HTREEITEM handle) {
  switch (relation) {
    case TVGN_ROOT:
      return ToResult(HandleOf(root_.firstChild));
    case TVGN_CARET:
      return ToResult(caret_);
    case TVGN_FIRSTVISIBLE:
      WriteRows();
      return rows_.empty() ? 0 : ToResult(rows_[static_cast<std::size_t>(FirstRow())]->handle);
    default:
      break;
  }
  TreeItem* item = relation == TVGN_CHILD || handle == TVI_ROOT ? FindOrRoot(handle) : Find(handle);
  if (!item) {
    return 0;
  }
  const TreeItem* result = nullptr;
  switch (relation) {
    case TVGN_NEXT:
      result = item->next;
      break;
    case TVGN_PARENT:
      result = item->parent;
      break;
    case TVGN_CHILD:
      result = item->firstChild;
      break;
    case TVGN_NEXTVISIBLE:
      result = VisibleAfter(item);
      break;
    case TVGN_PREVIOUSVISIBLE:
      result = VisibleBefore(item);
      break;
    default:
      break;
  }
  return ToResult(HandleOf(result));
}

}  // namespace winsim
