#include "support/selection_model.h"

#include <algorithm>
#include <utility>

namespace {

using ItemList = std::vector<ItemHandle>;

ItemList::difference_type PlaceOf(ItemHandle item, const ItemList& items) {
  return std::find(items.begin(), items.end(), item) - items.begin();
}

}  // namespace

Lines SelectionModel::Take() { return std::exchange(lines, {}); }

void SelectionModel::Say(const std::string& line) {
  if (heard) lines.push_back(line);
}

void SelectionModel::Report(ItemHandle item) {
  Say("Changed " + (item ? labels.at(item) : std::string("0")));
}

void SelectionModel::Set(ItemHandle item, bool value) {
  if (value) {
    selected.insert(item);
  } else {
    selected.erase(item);
  }
}

ItemList SelectionModel::Items() const {
  ItemList items;
  for (const auto& [item, node] : nodes) items.push_back(item);
  std::sort(items.begin(), items.end(),
            [this](ItemHandle a, ItemHandle b) { return labels.at(a) < labels.at(b); });
  return items;
}

void SelectionModel::AppendVisible(ItemList& list, const ItemList& items) const {
  for (const ItemHandle item : items) {
    list.push_back(item);
    if (nodes.at(item).expanded) AppendVisible(list, nodes.at(item).children);
  }
}

ItemList SelectionModel::Visible() const {
  ItemList items;
  AppendVisible(items, top);
  return items;
}

ItemList SelectionModel::SelectedVisible() const {
  ItemList items = Visible();
  std::erase_if(items, [this](ItemHandle item) { return !IsSelected(item); });
  return items;
}

bool SelectionModel::IsBelow(ItemHandle item, ItemHandle ancestor) const {
  for (; item; item = nodes.at(item).parent) {
    if (nodes.at(item).parent == ancestor) return true;
  }
  return false;
}

void SelectionModel::Insert(ItemHandle item, ItemHandle parent) {
  nodes[item] = {parent, {}, false, false};
  (parent ? nodes.at(parent).children : top).push_back(item);
}

void SelectionModel::Forget(ItemHandle item) {
  const ItemList children = nodes.at(item).children;
  for (const ItemHandle child : children) Forget(child);
  selected.erase(item);
  nodes.erase(item);
}

// The caret of a deleted branch goes to the item behind it, above it or before it, in this order.
// If there is none, the tree is empty and nobody is told.
void SelectionModel::Delete(ItemHandle item) {
  const ItemHandle parent = nodes.at(item).parent;
  ItemList& siblings = parent ? nodes.at(parent).children : top;
  if (caret == item || (caret && IsBelow(caret, item))) {
    const auto place = static_cast<std::size_t>(PlaceOf(item, siblings));
    ItemHandle heir = parent;
    if (place + 1 < siblings.size()) {
      heir = siblings[place + 1];
    } else if (!parent && place > 0) {
      heir = siblings[place - 1];
    }
    if (heir) {
      MoveCaret(heir);
    } else {
      GiveCaret(0);
    }
  }
  siblings.erase(siblings.begin() + PlaceOf(item, siblings));
  Forget(item);
}

void SelectionModel::DeleteAll() {
  GiveCaret(0);
  nodes.clear();
  top.clear();
  selected.clear();
}

// The host's own expansion is reported only the first time.
void SelectionModel::Expand(ItemHandle item, bool expand) { ControlExpand(item, expand, false); }

void SelectionModel::ControlExpand(ItemHandle item, bool expand, bool byUser) {
  Node& node = nodes.at(item);
  if (node.children.empty() || node.expanded == expand) return;
  const bool told = byUser || (expand && !node.wasExpanded);
  if (!expand && caret && IsBelow(caret, item)) GiveCaret(item);
  node.expanded = expand;
  node.wasExpanded |= expand;
  if (told) Say("Expanded " + labels.at(item));
}

void SelectionModel::SetSelected(ItemHandle item, bool value) {
  Say("Begin");
  Set(item, value);
  Report(item);
  Say("End");
}

void SelectionModel::Clear() {
  for (const ItemHandle item : SelectedVisible()) {
    Set(item, false);
    Report(item);
  }
}

void SelectionModel::ClearSelection() {
  Say("Begin");
  Clear();
  Say("End");
}

void SelectionModel::SelectAll() {
  Say("Begin");
  for (const ItemHandle item : Visible()) {
    if (IsSelected(item)) continue;
    Set(item, true);
    Report(item);
  }
  Say("End");
}

void SelectionModel::InvertSelection() {
  Say("Begin");
  for (const ItemHandle item : Visible()) {
    Set(item, !IsSelected(item));
    Report(item);
  }
  Say("End");
}

void SelectionModel::SelectAt(ItemHandle item) {
  if (!item || IsSelected(item)) return;
  Say("Begin");
  if (multiSelect) Clear();
  MoveCaret(item);
  Say("End");
}

// As the control does it where nobody is told.
void SelectionModel::GiveCaret(ItemHandle item) {
  selected.erase(caret);
  caret = item;
  if (item) selected.insert(item);
}

void SelectionModel::MoveCaret(ItemHandle item) {
  if (caret == item) return;
  GiveCaret(item);
  Report(item);
}

void SelectionModel::ControlPress(const Press& press) {
  if (!press.hit) return;
  if (press.onButton) {
    ControlExpand(press.hit, !nodes.at(press.hit).expanded, true);
  } else {
    MoveCaret(press.hit);
  }
}

void SelectionModel::LeftPress(const Press& press) {
  if (!multiSelect || (press.control && !press.hit)) {
    ControlPress(press);
  } else if (press.control) {
    CtrlPress(press);
  } else if (press.shift) {
    ShiftPress(press);
  } else {
    PlainPress(press);
  }
}

void SelectionModel::PlainPress(const Press& press) {
  Say("Begin");
  Clear();
  if (press.hit) {
    MoveCaret(0);
    MoveCaret(press.hit);
  }
  Say("End");
  anchor = 0;
  ControlPress(press);
}

void SelectionModel::CtrlPress(const Press& press) {
  const bool wanted = !IsSelected(press.hit);
  const ItemHandle before = caret;
  const bool beforeSelected = IsSelected(before);
  Say("Begin");
  if (before == press.hit) MoveCaret(0);
  ControlPress(press);
  Set(press.hit, wanted);
  Report(press.hit);
  if (before && before != press.hit) {
    Set(before, beforeSelected);
    Report(before);
  }
  anchor = 0;
  Say("End");
}

void SelectionModel::ShiftPress(const Press& press) {
  Say("Begin");
  if (!anchor) anchor = caret;
  if (caret == press.hit) MoveCaret(0);
  ControlPress(press);
  if (anchor) Range(press.hit);
  Say("End");
}

void SelectionModel::Range(ItemHandle target) {
  const ItemList items = Visible();
  const auto count = static_cast<ItemList::difference_type>(items.size());
  const auto fixed = PlaceOf(anchor, items);
  const auto moving = PlaceOf(target, items);
  const auto first = std::min(fixed, moving);
  const auto last = std::max(fixed, moving);
  for (ItemList::difference_type place = 0; place < count; ++place) {
    const ItemHandle item = items[static_cast<std::size_t>(place)];
    if (place == first) MoveCaret(target);
    Set(item, place >= first && place <= last);
    Report(item);
  }
}

void SelectionModel::Key(WPARAM key, bool shift) {
  const bool arrow = key == VK_UP || key == VK_DOWN;
  if (multiSelect && shift && arrow) return ShiftArrow(key == VK_UP ? -1 : 1);
  if (multiSelect && key >= 32) {
    ClearSelection();
    anchor = 0;
  }
  ControlKey(key);
}

void SelectionModel::ShiftArrow(int by) {
  Say("Begin");
  if (!anchor) {
    anchor = caret;
    Clear();
  }
  const ItemList items = Visible();
  const auto next = caret ? PlaceOf(caret, items) + by : -1;
  if (next >= 0 && next < static_cast<ItemList::difference_type>(items.size())) {
    const ItemHandle left = caret;
    const bool grows = !IsSelected(items[static_cast<std::size_t>(next)]);
    MoveCaret(items[static_cast<std::size_t>(next)]);
    if (grows) {
      Set(left, true);
      Report(left);
    }
  }
  Say("End");
}

void SelectionModel::ControlStep(int by) {
  const ItemList items = Visible();
  const auto next = PlaceOf(caret, items) + by;
  if (next < 0 || next >= static_cast<ItemList::difference_type>(items.size())) return;
  MoveCaret(items[static_cast<std::size_t>(next)]);
}

void SelectionModel::ControlKey(WPARAM key) {
  if (!caret) return;
  const Node node = nodes.at(caret);
  switch (key) {
    case VK_UP:
      return ControlStep(-1);
    case VK_DOWN:
      return ControlStep(1);
    case VK_HOME:
      return MoveCaret(top.front());
    case VK_END:
      return MoveCaret(Visible().back());
    case VK_ADD:
      // Told again for an item that is expanded already.
      if (node.expanded && !node.children.empty()) Say("Expanded " + labels.at(caret));
      return ControlExpand(caret, true, true);
    case VK_SUBTRACT:
      return ControlExpand(caret, false, true);
    case VK_LEFT:
      if (node.expanded) return ControlExpand(caret, false, true);
      [[fallthrough]];
    case VK_BACK:
      if (node.parent) MoveCaret(node.parent);
      return;
    case VK_RIGHT:
      if (node.children.empty()) return;
      if (!node.expanded) return ControlExpand(caret, true, true);
      return MoveCaret(node.children.front());
    default:
      return;
  }
}
