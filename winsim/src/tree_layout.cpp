// Where items stand: rows, scroll bars and hit testing.
#include <algorithm>
#include <utility>

#include "image_list.h"
#include "text_metrics.h"
#include "tree_control.h"

namespace winsim {

TreeItem* TreeControl::VisibleAfter(TreeItem* item) {
  if ((item->state & TVIS_EXPANDED) && item->firstChild) {
    return item->firstChild;
  }
  while (item && !item->next) {
    item = item->parent;
  }
  return item ? item->next : nullptr;
}

TreeItem* TreeControl::VisibleBefore(TreeItem* item) {
  if (!item->previous) {
    return item->parent == &root_ ? nullptr : item->parent;
  }
  item = item->previous;
  while ((item->state & TVIS_EXPANDED) && item->lastChild) {
    item = item->lastChild;
  }
  return item;
}

bool TreeControl::IsShown(const TreeItem* item) const {
  for (item = item->parent; item; item = item->parent) {
    if (!(item->state & TVIS_EXPANDED)) {
      return false;
    }
  }
  return true;
}

int TreeControl::BoxLeft(const TreeItem& item) const {
  const DWORD style = Style();
  const bool rootIndent = (style & TVS_LINESATROOT) && (style & (TVS_HASLINES | TVS_HASBUTTONS));
  return indent_ * (item.level + (rootIndent ? 1 : 0));
}

int TreeControl::BoxWidth(const TreeItem& item) const {
  int width = 0;
  int height = 0;
  if (stateImages_ && (item.state & TVIS_STATEIMAGEMASK)) {
    ImageList_GetIconSize(stateImages_, &width, &height);
  }
  return width;
}

int TreeControl::TextLeft(const TreeItem& item) const {
  int imageWidth = 0;
  int height = 0;
  ImageList_GetIconSize(images_, &imageWidth, &height);
  return BoxLeft(item) + BoxWidth(item) + imageWidth;
}

void TreeControl::WriteRows() {
  if (!rowsStale_) {
    return;
  }
  rowsStale_ = false;
  rows_.clear();
  widest_ = 0;
  for (TreeItem* item = root_.firstChild; item; item = VisibleAfter(item)) {
    item->row = static_cast<int>(rows_.size());
    rows_.push_back(item);
    const int right = TextLeft(*item) + TextWidth(item->text, (item->state & TVIS_BOLD) != 0);
    widest_ = std::max(widest_, right);
  }
  if (!Find(firstVisible_) && !rows_.empty()) {
    firstVisible_ = rows_.front()->handle;
  }
}

int TreeControl::PageRows() const {
  RECT client = {};
  const_cast<TreeControl*>(this)->SettleLayout();
  GetClientRect(window_, &client);
  return client.bottom / rowHeight_;
}

int TreeControl::FirstRow() {
  WriteRows();
  const TreeItem* first = Find(firstVisible_);
  return first && IsShown(first) ? first->row : 0;
}

int TreeControl::LastFirstRow() {
  WriteRows();
  return std::max(static_cast<int>(rows_.size()) - std::max(PageRows(), 1), 0);
}

void TreeControl::SettleLayout() {
  if (!barsStale_ || Gone()) {
    return;
  }
  barsStale_ = false;
  WriteRows();
  if (redraw_) {
    SettleBars();
  } else {
    barsStale_ = true;
  }
}

// Each bar takes room from the other, so both are decided together.
void TreeControl::SettleBars() {
  if (Style() & TVS_NOSCROLL) {
    return;
  }
  ChangeStyle(window_, WS_HSCROLL | WS_VSCROLL, 0);
  const bool busy = std::exchange(barsStale_, false);
  RECT whole = {};
  GetClientRect(window_, &whole);
  barsStale_ = busy;
  const int count = static_cast<int>(rows_.size());
  int width = whole.right;
  int height = whole.bottom;
  bool vertical = count > height / rowHeight_;
  width -= vertical ? kScrollBarSize : 0;
  const bool horizontal = !rows_.empty() && widest_ > width;
  height -= horizontal ? kScrollBarSize : 0;
  if (horizontal && !vertical && count > height / rowHeight_) {
    vertical = true;
    width -= kScrollBarSize;
  }
  const int page = std::max(height, 0) / rowHeight_;
  Window* window = FindWindow(window_);
  if (vertical || horizontal) {
    window->hasScrollBars = true;
  }
  if (vertical) {
    const int last = std::max(count - std::max(page, 1), 0);
    const int first = std::min(FirstRow(), last);
    firstVisible_ = rows_[static_cast<std::size_t>(first)]->handle;
    window->bars[SB_VERT] = {0, count - 1, static_cast<UINT>(page), first};
  } else if (!rows_.empty()) {
    firstVisible_ = rows_.front()->handle;
  }
  if (horizontal) {
    scrollX_ = std::min(scrollX_, widest_ - width);
    window->bars[SB_HORZ] = {0, widest_ - 1, static_cast<UINT>(width), scrollX_};
  } else {
    scrollX_ = 0;
  }
  ChangeStyle(window_, WS_HSCROLL | WS_VSCROLL,
              (vertical ? WS_VSCROLL : 0) | (horizontal ? WS_HSCROLL : 0));
}

void TreeControl::ScrollTo(int firstRow) {
  WriteRows();
  if (rows_.empty()) {
    return;
  }
  const int row = std::clamp(firstRow, 0, LastFirstRow());
  firstVisible_ = rows_[static_cast<std::size_t>(row)]->handle;
  barsStale_ = true;
  InvalidateRect(window_, nullptr, TRUE);
}

// True if the rows moved.
bool TreeControl::ScrollIntoView(HTREEITEM handle, bool sideways) {
  WriteRows();
  const TreeItem* item = Find(handle);
  if (!item || !IsShown(item)) {
    return false;
  }
  const int first = FirstRow();
  const int page = std::max(PageRows(), 1);
  const int row = item->row;
  if (sideways) {
    RECT client = {};
    GetClientRect(window_, &client);
    const int left = TextLeft(*item) - scrollX_;
    const int width = TextWidth(item->text, (item->state & TVIS_BOLD) != 0);
    if (left < 0 || width > client.right) {
      scrollX_ += left;
    } else if (left + width > client.right) {
      scrollX_ += left + width - client.right;
    }
    scrollX_ = std::clamp(scrollX_, 0, std::max(widest_ - static_cast<int>(client.right), 0));
    barsStale_ = true;
  }
  if (row < first) {
    ScrollTo(row);
  } else if (row >= first + page) {
    ScrollTo(row - page + 1);
  }
  return row < first || row >= first + page;
}

// An opened branch shows as much of itself as fits, its head included.
void TreeControl::ScrollBranchIntoView(HTREEITEM handle) {
  const TreeItem* item = Find(handle);
  if (!item || !IsShown(item)) {
    return;
  }
  WriteRows();
  const int first = FirstRow();
  const int page = std::max(PageRows(), 1);
  int children = 0;
  for (const TreeItem* child = item->firstChild; child; child = child->next) {
    ++children;
  }
  const int last = item->row + children;
  if (last >= first + page) {
    ScrollTo(std::min(item->row, last - page + 1));
  }
}

LRESULT TreeControl::HitTest(TVHITTESTINFO* info) {
  SettleLayout();
  WriteRows();
  RECT client = {};
  GetClientRect(window_, &client);
  info->hItem = nullptr;
  info->flags = 0;
  info->flags |= info->pt.x < 0 ? TVHT_TOLEFT : info->pt.x > client.right ? TVHT_TORIGHT : 0;
  info->flags |= info->pt.y < 0 ? TVHT_ABOVE : info->pt.y > client.bottom ? TVHT_BELOW : 0;
  if (info->flags) {
    return 0;
  }
  const int visibleRow = FirstRow() + static_cast<int>(info->pt.y) / rowHeight_;
  const auto row = static_cast<std::size_t>(visibleRow);
  if (row >= rows_.size()) {
    info->flags = TVHT_NOWHERE;
    return 0;
  }
  const TreeItem& item = *rows_[row];
  info->hItem = item.handle;
  const int x = info->pt.x + scrollX_;
  const int box = BoxLeft(item);
  const int image = box + BoxWidth(item);
  const int text = TextLeft(item);
  if (x < box) {
    const bool onButton = (Style() & TVS_HASBUTTONS) && x >= box - indent_;
    info->flags = onButton ? TVHT_ONITEMBUTTON : TVHT_ONITEMINDENT;
  } else if (x < image) {
    info->flags = TVHT_ONITEMSTATEICON;
  } else if (x < text) {
    info->flags = TVHT_ONITEMICON;
  } else {
    const int width = TextWidth(item.text, (item.state & TVIS_BOLD) != 0);
    info->flags = x < text + width ? TVHT_ONITEMLABEL : TVHT_ONITEMRIGHT;
  }
  return reinterpret_cast<LRESULT>(info->hItem);
}

LRESULT TreeControl::ItemRect(bool textOnly, RECT* rect) {
  HTREEITEM handle = nullptr;
  __builtin_memcpy(&handle, rect, sizeof handle);
  SettleLayout();
  WriteRows();
  const TreeItem* item = Find(handle);
  if (!item || !IsShown(item)) {
    return FALSE;
  }
  constexpr int kTextMargin = 4;
  RECT client = {};
  GetClientRect(window_, &client);
  const int top = (item->row - FirstRow()) * rowHeight_;
  *rect = {0, top, client.right, top + rowHeight_ - 1};
  if (textOnly) {
    rect->left = TextLeft(*item) - scrollX_;
    rect->right = rect->left + kTextMargin + TextWidth(item->text, (item->state & TVIS_BOLD) != 0);
  }
  return TRUE;
}

LRESULT TreeControl::EnsureVisible(HTREEITEM handle) {
  if (!Find(handle)) {
    return FALSE;
  }
  ShowBranchOf(handle);
  return !Gone() && ScrollIntoView(handle, true);
}

}  // namespace winsim
