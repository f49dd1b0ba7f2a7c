// The place of rows: columns, scroll bars and hit testing.
#include <algorithm>
#include <numeric>

#include "controls/list_control.h"
#include "graphics/image_list.h"
#include "window/window.h"

namespace winsim {
namespace {

constexpr int kTextHeight = 14;
constexpr int kMargin = 2;
constexpr int kDefaultIndent = 16;
constexpr int kDefaultColumnWidth = 10;
constexpr long long kFarAway = 1 << 24;  // in pixels: beyond every screen
constexpr UINT kWholeRow = LVHT_ONITEMICON | LVHT_ONITEMLABEL | LVHT_ONITEMSTATEICON;

}  // namespace

int ListControl::RowHeight() const {
  const auto icon = ImageSize(smallImages).cy;
  const auto box = ImageSize(stateImages).cy;
  return std::max(kTextHeight, static_cast<int>(std::max(icon, box)) + 1);
}

int ListControl::HeaderSpace() const { return (Style() & LVS_NOCOLUMNHEADER) ? 0 : kHeaderHeight; }

int ListControl::BoxLeft(const ListRow& row) const {
  const long long step = smallImages ? ImageSize(smallImages).cx : kDefaultIndent;
  return static_cast<int>(std::clamp(kMargin + step * row.indent, -kFarAway, kFarAway));
}

int ListControl::TotalWidth() const {
  const long long total = std::accumulate(columns.begin(), columns.end(), 0LL);
  return static_cast<int>(std::clamp(total, 0LL, kFarAway));
}

int ListControl::PageRows() const {
  RECT client = {};
  GetClientRect(window, &client);
  return std::max(static_cast<int>(client.bottom) - HeaderSpace(), 0) / RowHeight();
}

// Each bar takes space from the other, so both are settled together.
void ListControl::SettleLayout() {
  if (!barsStale || Gone()) return;
  barsStale = false;
  ChangeStyle(window, WS_HSCROLL | WS_VSCROLL, 0);
  RECT whole = {};
  GetClientRect(window, &whole);
  int width = whole.right;
  int height = whole.bottom - HeaderSpace();
  const int total = TotalWidth();
  bool vertical = Count() > std::max(height, 0) / RowHeight();
  width -= vertical ? kScrollBarSize : 0;
  const bool horizontal = total > width;
  height -= horizontal ? kScrollBarSize : 0;
  if (!vertical && Count() > std::max(height, 0) / RowHeight()) {
    vertical = true;
    width -= kScrollBarSize;
  }
  const int page = std::max(height, 0) / RowHeight();
  top = std::clamp(top, 0, std::max(Count() - std::max(page, 1), 0));
  scrollX = std::clamp(scrollX, 0, std::max(total - width, 0));
  const int lastRow = std::max(Count() - 1, 0);
  const int lastPixel = std::max(total - 1, 0);
  Window* own = FindWindow(window);
  own->hasScrollBars = true;
  own->bars[SB_VERT] = {lastRow, static_cast<UINT>(std::min(page, lastRow + 1)), top};
  own->bars[SB_HORZ] = {lastPixel, static_cast<UINT>(std::clamp(width, 0, lastPixel + 1)), scrollX};
  ChangeStyle(window, WS_HSCROLL | WS_VSCROLL,
              (vertical ? WS_VSCROLL : 0) | (horizontal ? WS_HSCROLL : 0));
}

void ListControl::ScrollTo(int row) {
  SettleLayout();
  top = std::clamp(row, 0, std::max(Count() - std::max(PageRows(), 1), 0));
  barsStale = true;
}

// Rows move by whole rows, to the nearest one.
bool ListControl::ScrollBy(int x, int y) {
  SettleLayout();
  const int height = RowHeight();
  const int half = y < 0 ? -height / 2 : height / 2;
  const auto moved = (static_cast<long long>(y) + half) / height;
  const auto pixel = std::clamp<long long>(static_cast<long long>(scrollX) + x, 0, TotalWidth());
  scrollX = static_cast<int>(pixel);
  ScrollTo(static_cast<int>(std::clamp<long long>(top + moved, 0, Count())));
  return true;
}

bool ListControl::EnsureVisible(int row) {
  if (!IsRow(row)) return false;
  SettleLayout();
  const int page = std::max(PageRows(), 1);
  if (row < top) {
    ScrollTo(row);
  } else if (row >= top + page) {
    ScrollTo(row - page + 1);
  }
  return true;
}

int ListControl::HitTest(LVHITTESTINFO* info) {
  SettleLayout();
  RECT client = {};
  GetClientRect(window, &client);
  const POINT point = info->pt;
  info->iItem = -1;
  info->flags = point.x < 0 ? LVHT_TOLEFT : point.x > client.right ? LVHT_TORIGHT : 0;
  info->flags |= point.y < HeaderSpace() ? LVHT_ABOVE : point.y > client.bottom ? LVHT_BELOW : 0;
  if (info->flags) return -1;
  const int row = top + (static_cast<int>(point.y) - HeaderSpace()) / RowHeight();
  const int x = static_cast<int>(point.x) + scrollX;
  info->flags = IsRow(row) && x < TotalWidth() ? HitPart(Row(row), x) : LVHT_NOWHERE;
  if (info->flags != LVHT_NOWHERE) info->iItem = row;
  return info->iItem;
}

// With full row selection the space beside the parts gives the flags of all parts together.
UINT ListControl::HitPart(const ListRow& row, int x) const {
  const int box = BoxLeft(row);
  const int icon = box + static_cast<int>(ImageSize(stateImages).cx);
  const int text = icon + static_cast<int>(ImageSize(smallImages).cx);
  if (x < box || x >= columns.front()) {
    return (extendedStyle & LVS_EX_FULLROWSELECT) ? kWholeRow : LVHT_NOWHERE;
  }
  return x < icon ? LVHT_ONITEMSTATEICON : x < text ? LVHT_ONITEMICON : LVHT_ONITEMLABEL;
}

bool ListControl::ItemRect(int row, RECT* rect) {
  if (!IsRow(row)) return false;
  SettleLayout();
  const int height = RowHeight();
  const int y = HeaderSpace() + (row - top) * height;
  if (rect->left == LVIR_LABEL) {
    const int images = static_cast<int>(ImageSize(stateImages).cx + ImageSize(smallImages).cx);
    *rect = {BoxLeft(Row(row)) + images - scrollX, y, ColumnWidth(0) - scrollX, y + height};
  } else {
    *rect = {-scrollX, y, TotalWidth() - scrollX, y + height};
  }
  return true;
}

int ListControl::InsertColumn(int index, const LVCOLUMNW& column) {
  if (index < 0) return -1;
  const int place = std::min(index, ColumnCount());
  const bool hasWidth = (column.mask & LVCF_WIDTH) != 0;
  columns.insert(columns.begin() + place,
                 hasWidth ? std::clamp(column.cx, 0, 0x7FFF) : kDefaultColumnWidth);
  barsStale = true;
  return place;
}

bool ListControl::SetColumnWidth(int column, int width) {
  if (column < 0 || column >= ColumnCount()) return false;
  columns[static_cast<std::size_t>(column)] = std::max(width, 0);
  barsStale = true;
  return true;
}

int ListControl::ColumnWidth(int column) const {
  const bool known = column >= 0 && column < ColumnCount();
  return known ? columns[static_cast<std::size_t>(column)] : 0;
}

}  // namespace winsim
