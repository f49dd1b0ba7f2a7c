#include "random/operations.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>

namespace {

using V = IQVLTreeView;

std::string ToText(std::int64_t value) { return std::to_string(value); }

LPARAM Packed(POINT point) { return MAKELPARAM(point.x, point.y); }

template <auto Operation>
std::string Do(RandomHost& random) {
  (random.view->*Operation)();
  return "done";
}

template <auto Operation>
std::string Ask(RandomHost& random) {
  return ToText((random.view->*Operation)());
}

template <auto Operation>
std::string AskOfItem(RandomHost& random) {
  const ItemHandle item = random.Item();
  return ToText((random.view->*Operation)(item));
}

template <auto Operation>
std::string FindByItem(RandomHost& random) {
  const ItemHandle item = random.Item();
  return random.Name((random.view->*Operation)(item));
}

template <auto Operation>
std::string FindByIndex(RandomHost& random) {
  const int index = random.Number(-1, 3);
  return random.Name((random.view->*Operation)(index));
}

template <auto Operation>
std::string SetState(RandomHost& random) {
  const ItemHandle item = random.Item();
  const bool on = random.OneIn(2);
  (random.view->*Operation)(item, on);
  return on ? "on" : "off";
}

std::string CreateAgain(RandomHost& random) {
  random.Create();
  return "done";
}

std::string CreateOtherKind(RandomHost& random) {
  random.list = !random.list;
  return CreateAgain(random);
}

std::string Update(RandomHost& random) {
  const ItemHandle item = random.Item();
  QVLTreeViewItem record;
  random.Fill(record);
  return ToText(random.view->UpdateItem(&record, item));
}

std::string ListItems(RandomHost& random) {
  ItemHandleList items;
  const bool visibleOnly = random.OneIn(2);
  const std::int64_t length = random.view->GetItems(&items, visibleOnly);
  return length == static_cast<std::int64_t>(items.size()) ? ToText(length) : "another length";
}

std::string Expand(RandomHost& random) {
  const ItemHandle item = random.Item();
  const bool expand = random.OneIn(2);
  if (random.MayExpand(item, expand)) random.view->ExpandItem(item, expand);
  return "done";
}

std::string EnsureVisible(RandomHost& random) {
  const ItemHandle item = random.Item();
  random.view->EnsureVisible(item);
  return "done";
}

std::string SetMode(RandomHost& random) {
  const bool multiSelect = !random.OneIn(3);
  random.view->SetMultiSelect(multiSelect);
  return multiSelect ? "on" : "off";
}

std::string MoveView(RandomHost& random) {
  const int x = random.Number(0, 0);
  const int y = random.Number(0, 0);
  const int width = random.Number(260, 280);
  const int height = random.Number(380, 380);
  return ToText(random.view->Move(x, y, width, height));
}

// The scroll position depends on fonts.
std::string Scroll(RandomHost& random) {
  int x = -5;
  int y = -5;
  const bool known = random.view->GetScrollPosition(&x, &y);
  const int byX = random.Number(0, 0);
  const int byY = random.Number(0, 0);
  random.view->SetScrollPosition(byX, byY);
  return known ? "known" : "unknown " + ToText(x) + " " + ToText(y);
}

std::string SetToolTip(RandomHost& random) {
  const int width = random.Number(100, 200);
  const int delay = random.Number(0, 1000);
  random.view->SetToolTipWidth(width);
  random.view->SetToolTipDelay(delay);
  return "done";
}

std::string SetOrRemoveClient(RandomHost& random) {
  const bool keeps = !random.OneIn(5);
  random.view->SetClient(keeps ? &random : nullptr);
  return keeps ? "client" : "no client";
}

POINT ScreenPoint(RandomHost& random) {
  POINT point = random.Point(random.Item());
  ClientToScreen(random.Control(), &point);
  return point;
}

std::string HitTest(RandomHost& random) {
  const POINT point = ScreenPoint(random);
  const bool select = random.OneIn(2);
  std::uint32_t flags = 0;
  const ItemHandle item = random.view->HitTest(&point, select, &flags);
  return random.Name(item) + " " + ToText(flags);
}

// Without Ctrl+Shift in a list, whose anchor depends on much earlier presses. The mouse moves too
// little for a drag, within the item, or to another item.
std::string Press(RandomHost& random) {
  constexpr WPARAM kKeys[] = {0, MK_SHIFT, MK_CONTROL, MK_SHIFT | MK_CONTROL};
  constexpr int kDrags[] = {3, 5, 40};
  const ItemHandle item = random.Item();
  const LPARAM point = Packed(random.Point(item));
  const int drag = random.OneIn(4) ? kDrags[random.Below(3)] : 0;
  const LPARAM end = MAKELPARAM(LOWORD(point) + drag, HIWORD(point) + drag);
  const WPARAM keys = kKeys[random.Below(random.IsList() ? 3 : 4)];
  const HWND control = random.Control();
  std::string pressed = random.Name(item) + " with keys " + ToText(static_cast<int>(keys)) +
                        (drag ? " and a drag by " + ToText(drag) : "");
  random.undisturbed = random.IsList() && (keys == MK_SHIFT || drag != 0);
  // The control handles the press only when the button is released.
  if (drag != 0) PostMessageW(control, WM_MOUSEMOVE, keys | MK_LBUTTON, end);
  PostMessageW(control, WM_LBUTTONUP, 0, end);
  SendMessageW(control, WM_LBUTTONDOWN, keys | MK_LBUTTON, point);
  HandleMessages();
  random.undisturbed = false;
  return pressed;
}

std::string PressKey(RandomHost& random) {
  const WPARAM key = random.Key();
  const bool shift = random.OneIn(2);
  BYTE keys[256] = {};
  keys[VK_SHIFT] = shift ? 0x80 : 0;
  random.undisturbed = random.IsList() && shift;
  SetKeyboardState(keys);
  SendMessageW(random.Control(), WM_KEYDOWN, key, 1);
  keys[VK_SHIFT] = 0;
  SetKeyboardState(keys);
  random.undisturbed = false;
  return ToText(static_cast<int>(key)) + (shift ? " with shift" : "");
}

std::string RequestMenu(RandomHost& random) {
  const bool byKey = random.OneIn(4);
  const LPARAM point = byKey ? MAKELPARAM(-1, -1) : Packed(ScreenPoint(random));
  SendMessageW(GetParent(random.Control()), WM_CONTEXTMENU, 0, point);
  return "done";
}

// Sends a notification to the view's window as the control does.
template <typename Record>
void Notify(RandomHost& random, UINT code, Record record) {
  const HWND control = random.Control();
  record.hdr = {control, static_cast<UINT_PTR>(GetDlgCtrlID(control)), code};
  SendMessageW(GetParent(control), WM_NOTIFY, record.hdr.idFrom, reinterpret_cast<LPARAM>(&record));
}

std::string BeginDrag(RandomHost& random) {
  const ItemHandle item = random.Item();
  NMLISTVIEW row = {};
  row.iItem = static_cast<int>(item);
  NMTREEVIEWW branch = {};
  branch.itemNew.hItem = reinterpret_cast<HTREEITEM>(item);
  std::string dragged = random.Name(item);
  if (random.IsList()) {
    Notify(random, LVN_BEGINDRAG, row);
  } else if (item != -1) {
    Notify(random, TVN_BEGINDRAGW, branch);
  }
  return dragged;
}

std::string AskForTip(RandomHost& random) {
  const ItemHandle item = random.Item();
  NMLVGETINFOTIPW row = {};
  row.iItem = static_cast<int>(item);
  NMTVGETINFOTIPW branch = {};
  branch.hItem = reinterpret_cast<HTREEITEM>(item);
  if (random.IsList()) {
    Notify(random, LVN_GETINFOTIPW, row);
  } else if (item != -1) {
    Notify(random, TVN_GETINFOTIPW, branch);
  }
  return "done";
}

}  // namespace

const std::vector<Operation>& Operations() {
  static const std::vector<Operation> operations = {
      {"Create", &CreateAgain},
      {"Destroy", &Do<&V::Destroy>},
      {"GetViewType", &Ask<&V::GetViewType>},
      {"SetImageList", [](RandomHost& p) { return ToText(p.view->SetImageList(nullptr)); }},
      {"UseSystemImageList", &Ask<&V::UseSystemImageList>},
      {"SetBkColor", [](RandomHost& p) { return ToText(p.view->SetBkColor(RGB(255, 255, 224))); }},
      {"SetTextColor", [](RandomHost& p) { return ToText(p.view->SetTextColor(RGB(0, 0, 128))); }},
      {"SetMultiSelect", &SetMode},
      {"GetMultiSelect", &Ask<&V::GetMultiSelect>},
      {"SetClient", &SetOrRemoveClient},
      {"Move", &MoveView},
      {"DeleteAllItems", &Do<&V::DeleteAllItems>},
      {"Hide", &Do<&V::Hide>},
      {"Show", &Do<&V::Show>},
      {"Redraw", &Do<&V::Redraw>},
      {"scroll", &Scroll},
      {"tool tip", &SetToolTip},
      {"InsertItem", [](RandomHost& p) { return p.Name(p.Insert()); }},
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
      {"SetItemSelected", &SetState<&V::SetItemSelected>},
      {"IsItemSelected", &AskOfItem<&V::IsItemSelected>},
      {"SelectAll", &Do<&V::SelectAll>},
      {"ClearSelection", &Do<&V::ClearSelection>},
      {"InvertSelection", &Do<&V::InvertSelection>},
      {"GetCheckedCount", &Ask<&V::GetCheckedCount>},
      {"GetCheckedItem", &FindByIndex<&V::GetCheckedItem>},
      {"SetItemChecked", &SetState<&V::SetItemChecked>},
      {"IsItemChecked", &AskOfItem<&V::IsItemChecked>},
      {"CheckAll", &Do<&V::CheckAll>},
      {"UncheckAll", &Do<&V::UncheckAll>},
      {"ShowContextMenu", [](RandomHost& p) { return ToText(p.view->ShowContextMenu(10, 10)); }},
      {"press", &Press},
      {"key", &PressKey},
      {"context request", &RequestMenu},
      {"begin of a drag", &BeginDrag},
      {"tip", &AskForTip},
      {"Create of the other kind", &CreateOtherKind},
      {"SetStateImageList",
       [](RandomHost& p) { return ToText(p.view->SetStateImageList(nullptr)); }},
  };
  return operations;
}

const Operation& FindOperation(const std::string& name) {
  return *std::find_if(Operations().begin(), Operations().end(),
                       [&](const Operation& operation) { return operation.name == name; });
}
