// Where rows stand: scroll bars and hit testing.
#include <algorithm>
#include <numeric>

#include "image_list.h"
#include "list_control.h"

namespace winsim {
namespace {

constexpr int kTextHeight = 14;
constexpr int kHeaderHeight = 17;
constexpr int kMargin = 2;
constexpr int kDefaultIndent = 16;
constexpr long long kFarAway = 1 << 24;  // in pixels: beyond every screen
constexpr UINT kOnWhole = LVHT_ONITEMICON | LVHT_ONITEMLABEL | LVHT_ONITEMSTATEICON;

SIZE SizeOf(HIMAGELIST list) {
  int width = 0;
  int height = 0;
  ImageList_GetIconSize(list, &width, &height);
  return {width, height};
}

}  // namespace

int ListControl::RowHeight() const {
  const auto icon = SizeOf(smallImages_).cy;
  const auto box = SizeOf(stateImages_).cy;
  return std::max(kTextHeight, static_cast<int>(std::max(icon, box)) + 1);
}

int ListControl::HeaderHeight() const { return (Style() & LVS_NOCOLUMNHEADER) ? 0 : kHeaderHeight; }

int ListControl::IconWidth() const { return static_cast<int>(SizeOf(smallImages_).cx); }

int ListControl::BoxWidth() const { return static_cast<int>(SizeOf(stateImages_).cx); }

int ListControl::BoxLeft(const ListRow& row) const {
  const long long step = smallImages_ ? IconWidth() : kDefaultIndent;
  return static_cast<int>(std::clamp(kMargin + step * row.indent, -kFarAway, kFarAway));
}

int ListControl::TotalWidth() const {
  const long long total = std::accumulate(columns_.begin(), columns_.end(), 0LL);
  return static_cast<int>(std::clamp(total, 0LL, kFarAway));
}

int ListControl::PageRows() const {
  RECT client = {};
  GetClientRect(window_, &client);
  return std::max(static_cast<int>(client.bottom) - HeaderHeight(), 0) / RowHeight();
}

int ListControl::LastFirstRow() const { return std::max(Count() - std::max(PageRows(), 1), 0); }

// Each bar takes room from the other, so both are decided together.
void ListControl::SettleLayout() {
  if (!barsStale_ || Gone()) {
    return;
  }
  barsStale_ = false;
  ChangeStyle(window_, WS_HSCROLL | WS_VSCROLL, 0);
  RECT whole = {};
  GetClientRect(window_, &whole);
  int width = whole.right;
  int height = whole.bottom - HeaderHeight();
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
  top_ = std::clamp(top_, 0, std::max(Count() - std::max(page, 1), 0));
  scrollX_ = std::clamp(scrollX_, 0, std::max(total - width, 0));
  const int lastRow = std::max(Count() - 1, 0);
  const int lastPixel = std::max(total - 1, 0);
  Window* window = FindWindow(window_);
  window->hasScrollBars = true;
  window->bars[SB_VERT] = {0, lastRow, static_cast<UINT>(std::min(page, lastRow + 1)), top_};
  window->bars[SB_HORZ] = {0, lastPixel, static_cast<UINT>(std::clamp(width, 0, lastPixel + 1)),
                           scrollX_};
  ChangeStyle(window_, WS_HSCROLL | WS_VSCROLL,
              (vertical ? WS_VSCROLL : 0) | (horizontal ? WS_HSCROLL : 0));
}

void ListControl::ScrollTo(int row) {
  SettleLayout();
  top_ = std::clamp(row, 0, LastFirstRow());
  barsStale_ = true;
}

// Rows move as a whole, to the nearest one.
void ListControl::ScrollBy(int x, int y) {
  SettleLayout();
  const int height = RowHeight();
  const int half = y < 0 ? -height / 2 : height / 2;
  const auto rows = (static_cast<long long>(y) + half) / height;
  const auto target = std::clamp<long long>(top_ + rows, 0, Count());
  const auto pixel = std::clamp<long long>(static_cast<long long>(scrollX_) + x, 0, TotalWidth());
  scrollX_ = static_cast<int>(pixel);
  ScrollTo(static_cast<int>(target));
}

bool ListControl::EnsureVisible(int row) {
  if (!IsRow(row)) {
    return false;
  }
  SettleLayout();
  const int page = std::max(PageRows(), 1);
  if (row < top_) {
    ScrollTo(row);
  } else if (row >= top_ + page) {
    ScrollTo(row - page + 1);
  }
  return true;
}

// Beside its parts a row answers with the flags of all of them together.
int ListControl::HitTest(LVHITTESTINFO* info) {
  SettleLayout();
  RECT client = {};
  GetClientRect(window_, &client);
  const POINT point = info->pt;
  info->iItem = -1;
  info->flags = point.x < 0 ? LVHT_TOLEFT : point.x > client.right ? LVHT_TORIGHT : 0;
  info->flags |= point.y < HeaderHeight() ? LVHT_ABOVE : point.y > client.bottom ? LVHT_BELOW : 0;
  if (info->flags) {
    return -1;
  }
  const int row = top_ + (static_cast<int>(point.y) - HeaderHeight()) / RowHeight();
  const int x = static_cast<int>(point.x) + scrollX_;
  if (!IsRow(row) || x >= TotalWidth()) {
    info->flags = LVHT_NOWHERE;
    return -1;
  }
  const int box = BoxLeft(Row(row));
  const int icon = box + BoxWidth();
  const int text = icon + IconWidth();
  const int end = columns_.front();
  if (x < box || x >= end) {
    info->flags = kOnWhole;
  } else if (x < icon) {
    info->flags = LVHT_ONITEMSTATEICON;
  } else {
    info->flags = x < text ? LVHT_ONITEMICON : LVHT_ONITEMLABEL;
  }
  if (!(extendedStyle_ & LVS_EX_FULLROWSELECT) && info->flags == kOnWhole) {
    info->flags = LVHT_NOWHERE;
    return -1;
  }
  info->iItem = row;
  return row;
}

bool ListControl::ItemRect(int row, RECT* rect) {
  if (!IsRow(row)) {
    return false;
  }
  SettleLayout();
  const int height = RowHeight();
  const int top = HeaderHeight() + (row - top_) * height;
  const int icon = BoxLeft(Row(row)) + BoxWidth() - scrollX_;
  const int text = icon + IconWidth();
  const int columnEnd = (columns_.empty() ? 0 : columns_.front()) - scrollX_;
  switch (rect->left) {
    case LVIR_LABEL:
      *rect = {text, top, columnEnd, top + height};
      return true;
    default:
      *rect = {-scrollX_, top, TotalWidth() - scrollX_, top + height};
      return true;
  }
}

}  // namespace winsim
