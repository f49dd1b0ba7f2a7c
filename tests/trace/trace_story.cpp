#include "trace/trace_story.h"

#include <windows.h>

#include <commctrl.h>

#include <array>

namespace {

constexpr int ITEM_OPERATIONS = 15;
constexpr int VIEW_OPERATIONS = 30;
constexpr int GESTURES = 6;

std::string Text(bool value) { return value ? "true" : "false"; }
std::string Text(std::int64_t value) { return std::to_string(value); }

void Pump() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

LPARAM Packed(POINT point) { return MAKELPARAM(point.x, point.y); }

void HoldShift(bool down) {
  BYTE keys[256] = {};
  keys[VK_SHIFT] = down ? 0x80 : 0;
  SetKeyboardState(keys);
}

}  // namespace

TraceStory::TraceStory(HWND hostWindow, std::uint32_t seed, std::ostream& target)
    : host(hostWindow), dice(seed), out(target) {
  const auto write = [this](const std::string& line) { out << line << '\n'; };
  for (const char* name : {"A", "B", "C", "D"}) {
    views.push_back(std::make_unique<TraceView>(name, host, dice, write));
    views.back()->Create(views.size() > 2);
    for (int i = 0; i < 6; ++i) views.back()->Insert();
  }
}

void TraceStory::Play(int steps) {
  for (int step = 0; step < steps; ++step) {
    TraceView& chosen = *views[static_cast<std::size_t>(dice.Below(4))];
    out << step << ": ";
    Step(chosen);
    Pump();
    for (const auto& view : views) view->WriteStateIfChanged();
  }
}

void TraceStory::Step(TraceView& chosen) {
  const int operation = dice.Below(ITEM_OPERATIONS + VIEW_OPERATIONS + 2 * GESTURES);
  out << chosen.name << " does " << operation << '\n';
  const std::string result = Operate(chosen, operation);
  out << "  gives " << result << '\n';
}

std::string TraceStory::Operate(TraceView& chosen, int operation) {
  if (operation < ITEM_OPERATIONS) return OperateOnItem(chosen, operation);
  operation -= ITEM_OPERATIONS;
  if (operation < VIEW_OPERATIONS) return OperateOnView(chosen, operation);
  if (!chosen.Control()) return "no control";
  return Gesture(chosen, (operation - VIEW_OPERATIONS) % GESTURES);
}

std::string TraceStory::OperateOnItem(TraceView& chosen, int operation) {
  IQVLTreeView& view = *chosen.view;
  const ItemHandle item = chosen.AnyItem();
  QVLTreeViewItem record;
  switch (operation) {
    case 0:
      chosen.Fill(record);
      return Text(view.UpdateItem(&record, item));
    case 1:
      return Text(view.DeleteItem(item));
    case 2:
      return chosen.Name(view.GetParentItem(item));
    case 3:
      return chosen.Name(view.GetFirstChildItem(item));
    case 4:
      return chosen.Name(view.GetNextSiblingItem(item));
    case 5:
    case 6:
      chosen.Expand(item, operation == 5);
      return "done";
    case 7:
      return Text(view.IsItemExpanded(item));
    case 8:
      view.EnsureVisible(item);
      return "done";
    case 9:
      return Text(view.GetItemClientPtr(item));
    case 10:
      view.SetItemSelected(item, dice.OneIn(2));
      return "done";
    case 11:
      return Text(view.IsItemSelected(item));
    case 12:
      view.SetItemChecked(item, dice.OneIn(2));
      return "done";
    case 13:
      return Text(view.IsItemChecked(item));
    default:
      chosen.Insert();
      return "done";
  }
}

std::string TraceStory::OperateOnView(TraceView& chosen, int operation) {
  IQVLTreeView& view = *chosen.view;
  ItemHandleList items;
  int x = -5;
  int y = -5;
  switch (operation) {
    case 0:
      if (dice.OneIn(4)) view.Destroy();
      return "done";
    case 1:
      if (!chosen.Control() || dice.OneIn(6)) chosen.Create(dice.OneIn(2));
      return "done";
    case 2:
      return Text(std::int64_t{view.GetViewType()});
    case 3:
      return Text(view.SetImageList(nullptr));
    case 4:
      return Text(view.UseSystemImageList());
    case 5:
      return Text(view.SetBkColor(RGB(255, 255, 224)));
    case 6:
      return Text(view.SetTextColor(RGB(0, 0, 128)));
    case 7:
      view.SetMultiSelect(!dice.OneIn(3));
      return "done";
    case 8:
      return Text(view.GetMultiSelect());
    case 9:
      chosen.listening = !dice.OneIn(5);
      view.SetClient(chosen.listening ? &chosen : nullptr);
      return "done";
    case 10:
      return Text(view.Move(0, 0, 260 + 10 * dice.Below(3), 380));
    case 11:
      if (dice.OneIn(4)) view.DeleteAllItems();
      return "done";
    case 12:
      dice.OneIn(2) ? view.Hide() : view.Show();
      return "done";
    case 13:
      view.Redraw();
      return "done";
    case 14: {
      const bool known = view.GetScrollPosition(&x, &y);
      return Text(known) + (known ? "" : " " + Text(std::int64_t{x}));
    }
    case 15:
      view.SetScrollPosition(0, 0);
      return "done";
    case 16:
      view.SetToolTipWidth(100 + dice.Below(100));
      view.SetToolTipDelay(dice.Below(1000));
      return "done";
    case 17:
      return Text(view.GetItems(&items, dice.OneIn(2)));
    case 18:
      view.ExpandAll();
      return "done";
    case 19:
      view.CollapseAll();
      return "done";
    case 20:
      view.EnsureVisible(-1);
      return "done";
    case 21:
      return Text(std::int64_t{view.GetSelectedCount()});
    case 22:
      return chosen.Name(view.GetSelectedItem(dice.Below(4) - 1));
    case 23:
      view.SelectAll();
      return "done";
    case 24:
      view.ClearSelection();
      return "done";
    case 25:
      view.InvertSelection();
      return "done";
    case 26:
      return Text(std::int64_t{view.GetCheckedCount()});
    case 27:
      return chosen.Name(view.GetCheckedItem(dice.Below(4) - 1));
    case 28:
      dice.OneIn(2) ? view.CheckAll() : view.UncheckAll();
      return "done";
    default:
      return Text(view.ShowContextMenu(10, 10));
  }
}

// A point on the label of an item that is in view, or below all items for none.
POINT TraceStory::PointOn(TraceView& chosen, ItemHandle item) {
  const POINT below = {100, 370};
  if (item == -1) return below;
  RECT rect = {};
  LRESULT found = 0;
  if (chosen.IsList()) {
    rect.left = LVIR_LABEL;
    found = SendMessageW(chosen.Control(), LVM_GETITEMRECT, static_cast<WPARAM>(item),
                         reinterpret_cast<LPARAM>(&rect));
  } else {
    // Of an item in a collapsed branch the real control may still give the place that it had.
    if (!chosen.IsShown(item)) return below;
    *reinterpret_cast<ItemHandle*>(&rect) = item;
    found = SendMessageW(chosen.Control(), TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&rect));
  }
  if (!found || rect.top < 0 || rect.bottom > 370) return below;
  return {rect.left + 4, (rect.top + rect.bottom) / 2};
}

std::string TraceStory::Press(TraceView& chosen, UINT message) {
  constexpr std::array<WPARAM, 4> KEYS = {0, MK_SHIFT, MK_CONTROL, MK_SHIFT | MK_CONTROL};
  const ItemHandle item = chosen.AnyItem();
  const POINT point = PointOn(chosen, item);
  const WPARAM keys = KEYS[static_cast<std::size_t>(dice.Below(chosen.IsList() ? 3 : 4))];
  chosen.reacts = !chosen.IsList() || keys != MK_SHIFT;
  const HWND control = chosen.Control();
  PostMessageW(control, WM_LBUTTONUP, 0, Packed(point));
  SendMessageW(control, message, keys | MK_LBUTTON, Packed(point));
  Pump();
  chosen.reacts = true;
  return "pressed " + chosen.Name(item);
}

std::string TraceStory::Key(TraceView& chosen) {
  constexpr std::array<WPARAM, 9> KEYS = {VK_UP,  VK_DOWN,  VK_LEFT, VK_RIGHT, VK_HOME,
                                          VK_END, VK_SHIFT, VK_BACK, VK_DELETE};
  const WPARAM key = KEYS[static_cast<std::size_t>(dice.Below(9))];
  const bool shift = dice.OneIn(2);
  chosen.reacts = !chosen.IsList() || !shift;
  HoldShift(shift);
  SendMessageW(chosen.Control(), WM_KEYDOWN, key, 1);
  HoldShift(false);
  chosen.reacts = true;
  return "key " + Text(static_cast<std::int64_t>(key)) + (shift ? " with shift" : "");
}

std::string TraceStory::Gesture(TraceView& chosen, int gesture) {
  const HWND parent = GetParent(chosen.Control());
  POINT point = {};
  switch (gesture) {
    case 0:
    case 1:
      return Press(chosen, WM_LBUTTONDOWN);
    case 2:
    case 3:
      return Key(chosen);
    case 4:
      point = PointOn(chosen, chosen.AnyItem());
      ClientToScreen(chosen.Control(), &point);
      if (dice.OneIn(4)) point = {-1, -1};
      SendMessageW(parent, WM_CONTEXTMENU, 0, Packed(point));
      return "asked for a menu";
    default: {
      point = PointOn(chosen, chosen.AnyItem());
      ClientToScreen(chosen.Control(), &point);
      std::uint32_t flags = 0;
      const ItemHandle item = chosen.view->HitTest(&point, dice.OneIn(2), &flags);
      return chosen.Name(item) + " " + Text(std::int64_t{flags});
    }
  }
}
