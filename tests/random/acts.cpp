#include "random/acts.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>

namespace {

using V = IQVLTreeView;

std::string Words(std::int64_t value) { return std::to_string(value); }

LPARAM Packed(POINT point) { return MAKELPARAM(point.x, point.y); }

// The operations that are alike but for their name.
template <auto Operation>
std::string Do(Player& player) {
  (player.view->*Operation)();
  return "done";
}

template <auto Operation>
std::string Ask(Player& player) {
  return Words((player.view->*Operation)());
}

template <auto Operation>
std::string AskOfItem(Player& player) {
  const ItemHandle item = player.Item();
  return Words((player.view->*Operation)(item));
}

template <auto Operation>
std::string FindByItem(Player& player) {
  const ItemHandle item = player.Item();
  return player.Name((player.view->*Operation)(item));
}

template <auto Operation>
std::string FindByIndex(Player& player) {
  const int index = player.Number(-1, 3);
  return player.Name((player.view->*Operation)(index));
}

template <auto Operation>
std::string Mark(Player& player) {
  const ItemHandle item = player.Item();
  const bool on = player.OneIn(2);
  (player.view->*Operation)(item, on);
  return on ? "on" : "off";
}

std::string CreateAgain(Player& player) {
  player.Create();
  return "done";
}

std::string CreateTheOther(Player& player) {
  player.list = !player.list;
  return CreateAgain(player);
}

std::string Update(Player& player) {
  const ItemHandle item = player.Item();
  QVLTreeViewItem record;
  player.Fill(record);
  return Words(player.view->UpdateItem(&record, item));
}

std::string ListItems(Player& player) {
  ItemHandleList items;
  const bool visibleOnly = player.OneIn(2);
  const std::int64_t length = player.view->GetItems(&items, visibleOnly);
  return length == static_cast<std::int64_t>(items.size()) ? Words(length) : "another length";
}

std::string Expand(Player& player) {
  const ItemHandle item = player.Item();
  const bool expand = player.OneIn(2);
  if (player.MayExpand(item, expand)) player.view->ExpandItem(item, expand);
  return "done";
}

std::string EnsureVisible(Player& player) {
  const ItemHandle item = player.Item();
  player.view->EnsureVisible(item);
  return "done";
}

std::string SetMode(Player& player) {
  const bool multiSelect = !player.OneIn(3);
  player.view->SetMultiSelect(multiSelect);
  return multiSelect ? "on" : "off";
}

std::string MoveView(Player& player) {
  const int x = player.Number(0, 0);
  const int y = player.Number(0, 0);
  const int width = player.Number(260, 280);
  const int height = player.Number(380, 380);
  return Words(player.view->Move(x, y, width, height));
}

// Where it is scrolled to depends on fonts.
std::string Scroll(Player& player) {
  int x = -5;
  int y = -5;
  const bool known = player.view->GetScrollPosition(&x, &y);
  const int byX = player.Number(0, 0);
  const int byY = player.Number(0, 0);
  player.view->SetScrollPosition(byX, byY);
  return known ? "known" : "unknown " + Words(x) + " " + Words(y);
}

std::string SetToolTip(Player& player) {
  const int width = player.Number(100, 200);
  const int delay = player.Number(0, 1000);
  player.view->SetToolTipWidth(width);
  player.view->SetToolTipDelay(delay);
  return "done";
}

std::string ListenOrNot(Player& player) {
  const bool listens = !player.OneIn(5);
  player.view->SetClient(listens ? &player : nullptr);
  return listens ? "listens" : "is deaf";
}

POINT ScreenPoint(Player& player) {
  POINT point = player.Point(player.Item());
  ClientToScreen(player.Control(), &point);
  return point;
}

std::string HitTest(Player& player) {
  const POINT point = ScreenPoint(player);
  const bool select = player.OneIn(2);
  std::uint32_t flags = 0;
  const ItemHandle item = player.view->HitTest(&point, select, &flags);
  return player.Name(item) + " " + Words(flags);
}

// In a list Ctrl with Shift extends from a row that depends on presses long before. The mouse moves
// too little for a drag, within the item, or on to another one.
std::string Press(Player& player) {
  constexpr WPARAM KEYS[] = {0, MK_SHIFT, MK_CONTROL, MK_SHIFT | MK_CONTROL};
  constexpr int DRAGS[] = {3, 5, 40};
  const ItemHandle item = player.Item();
  const LPARAM point = Packed(player.Point(item));
  const int drag = player.OneIn(4) ? DRAGS[player.Below(3)] : 0;
  const LPARAM end = MAKELPARAM(LOWORD(point) + drag, HIWORD(point) + drag);
  const WPARAM keys = KEYS[player.Below(player.IsList() ? 3 : 4)];
  const HWND control = player.Control();
  std::string pressed = player.Name(item) + " with keys " + Words(static_cast<int>(keys)) +
                        (drag ? " and a drag by " + Words(drag) : "");
  player.undisturbed = player.IsList() && (keys == MK_SHIFT || drag != 0);
  // The control waits for the button to come up before it answers the press.
  if (drag != 0) PostMessageW(control, WM_MOUSEMOVE, keys | MK_LBUTTON, end);
  PostMessageW(control, WM_LBUTTONUP, 0, end);
  SendMessageW(control, WM_LBUTTONDOWN, keys | MK_LBUTTON, point);
  PumpStory();
  player.undisturbed = false;
  return pressed;
}

std::string PressKey(Player& player) {
  const WPARAM key = player.Key();
  const bool shift = player.OneIn(2);
  BYTE keys[256] = {};
  keys[VK_SHIFT] = shift ? 0x80 : 0;
  player.undisturbed = player.IsList() && shift;
  SetKeyboardState(keys);
  SendMessageW(player.Control(), WM_KEYDOWN, key, 1);
  keys[VK_SHIFT] = 0;
  SetKeyboardState(keys);
  player.undisturbed = false;
  return Words(static_cast<int>(key)) + (shift ? " with shift" : "");
}

std::string RequestMenu(Player& player) {
  const bool byKey = player.OneIn(4);
  const LPARAM point = byKey ? MAKELPARAM(-1, -1) : Packed(ScreenPoint(player));
  SendMessageW(GetParent(player.Control()), WM_CONTEXTMENU, 0, point);
  return "done";
}

// What the control tells the view's window, as a record of that kind about the item.
template <typename Record>
void Notify(Player& player, UINT code, Record record) {
  const HWND control = player.Control();
  record.hdr = {control, static_cast<UINT_PTR>(GetDlgCtrlID(control)), code};
  SendMessageW(GetParent(control), WM_NOTIFY, record.hdr.idFrom, reinterpret_cast<LPARAM>(&record));
}

std::string BeginDrag(Player& player) {
  const ItemHandle item = player.Item();
  NMLISTVIEW row = {};
  row.iItem = static_cast<int>(item);
  NMTREEVIEWW branch = {};
  branch.itemNew.hItem = reinterpret_cast<HTREEITEM>(item);
  std::string dragged = player.Name(item);
  if (player.IsList()) {
    Notify(player, LVN_BEGINDRAG, row);
  } else if (item != -1) {
    Notify(player, TVN_BEGINDRAGW, branch);
  }
  return dragged;
}

std::string AskForTip(Player& player) {
  const ItemHandle item = player.Item();
  NMLVGETINFOTIPW row = {};
  row.iItem = static_cast<int>(item);
  NMTVGETINFOTIPW branch = {};
  branch.hItem = reinterpret_cast<HTREEITEM>(item);
  if (player.IsList()) {
    Notify(player, LVN_GETINFOTIPW, row);
  } else if (item != -1) {
    Notify(player, TVN_GETINFOTIPW, branch);
  }
  return "done";
}

}  // namespace

const std::vector<Act>& Acts() {
  static const std::vector<Act> acts = {
      {"Create", &CreateAgain},
      {"Destroy", &Do<&V::Destroy>},
      {"GetViewType", &Ask<&V::GetViewType>},
      {"SetImageList", [](Player& p) { return Words(p.view->SetImageList(nullptr)); }},
      {"UseSystemImageList", &Ask<&V::UseSystemImageList>},
      {"SetBkColor", [](Player& p) { return Words(p.view->SetBkColor(RGB(255, 255, 224))); }},
      {"SetTextColor", [](Player& p) { return Words(p.view->SetTextColor(RGB(0, 0, 128))); }},
      {"SetMultiSelect", &SetMode},
      {"GetMultiSelect", &Ask<&V::GetMultiSelect>},
      {"SetClient", &ListenOrNot},
      {"Move", &MoveView},
      {"DeleteAllItems", &Do<&V::DeleteAllItems>},
      {"Hide", &Do<&V::Hide>},
      {"Show", &Do<&V::Show>},
      {"Redraw", &Do<&V::Redraw>},
      {"scroll", &Scroll},
      {"tool tip", &SetToolTip},
      {"InsertItem", [](Player& p) { return p.Name(p.Insert()); }},
      {"UpdateItem", &Update},
      {"DeleteItem", &AskOfItem<&V::DeleteItem>},
      {"GetItems", &ListItems},
      {"GetParentItem", &FindByItem<&V::GetParentItem>},
      {"GetFirstChildItem", &FindByItem<&V::GetFirstChildItem>},
      {"GetNextSiblingItem", &FindByItem<&V::GetNextSiblingItem>},
      {"ExpandItem", &Expand},
      {"IsItemExpanded", &AskOfItem<&V::IsItemExpanded>},
      {"ExpandAll", &Do<&V::ExpandAll>},
      {"CollapseAll", &Do<&V::CollapseAll>},
      {"EnsureVisible", &EnsureVisible},
      {"HitTest", &HitTest},
      {"GetItemClientPtr", &AskOfItem<&V::GetItemClientPtr>},
      {"GetSelectedCount", &Ask<&V::GetSelectedCount>},
      {"GetSelectedItem", &FindByIndex<&V::GetSelectedItem>},
      {"SetItemSelected", &Mark<&V::SetItemSelected>},
      {"IsItemSelected", &AskOfItem<&V::IsItemSelected>},
      {"SelectAll", &Do<&V::SelectAll>},
      {"ClearSelection", &Do<&V::ClearSelection>},
      {"InvertSelection", &Do<&V::InvertSelection>},
      {"GetCheckedCount", &Ask<&V::GetCheckedCount>},
      {"GetCheckedItem", &FindByIndex<&V::GetCheckedItem>},
      {"SetItemChecked", &Mark<&V::SetItemChecked>},
      {"IsItemChecked", &AskOfItem<&V::IsItemChecked>},
      {"CheckAll", &Do<&V::CheckAll>},
      {"UncheckAll", &Do<&V::UncheckAll>},
      {"ShowContextMenu", [](Player& p) { return Words(p.view->ShowContextMenu(10, 10)); }},
      {"press", &Press},
      {"key", &PressKey},
      {"context request", &RequestMenu},
      {"begin of a drag", &BeginDrag},
      {"tip", &AskForTip},
      {"Create of the other kind", &CreateTheOther},
      {"SetStateImageList", [](Player& p) { return Words(p.view->SetStateImageList(nullptr)); }},
  };
  return acts;
}

const Act& FindAct(const std::string& name) {
  return *std::find_if(Acts().begin(), Acts().end(),
                       [&](const Act& act) { return act.name == name; });
}
