#include "item_points.h"

#include <commctrl.h>

#include <cstring>

namespace demo {
namespace {

constexpr int TREE_TYPE = 1;
constexpr int LIST_TYPE = 2;
constexpr std::uint32_t PARTS =
    QVLHT_ONITEMLABEL | QVLHT_ONITEMICON | QVLHT_ONITEMSTATEICON | QVLHT_ONITEMBUTTON;
constexpr LONG WIDEST = 60;  // of a part; a long label is pressed near its start

RECT RowArea(IQVLTreeView& view, ItemHandle item) {
  RECT area{};
  const HWND control = view.GetControlWindow();
  if (view.GetViewType() == TREE_TYPE) {
    std::memcpy(&area, &item, sizeof item);  // the message finds the item where the answer goes
    SendMessageW(control, TVM_GETITEMRECT, FALSE, reinterpret_cast<LPARAM>(&area));
  } else {
    area.left = LVIR_BOUNDS;
    SendMessageW(control, LVM_GETITEMRECT, static_cast<WPARAM>(item),
                 reinterpret_cast<LPARAM>(&area));
  }
  return area;
}

// Left of its box a row of a list answers to several parts at once; such a point is none of them.
bool IsPartAt(IQVLTreeView& view, POINT clientPoint, ItemHandle item, std::uint32_t part) {
  ClientToScreen(view.GetControlWindow(), &clientPoint);
  std::uint32_t flags = 0;
  return view.HitTest(&clientPoint, false, &flags) == item && (flags & PARTS) == part;
}

POINT OnScreen(HWND window, POINT point) {
  ClientToScreen(window, &point);
  return point;
}

}  // namespace

std::optional<POINT> PointOnItem(IQVLTreeView& view, ItemHandle item, std::uint32_t part) {
  view.EnsureVisible(item);
  RECT client{};
  GetClientRect(view.GetControlWindow(), &client);
  const RECT row = RowArea(view, item);
  const LONG middle = (row.top + row.bottom) / 2;
  LONG first = 0;
  while (first < client.right && !IsPartAt(view, {first, middle}, item, part)) ++first;
  if (first >= client.right) return std::nullopt;
  LONG last = first;
  while (last - first < WIDEST && IsPartAt(view, {last + 1, middle}, item, part)) ++last;
  return OnScreen(view.GetControlWindow(), {(first + last) / 2, middle});
}

std::optional<POINT> PointOnNothing(IQVLTreeView& view) {
  RECT client{};
  GetClientRect(view.GetControlWindow(), &client);
  const POINT corner = OnScreen(view.GetControlWindow(), {client.right - 12, client.bottom - 12});
  if (view.HitTest(&corner, false, nullptr) != -1) return std::nullopt;
  return corner;
}

std::optional<POINT> PointOnColumn(IQVLTreeView& view, int column) {
  if (view.GetViewType() != LIST_TYPE) return std::nullopt;
  const auto header =
      reinterpret_cast<HWND>(SendMessageW(view.GetControlWindow(), LVM_GETHEADER, 0, 0));
  RECT area{};
  if (SendMessageW(header, HDM_GETITEMRECT, static_cast<WPARAM>(column),
                   reinterpret_cast<LPARAM>(&area)) == FALSE) {
    return std::nullopt;
  }
  return OnScreen(header, {(area.left + area.right) / 2, (area.top + area.bottom) / 2});
}

}  // namespace demo
