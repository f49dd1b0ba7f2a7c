// Insertion, reading, changing and deletion of items, and the relations between them.
#include <utility>

#include "controls/tree_control.h"

namespace winsim {
namespace {

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

void Store(TreeItem* item, const TVITEMW& values) {
  if (values.mask & TVIF_TEXT) item->text = TextOf(values);
  if (values.mask & TVIF_IMAGE) item->image = values.iImage;
  if (values.mask & TVIF_SELECTEDIMAGE) item->selectedImage = values.iSelectedImage;
  if (values.mask & TVIF_PARAM) item->param = values.lParam;
  if (values.mask & TVIF_STATE) {
    item->state = (item->state & ~values.stateMask) | (values.state & values.stateMask);
  }
}

// Adds the item behind the other children of the parent.
void Link(TreeItem* item, TreeItem* parent) {
  item->parent = parent;
  item->level = parent->level + 1;
  item->previous = parent->lastChild;
  (item->previous ? item->previous->next : parent->firstChild) = item;
  parent->lastChild = item;
}

void Unlink(TreeItem* item) {
  (item->previous ? item->previous->next : item->parent->firstChild) = item->next;
  (item->next ? item->next->previous : item->parent->lastChild) = item->previous;
}

}  // namespace

bool IsInBranch(const TreeItem* item, const TreeItem* head) {
  while (item && item != head) item = item->parent;
  return item != nullptr;
}

bool IsShown(const TreeItem& item) {
  for (const TreeItem* above = item.parent; above; above = above->parent) {
    if (!(above->state & TVIS_EXPANDED)) return false;
  }
  return true;
}

TreeItem* TreeControl::Find(HTREEITEM handle) {
  const auto found = items.find(handle);
  return found == items.end() ? nullptr : found->second.get();
}

TreeItem* TreeControl::FindOrRoot(HTREEITEM handle) {
  return !handle || handle == TVI_ROOT ? &root : Find(handle);
}

LRESULT TreeControl::Insert(const TVINSERTSTRUCTW& insert) {
  TreeItem* parent = FindOrRoot(insert.hParent);
  if (!parent) return 0;
  auto owned = std::make_unique<TreeItem>();
  TreeItem* item = owned.get();
  item->handle = NextHandle();
  Store(item, insert.item);
  if ((Style() & TVS_CHECKBOXES) && !(item->state & TVIS_STATEIMAGEMASK)) {
    item->state |= INDEXTOSTATEIMAGEMASK(1);
  }
  Link(item, parent);
  items.emplace(item->handle, std::move(owned));
  if (!firstVisible) firstVisible = item->handle;
  LayoutChanged();
  return ToResult(item->handle);
}

LRESULT TreeControl::SetItem(const TVITEMW& values) {
  TreeItem* item = Find(values.hItem);
  if (!item) return FALSE;
  const UINT before = item->state;
  Store(item, values);
  constexpr UINT kPlacing = TVIS_EXPANDED | TVIS_BOLD | TVIS_STATEIMAGEMASK;
  if ((values.mask & TVIF_TEXT) || ((before ^ item->state) & kPlacing)) LayoutChanged();
  return TRUE;
}

LRESULT TreeControl::GetItem(TVITEMW* values) {
  const TreeItem* item = Find(values->hItem);
  if (!item) return FALSE;
  if ((values->mask & TVIF_TEXT) && values->pszText && values->cchTextMax > 0) {
    const auto room = static_cast<std::size_t>(values->cchTextMax - 1);
    values->pszText[item->text.copy(values->pszText, room)] = 0;
  }
  if (values->mask & TVIF_IMAGE) values->iImage = item->image;
  if (values->mask & TVIF_SELECTEDIMAGE) values->iSelectedImage = item->selectedImage;
  if (values->mask & TVIF_PARAM) values->lParam = item->param;
  if (values->mask & TVIF_STATE) values->state = item->state & values->stateMask;
  return TRUE;
}

LRESULT TreeControl::ItemState(HTREEITEM handle, UINT mask) {
  const TreeItem* item = Find(handle);
  return item ? item->state & mask : 0;
}

// The caret of a deleted branch moves to the next sibling of the branch, else to the parent, else
// to the previous sibling.
LRESULT TreeControl::Delete(HTREEITEM handle) {
  if (!handle || handle == TVI_ROOT) {
    DeleteAll();
    return TRUE;
  }
  const TreeItem* item = Find(handle);
  if (!item) return FALSE;
  const TreeItem* current = Find(caret);
  const bool movesCaret = current && IsInBranch(current, item);
  const HTREEITEM successor = HandleOf(item->next              ? item->next
                                       : item->parent != &root ? item->parent
                                                               : item->previous);
  DeleteBranch(handle);
  if (movesCaret && !caret && Find(successor)) Select(successor);
  return TRUE;
}

// Children are deleted first. The notification of an item comes before its deletion.
void TreeControl::DeleteBranch(HTREEITEM handle) {
  for (TreeItem* item = Find(handle); item && item->firstChild; item = Find(handle)) {
    DeleteBranch(item->firstChild->handle);
  }
  NotifyItem(TVN_DELETEITEMW, handle);
  TreeItem* item = Find(handle);
  if (!item) return;
  if (caret == handle) caret = nullptr;
  if (editedItem == handle) editedItem = nullptr;
  if (firstVisible == handle) {
    TreeItem* other = VisibleAfter(item);
    firstVisible = HandleOf(other ? other : VisibleBefore(item));
  }
  Unlink(item);
  items.erase(handle);
  rows.clear();
  LayoutChanged();
}

void TreeControl::DeleteAll() {
  while (root.firstChild) DeleteBranch(root.firstChild->handle);
  caret = nullptr;
  firstVisible = nullptr;
  scrollX = 0;
}

LRESULT TreeControl::NextItem(WPARAM relation, HTREEITEM handle) {
  if (relation == TVGN_ROOT) return ToResult(HandleOf(root.firstChild));
  if (relation == TVGN_CARET) return ToResult(caret);
  if (relation == TVGN_FIRSTVISIBLE) {
    CountRows();
    return rows.empty() ? 0 : ToResult(rows[static_cast<std::size_t>(FirstRow())]->handle);
  }
  const bool ofRoot = relation == TVGN_CHILD || handle == TVI_ROOT;
  TreeItem* item = ofRoot ? FindOrRoot(handle) : Find(handle);
  return item ? ToResult(HandleOf(RelativeOf(item, relation))) : 0;
}

const TreeItem* TreeControl::RelativeOf(TreeItem* item, WPARAM relation) const {
  switch (relation) {
    case TVGN_NEXT:
      return item->next;
    case TVGN_PARENT:
      return item->parent;
    case TVGN_CHILD:
      return item->firstChild;
    case TVGN_NEXTVISIBLE:
      return VisibleAfter(item);
    case TVGN_PREVIOUSVISIBLE:
      return VisibleBefore(item);
    default:
      return nullptr;
  }
}

TreeItem* TreeControl::VisibleAfter(TreeItem* item) const {
  if ((item->state & TVIS_EXPANDED) && item->firstChild) return item->firstChild;
  while (item && !item->next) item = item->parent;
  return item ? item->next : nullptr;
}

TreeItem* TreeControl::VisibleBefore(TreeItem* item) const {
  if (!item->previous) return item->parent == &root ? nullptr : item->parent;
  item = item->previous;
  while ((item->state & TVIS_EXPANDED) && item->lastChild) item = item->lastChild;
  return item;
}

}  // namespace winsim
