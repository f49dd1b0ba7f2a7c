// Where items are on the screen, found by asking the view what lies at a point.
#ifndef DEMO_ITEM_POINTS_H
#define DEMO_ITEM_POINTS_H

#include <windows.h>

#include <optional>

#include "qvl.h"

namespace demo {

// Scrolls the item into view. Result: the middle of its part with that hit flag, or nothing.
std::optional<POINT> PointOnItem(IQVLTreeView& view, ItemHandle item, std::uint32_t part);

// A point of the view where there is no item.
std::optional<POINT> PointOnNothing(IQVLTreeView& view);

// The middle of a list's column title.
std::optional<POINT> PointOnColumn(IQVLTreeView& view, int column);

}  // namespace demo

#endif
