#include "random/operations.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <iterator>
#include <tuple>
#include <type_traits>

namespace {

using V = IQVLTreeView;

std::string Words(std::int64_t value) { return std::to_string(value); }

LPARAM Packed(POINT point) { return MAKELPARAM(point.x, point.y); }

template <class Type>
Type Choose(RandomHost& host) {
  if constexpr (std::is_same_v<Type, ItemHandle>) return host.Item();
  if constexpr (std::is_same_v<Type, bool>) return host.OneIn(2);
  if constexpr (std::is_same_v<Type, COLORREF>) return RGB(255, 255, 224);
  if constexpr (std::is_same_v<Type, int>) return host.Number(-1, 3);
  return Type();
}

// A call with chosen arguments, which are chosen in their order.
template <class Result, class... Arguments>
std::string CallWithChoices(RandomHost& host, Result (V::*operation)(Arguments...)) {
  const std::tuple<Arguments...> chosen{Choose<Arguments>(host)...};
  const auto call = [&](Arguments... arguments) { return (host.view->*operation)(arguments...); };
  if constexpr (std::is_void_v<Result>) {
    std::apply(call, chosen);
    return "done";
  } else if constexpr (std::is_same_v<Result, ItemHandle>) {
    return host.Name(std::apply(call, chosen));
  } else {
    return Words(std::apply(call, chosen));
  }
}

template <auto Function>
std::string Call(RandomHost& host) {
  return CallWithChoices(host, Function);
}

std::string Create(RandomHost& host) { return Words(host.Create()); }

std::string CreateOther(RandomHost& host) {
  host.list = !host.list;
  return Create(host);
}

std::string Update(RandomHost& host) {
  const ItemHandle item = host.Item();
  QVLTreeViewItem record;
  host.Fill(record);
  return Words(host.view->UpdateItem(&record, item));
}

std::string GetItems(RandomHost& host) {
  ItemHandleList items;
  const std::int64_t count = host.view->GetItems(&items, host.OneIn(2));
  return Words(count) + " of " + Words(static_cast<std::int64_t>(items.size()));
}

// The real control loses count of its rows if an item in a collapsed branch is collapsed.
std::string Expand(RandomHost& host) {
  const ItemHandle item = host.Item();
  const bool expand = host.OneIn(2);
  const bool safe = host.outOfRange || (item != -1 && (expand || host.IsShown(item)));
  if (safe) host.view->ExpandItem(item, expand);
  return "done";
}

std::string Move(RandomHost& host) {
  const int width = host.Number(260, 280);
  return Words(host.view->Move(host.Number(0, 0), host.Number(0, 0), width, host.Number(380, 380)));
}

// The position itself depends on fonts.
std::string Scroll(RandomHost& host) {
  int x = 0;
  int y = 0;
  const bool known = host.view->GetScrollPosition(&x, &y);
  host.view->SetScrollPosition(host.Number(0, 0), host.Number(0, 0));
  return Words(known);
}

std::string SetClient(RandomHost& host) {
  host.view->SetClient(&host);
  return "done";
}

std::string RemoveClient(RandomHost& host) {
  host.view->SetClient(nullptr);
  return "done";
}

std::string Release(RandomHost& host) {
  host.Release();
  return "done";
}

POINT ScreenPoint(RandomHost& host) {
  POINT point = host.Point(host.Item());
  ClientToScreen(host.Control(), &point);
  return point;
}

std::string HitTest(RandomHost& host) {
  const POINT point = ScreenPoint(host);
  std::uint32_t flags = 0;
  const ItemHandle item = host.view->HitTest(&point, host.OneIn(2), &flags);
  return host.Name(item) + " " + Words(flags);
}

// The mouse may move too little for a drag, within the item, or on to another one. The control
// waits for the release of the button before it handles the press. In a list, Shift with Ctrl
// extends from a row that depends on much earlier presses.
std::string Press(RandomHost& host) {
  constexpr WPARAM kKeys[] = {0, MK_SHIFT, MK_CONTROL, MK_SHIFT | MK_CONTROL};
  constexpr int kMoves[] = {3, 5, 40};
  const POINT point = host.Point(host.Item());
  const int move = host.OneIn(4) ? kMoves[host.Below(3)] : 0;
  const LPARAM end = MAKELPARAM(point.x + move, point.y + move);
  const WPARAM keys = kKeys[host.Below(host.IsList() ? 3 : 4)];
  const HWND control = host.Control();
  if (move != 0) PostMessageW(control, WM_MOUSEMOVE, keys | MK_LBUTTON, end);
  PostMessageW(control, WM_LBUTTONUP, 0, end);
  host.Send(WM_LBUTTONDOWN, keys | MK_LBUTTON, Packed(point));
  return "done";
}

std::string PressKey(RandomHost& host) {
  constexpr WPARAM kKeys[] = {VK_UP,  VK_DOWN,  VK_LEFT, VK_RIGHT, VK_HOME,
                              VK_END, VK_SHIFT, VK_BACK, VK_DELETE};
  const WPARAM key = kKeys[host.Below(std::size(kKeys))];
  BYTE keys[256] = {};
  keys[VK_SHIFT] = host.OneIn(2) ? 0x80 : 0;
  SetKeyboardState(keys);
  host.Send(WM_KEYDOWN, key, 1);
  keys[VK_SHIFT] = 0;
  SetKeyboardState(keys);
  return "done";
}

std::string RequestMenu(RandomHost& host) {
  const LPARAM point = host.OneIn(4) ? MAKELPARAM(-1, -1) : Packed(ScreenPoint(host));
  SendMessageW(GetParent(host.Control()), WM_CONTEXTMENU, 0, point);
  return "done";
}

// Enter ends the edit, or the end of the control does.
std::string EditLabel(RandomHost& host) {
  const ItemHandle item = host.Item();
  const int end = host.Below(3);
  if (!host.editable) return "done";
  SetFocus(host.Control());
  const LRESULT edit = host.IsList() ? host.Send(LVM_EDITLABELW, static_cast<WPARAM>(item), 0)
                                     : host.Send(TVM_EDITLABELW, 0, item);
  if (edit && end == 0) SendMessageW(reinterpret_cast<HWND>(edit), WM_KEYDOWN, VK_RETURN, 1);
  if (edit && end == 1) host.view->Destroy();
  if (edit && end == 2) host.Release();
  return "done";
}

// A notification from the control about the item, or about none in a list.
std::string Notify(RandomHost& host) {
  constexpr UINT kCodes[] = {TVN_BEGINDRAGW,  TVN_GETINFOTIPW, TVN_SELCHANGEDW, LVN_BEGINDRAG,
                             LVN_GETINFOTIPW, LVN_ITEMCHANGED, LVN_COLUMNCLICK, LVN_ENDLABELEDITW};
  const int first = host.outOfRange || !host.IsList() ? 0 : 3;
  const UINT code = kCodes[first + host.Below(host.outOfRange ? 8 : host.IsList() ? 5 : 3)];
  const ItemHandle item = host.Item();
  if (item == -1 && !host.IsList()) return "done";
  union {
    NMHDR header;
    NMTREEVIEWW branch;
    NMTVGETINFOTIPW branchTip;
    NMLISTVIEW row;
    NMLVGETINFOTIPW rowTip;
  } record = {};
  WCHAR*& text = code == TVN_GETINFOTIPW ? record.branchTip.pszText : record.rowTip.pszText;
  const bool isTip = code == TVN_GETINFOTIPW || code == LVN_GETINFOTIPW;
  if (code == TVN_GETINFOTIPW) {
    record.branchTip.hItem = reinterpret_cast<HTREEITEM>(item);
  } else if (code == TVN_BEGINDRAGW || code == TVN_SELCHANGEDW) {
    record.branch.itemNew.hItem = reinterpret_cast<HTREEITEM>(item);
  } else {
    (isTip ? record.rowTip.iItem : record.row.iItem) = static_cast<int>(item);
  }
  const HWND control = host.Control();
  record.header = {control, static_cast<UINT_PTR>(GetDlgCtrlID(control)), code};
  SendMessageW(GetParent(control), WM_NOTIFY, record.header.idFrom,
               reinterpret_cast<LPARAM>(&record));
  return isTip && text ? "tip" : "done";
}

}  // namespace

const std::vector<Operation>& Operations() {
  static const std::vector<Operation> operations = {
      {"Create", &Create, 1, "0"},
      {"Create of the other kind", &CreateOther, 1, "0"},
      {"Destroy", &Call<&V::Destroy>},
      {"GetViewType", &Call<&V::GetViewType>},
      {"SetImageList", &Call<&V::SetImageList>},
      {"UseSystemImageList", &Call<&V::UseSystemImageList>, 2},
      {"SetStateImageList", &Call<&V::SetStateImageList>},
      {"SetBkColor", &Call<&V::SetBkColor>},
      {"SetTextColor", &Call<&V::SetTextColor>},
      {"SetMultiSelect", &Call<&V::SetMultiSelect>},
      {"GetMultiSelect", &Call<&V::GetMultiSelect>},
      {"SetClient", &SetClient},
      {"no client", &RemoveClient},
      {"release", &Release},
      {"Move", &Move},
      {"DeleteAllItems", &Call<&V::DeleteAllItems>},
      {"Hide", &Call<&V::Hide>},
      {"Show", &Call<&V::Show>},
      {"Redraw", &Call<&V::Redraw>},
      {"scroll", &Scroll},
      {"SetToolTipWidth", &Call<&V::SetToolTipWidth>},
      {"SetToolTipDelay", &Call<&V::SetToolTipDelay>},
      {"InsertItem", [](RandomHost& host) { return host.Name(host.Insert()); }, 3, "-1"},
      {"UpdateItem", &Update, 4, "0"},
      {"DeleteItem", &Call<&V::DeleteItem>, 3, "0"},
      {"GetItems", &GetItems},
      {"GetParentItem", &Call<&V::GetParentItem>},
      {"GetFirstChildItem", &Call<&V::GetFirstChildItem>},
      {"GetNextSiblingItem", &Call<&V::GetNextSiblingItem>},
      {"ExpandItem", &Expand},
      {"IsItemExpanded", &Call<&V::IsItemExpanded>},
      {"ExpandAll", &Call<&V::ExpandAll>},
      {"CollapseAll", &Call<&V::CollapseAll>},
      {"EnsureVisible", &Call<&V::EnsureVisible>},
      {"HitTest", &HitTest, 3, "-1 0"},
      {"GetItemClientPtr", [](RandomHost& host) { return host.Name(host.Item()); }},
      {"GetSelectedCount", &Call<&V::GetSelectedCount>},
      {"GetSelectedItem", &Call<&V::GetSelectedItem>},
      {"SetItemSelected", &Call<&V::SetItemSelected>, 2},
      {"IsItemSelected", &Call<&V::IsItemSelected>},
      {"SelectAll", &Call<&V::SelectAll>},
      {"ClearSelection", &Call<&V::ClearSelection>},
      {"InvertSelection", &Call<&V::InvertSelection>},
      {"GetCheckedCount", &Call<&V::GetCheckedCount>},
      {"GetCheckedItem", &Call<&V::GetCheckedItem>},
      {"SetItemChecked", &Call<&V::SetItemChecked>, 2},
      {"IsItemChecked", &Call<&V::IsItemChecked>},
      {"CheckAll", &Call<&V::CheckAll>, 2},
      {"UncheckAll", &Call<&V::UncheckAll>},
      {"ShowContextMenu", &Call<&V::ShowContextMenu>, 1, "0"},
      {"press", &Press, 8},
      {"key", &PressKey, 6},
      {"context request", &RequestMenu, 2},
      {"label edit", &EditLabel, 4},
      {"notification", &Notify, 5}};
  return operations;
}

const Operation& FindOperation(const std::string& name) {
  return *std::find_if(Operations().begin(), Operations().end(),
                       [&](const Operation& each) { return each.name == name; });
}
