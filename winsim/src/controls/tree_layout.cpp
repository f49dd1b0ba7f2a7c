// The place of items: rows, scroll bars and hit testing.
#include <algorithm>
#include <cstring>

#include "controls/text_metrics.h"
#include "controls/tree_control.h"
#include "graphics/image_list.h"
#include "window/window.h"

namespace winsim {
namespace {

constexpr int kTextMargin = 4;

int LabelWidth(const TreeItem& item) { return TextWidth(item.text, (item.state & TVIS_BOLD) != 0); }

}  // namespace

int TreeControl::BoxLeft(const TreeItem& item) const {
  const DWORD style = Style();
  const bool rootIndent = (style & TVS_LINESATROOT) && (style & (TVS_HASLINES | TVS_HASBUTTONS));
  return indent * (item.level + (rootIndent ? 1 : 0));
}

int TreeControl::BoxWidth(const TreeItem& item) const {
  const bool hasBox = (item.state & TVIS_STATEIMAGEMASK) != 0;
  return hasBox ? static_cast<int>(ImageSize(stateImages).cx) : 0;
}

int TreeControl::TextLeft(const TreeItem& item) const {
  return BoxLeft(item) + BoxWidth(item) + static_cast<int>(ImageSize(images).cx);
}

void TreeControl::CountRows() {
  if (!rowsStale) return;
  rowsStale = false;
  rows.clear();
  widest = 0;
  for (TreeItem* item = root.firstChild; item; item = VisibleAfter(item)) {
    item->row = static_cast<int>(rows.size());
    rows.push_back(item);
    widest = std::max(widest, TextLeft(*item) + LabelWidth(*item));
  }
  if (!Find(firstVisible) && !rows.empty()) firstVisible = rows.front()->handle;
}

int TreeControl::PageRows() {
  RECT client = {};
  SettleLayout();
  GetClientRect(window, &client);
  return client.bottom / rowHeight;
}

int TreeControl::FirstRow() {
  CountRows();
  const TreeItem* first = Find(firstVisible);
  return first && IsShown(*first) ? first->row : 0;
}

// The bars do not change while redraw is off.
void TreeControl::SettleLayout() {
  if (!barsStale || Gone()) return;
  CountRows();
  if (!redraw) return;
  barsStale = false;
  SettleBars();
}

// Each bar takes space from the other, so both are settled together.
void TreeControl::SettleBars() {
  if (Style() & TVS_NOSCROLL) return;
  ChangeStyle(window, WS_HSCROLL | WS_VSCROLL, 0);
  RECT whole = {};
  GetClientRect(window, &whole);
  const int count = static_cast<int>(rows.size());
  int width = whole.right;
  int height = whole.bottom;
  bool vertical = count > height / rowHeight;
  width -= vertical ? kScrollBarSize : 0;
  const bool horizontal = !rows.empty() && widest > width;
  height -= horizontal ? kScrollBarSize : 0;
  if (horizontal && !vertical && count > height / rowHeight) {
    vertical = true;
    width -= kScrollBarSize;
  }
  StoreBars(vertical, std::max(height, 0) / rowHeight, horizontal, width);
  ChangeStyle(window, WS_HSCROLL | WS_VSCROLL,
              (vertical ? WS_VSCROLL : 0) | (horizontal ? WS_HSCROLL : 0));
}

void TreeControl::StoreBars(bool vertical, int page, bool horizontal, int width) {
  const int count = static_cast<int>(rows.size());
  const int last = vertical ? std::max(count - std::max(page, 1), 0) : 0;
  const int first = std::min(FirstRow(), last);
  if (count > 0) firstVisible = rows[static_cast<std::size_t>(first)]->handle;
  scrollX = horizontal ? std::min(scrollX, widest - width) : 0;
  Window* own = FindWindow(window);
  own->hasScrollBars = own->hasScrollBars || vertical || horizontal;
  if (vertical) own->bars[SB_VERT] = {count - 1, static_cast<UINT>(page), first};
  if (horizontal) own->bars[SB_HORZ] = {widest - 1, static_cast<UINT>(width), scrollX};
}

void TreeControl::ScrollTo(int firstRow) {
  CountRows();
  if (rows.empty()) return;
  const int last = std::max(static_cast<int>(rows.size()) - std::max(PageRows(), 1), 0);
  firstVisible = rows[static_cast<std::size_t>(std::clamp(firstRow, 0, last))]->handle;
  barsStale = true;
  InvalidateRect(window, nullptr, TRUE);
}

// True if the rows moved.
bool TreeControl::ScrollIntoView(HTREEITEM handle) {
  CountRows();
  const TreeItem* item = Find(handle);
  if (!item || !IsShown(*item)) return false;
  const int first = FirstRow();
  const int page = std::max(PageRows(), 1);
  const int row = item->row;
  if (row < first) {
    ScrollTo(row);
  } else if (row >= first + page) {
    ScrollTo(row - page + 1);
  }
  return row < first || row >= first + page;
}

void TreeControl::ScrollSideways(HTREEITEM handle) {
  SettleLayout();
  CountRows();
  const TreeItem* item = Find(handle);
  if (!item || !IsShown(*item)) return;
  RECT client = {};
  GetClientRect(window, &client);
  const int left = TextLeft(*item) - scrollX;
  const int width = LabelWidth(*item);
  if (left < 0 || width > client.right) {
    scrollX += left;
  } else if (left + width > client.right) {
    scrollX += left + width - client.right;
  }
  scrollX = std::clamp(scrollX, 0, std::max(widest - static_cast<int>(client.right), 0));
  barsStale = true;
}

// Shows as many children of an expanded item as fit, and the item itself.
void TreeControl::ScrollBranchIntoView(HTREEITEM handle) {
  const TreeItem* item = Find(handle);
  if (!item || !IsShown(*item)) return;
  CountRows();
  const int first = FirstRow();
  const int page = std::max(PageRows(), 1);
  int children = 0;
  for (const TreeItem* child = item->firstChild; child; child = child->next) ++children;
  const int last = item->row + children;
  if (last >= first + page) ScrollTo(std::min(item->row, last - page + 1));
}

LRESULT TreeControl::HitTest(TVHITTESTINFO* info) {
  SettleLayout();
  CountRows();
  RECT client = {};
  GetClientRect(window, &client);
  const POINT point = info->pt;
  info->hItem = nullptr;
  info->flags = point.x < 0 ? TVHT_TOLEFT : point.x > client.right ? TVHT_TORIGHT : 0;
  info->flags |= point.y < 0 ? TVHT_ABOVE : point.y > client.bottom ? TVHT_BELOW : 0;
  if (info->flags) return 0;
  const int row = FirstRow() + static_cast<int>(point.y) / rowHeight;
  if (row >= static_cast<int>(rows.size())) {
    info->flags = TVHT_NOWHERE;
    return 0;
  }
  const TreeItem& item = *rows[static_cast<std::size_t>(row)];
  info->hItem = item.handle;
  info->flags = HitPart(item, static_cast<int>(point.x) + scrollX);
  return reinterpret_cast<LRESULT>(info->hItem);
}

UINT TreeControl::HitPart(const TreeItem& item, int x) const {
  const int box = BoxLeft(item);
  const int text = TextLeft(item);
  if (x < box) {
    const bool onButton = (Style() & TVS_HASBUTTONS) && x >= box - indent;
    return onButton ? TVHT_ONITEMBUTTON : TVHT_ONITEMINDENT;
  }
  if (x < box + BoxWidth(item)) return TVHT_ONITEMSTATEICON;
  if (x < text) return TVHT_ONITEMICON;
  return x < text + LabelWidth(item) ? TVHT_ONITEMLABEL : TVHT_ONITEMRIGHT;
}

// The rectangle holds the handle of the item before the call.
LRESULT TreeControl::ItemRect(bool textOnly, RECT* rect) {
  HTREEITEM handle = nullptr;
  std::memcpy(&handle, rect, sizeof handle);
  SettleLayout();
  CountRows();
  const TreeItem* item = Find(handle);
  if (!item || !IsShown(*item)) return FALSE;
  RECT client = {};
  GetClientRect(window, &client);
  const int top = (item->row - FirstRow()) * rowHeight;
  *rect = {0, top, client.right, top + rowHeight - 1};
  if (textOnly) {
    rect->left = TextLeft(*item) - scrollX;
    rect->right = rect->left + kTextMargin + LabelWidth(*item);
  }
  return TRUE;
}

LRESULT TreeControl::EnsureVisible(HTREEITEM handle) {
  if (!Find(handle)) return FALSE;
  ShowBranchOf(handle);
  ScrollSideways(handle);
  return ScrollIntoView(handle);
}

}  // namespace winsim
