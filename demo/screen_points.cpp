#include "screen_points.h"

#include <cstdlib>

namespace demo {
namespace {

constexpr std::uint32_t kParts =
    QVLHT_ONITEMLABEL | QVLHT_ONITEMICON | QVLHT_ONITEMSTATEICON | QVLHT_ONITEMBUTTON;
constexpr LONG kWidest = 60;  // pixels of a part; a long label is pressed near its start

std::uint32_t PartFlag(const std::string& part) {
  if (part == "label") return QVLHT_ONITEMLABEL;
  if (part == "icon") return QVLHT_ONITEMICON;
  if (part == "box") return QVLHT_ONITEMSTATEICON;
  if (part == "button") return QVLHT_ONITEMBUTTON;
  return 0;
}

POINT OnScreen(HWND window, POINT point) {
  ClientToScreen(window, &point);
  return point;
}

std::optional<POINT> MiddleOf(HWND window) {
  RECT area{};
  GetWindowRect(window, &area);
  return POINT{(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

// Left of its box a list's row reports several parts at once. Such a point is none of them.
bool IsPartAt(IQVLTreeView& view, POINT clientPoint, ItemHandle item, std::uint32_t part) {
  const POINT point = OnScreen(view.GetControlWindow(), clientPoint);
  std::uint32_t flags = 0;
  return view.HitTest(&point, false, &flags) == item && (flags & kParts) == part;
}

std::optional<POINT> PointOnItem(IQVLTreeView& view, ItemHandle item, std::uint32_t part) {
  view.EnsureVisible(item);
  const auto row = qvl::ItemRect(view, item, true);
  if (!row) return std::nullopt;
  RECT client{};
  GetClientRect(view.GetControlWindow(), &client);
  const LONG middle = (row->top + row->bottom) / 2;
  LONG first = 0;
  while (first < client.right && !IsPartAt(view, {first, middle}, item, part)) ++first;
  if (first >= client.right) return std::nullopt;
  LONG last = first;
  while (last - first < kWidest && IsPartAt(view, {last + 1, middle}, item, part)) ++last;
  return OnScreen(view.GetControlWindow(), {(first + last) / 2, middle});
}

// A point of the view without an item.
std::optional<POINT> PointOnNothing(IQVLTreeView& view) {
  RECT client{};
  GetClientRect(view.GetControlWindow(), &client);
  const POINT corner = OnScreen(view.GetControlWindow(), {client.right - 12, client.bottom - 12});
  if (view.HitTest(&corner, false, nullptr) != -1) return std::nullopt;
  return corner;
}

std::optional<POINT> PointOnColumn(IQVLTreeView& view, int column) {
  if (!qvl::IsList(view)) return std::nullopt;
  const auto header =
      reinterpret_cast<HWND>(SendMessageW(view.GetControlWindow(), LVM_GETHEADER, 0, 0));
  RECT area{};
  if (!SendMessageW(header, HDM_GETITEMRECT, static_cast<WPARAM>(column),
                    reinterpret_cast<LPARAM>(&area))) {
    return std::nullopt;
  }
  return OnScreen(header, {(area.left + area.right) / 2, (area.top + area.bottom) / 2});
}

}  // namespace

ItemHandle ItemNamed(BrowserWindow& window, const std::string& name) {
  IQVLTreeView& view = window.Browser().View();
  const EntryIndex entry = window.Model().Find(name);
  for (const ItemHandle item : qvl::VisibleItems(view)) {
    if (EntryOf(view, item) == entry) return item;
  }
  return -1;
}

std::optional<POINT> FindPoint(BrowserWindow& window, const std::string& part,
                               const std::string& name) {
  IQVLTreeView& view = window.Browser().View();
  if (part == "empty") return PointOnNothing(view);
  if (part == "column") return PointOnColumn(view, std::atoi(name.c_str()));
  if (part == "tool") return window.Tools().PointOf(name);
  if (part == "drop") return MiddleOf(window.Drops().Window());
  if (part == "splitter") return MiddleOf(window.PaneSplitter().Window());
  const ItemHandle item = ItemNamed(window, name);
  return item == -1 ? std::nullopt : PointOnItem(view, item, PartFlag(part));
}

}  // namespace demo
