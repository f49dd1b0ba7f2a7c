#include "support/tree_gestures.h"

namespace {

int forwards = 0;

LRESULT CALLBACK CountingCall(WNDPROC procedure, HWND window, UINT message, WPARAM wParam,
                              LPARAM lParam) {
  const LRESULT answer = CallWindowProcW(procedure, window, message, wParam, lParam);
  if (message != WM_LBUTTONDOWN && message != WM_KEYDOWN) return answer;
  ++forwards;
  return ForwardWatch::ANSWER;
}

LPARAM Pack(POINT point) { return MAKELPARAM(point.x, point.y); }

}  // namespace

std::string Short(const Lines& lines) {
  const std::string report = "Changed ";
  std::string text;
  for (const std::string& line : lines) {
    if (!text.empty()) text += ' ';
    if (line == "Begin" || line == "End") {
      text += line.front();
    } else {
      text += line.starts_with(report) ? line.substr(report.size()) : line;
    }
  }
  return text;
}

void TreeTest::OpenEmpty(std::uint32_t style) {
  client.labels.clear();
  control = CreateView(style);
  ASSERT_NE(control, nullptr);
  SetFocus(control);
  PumpMessages();
  client.Take();
}

void TreeTest::Open(std::uint32_t style) {
  ASSERT_NO_FATAL_FAILURE(OpenEmpty(style));
  for (const WCHAR* name : {TEXT("P"), TEXT("Q"), TEXT("R"), TEXT("S")}) Insert(name);
  PumpMessages();
}

void TreeTest::Given(const std::string& state) {
  view->SetClient(&client);
  view->SetMultiSelect(true);
  Press('P');
  const char anchor = state[2];
  if (anchor != '-') {
    MoveCaret(Item(anchor));
    Press(anchor, MK_SHIFT);
  }
  MoveCaret(Item(state[0]));
  view->ClearSelection();
  for (const char name : state.substr(4)) view->SetItemSelected(Item(name), true);
  client.Take();
}

std::string TreeTest::State() {
  const std::string selected = Selected();
  const std::string caret = CaretItem() ? client.Name(CaretItem()) : "-";
  view->SetClient(&client);
  view->SetMultiSelect(true);
  MoveCaret(0);
  view->ClearSelection();
  client.Take();
  Press('-', MK_SHIFT);
  const std::string anchor = Heard() == "B E" ? "-" : Selected().substr(0, 1);
  return caret + " " + anchor + " " + selected;
}

ItemHandle TreeTest::Item(char name) const {
  for (const auto& [item, label] : client.labels) {
    if (label == std::string(1, name)) return item;
  }
  return 0;
}

std::string TreeTest::Selected() const {
  std::string names;
  const int count = view->GetSelectedCount();
  for (int place = 0; place < count; ++place) names += client.Name(view->GetSelectedItem(place));
  return names;
}

std::basic_string<WCHAR> TreeTest::TextOf(ItemHandle item) const {
  WCHAR text[100] = {};
  TVITEMW record = {};
  record.mask = TVIF_TEXT;
  record.hItem = Native(item);
  record.pszText = text;
  record.cchTextMax = 100;
  Ask(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&record));
  return text;
}

LRESULT TreeTest::PressAt(POINT point, WPARAM keys) {
  // The control waits for the button to come up before it answers the press.
  PostMessageW(control, WM_LBUTTONUP, keys, Pack(point));
  const LRESULT result = Ask(WM_LBUTTONDOWN, keys | MK_LBUTTON, Pack(point));
  PumpMessages();
  return result;
}

LRESULT TreeTest::Key(WPARAM key, WPARAM modifiers) {
  HoldDown(modifiers);
  const LRESULT result = Ask(WM_KEYDOWN, key, 1);
  HoldDown(0);
  return result;
}

void TreeTest::HoldDown(WPARAM modifiers) {
  BYTE keys[256] = {};
  if (modifiers & MK_SHIFT) keys[VK_SHIFT] = 0x80;
  if (modifiers & MK_CONTROL) keys[VK_CONTROL] = 0x80;
  SetKeyboardState(keys);
}

void TreeTest::RequestMenu(POINT point) {
  Ask(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(control), Pack(ToScreen(point)));
}

LRESULT TreeTest::Notify(NMHDR& record, UINT code, int id) {
  record = {control, static_cast<UINT_PTR>(static_cast<INT_PTR>(id)), code};
  return SendMessageW(GetParent(control), WM_NOTIFY, record.idFrom,
                      reinterpret_cast<LPARAM>(&record));
}

LRESULT TreeTest::NotifyOf(ItemHandle item, UINT code, int id) {
  NMTREEVIEWW record = {};
  record.itemNew.hItem = Native(item);
  return Notify(record.hdr, code, id);
}

RECT TreeTest::ItemRect(ItemHandle item, bool labelOnly) const {
  union {
    ItemHandle asked;
    RECT rect;
  } record = {item};
  EXPECT_TRUE(Ask(TVM_GETITEMRECT, labelOnly, reinterpret_cast<LPARAM>(&record)))
      << client.Name(item) << " is not shown";
  return record.rect;
}

POINT TreeTest::LabelPoint(ItemHandle item) const {
  const RECT label = ItemRect(item);
  return {(label.left + label.right) / 2, (label.top + label.bottom) / 2};
}

POINT TreeTest::OffPoint() const {
  RECT area;
  GetClientRect(control, &area);
  return {area.right / 2, area.bottom - 2};
}

POINT TreeTest::ToScreen(POINT point) const {
  ClientToScreen(control, &point);
  return point;
}

TVHITTESTINFO TreeTest::HitAt(POINT point) const {
  TVHITTESTINFO hit = {};
  hit.pt = point;
  Ask(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
  return hit;
}

POINT TreeTest::PartPoint(ItemHandle item, UINT parts) const {
  const RECT row = ItemRect(item, false);
  POINT point = {row.left, (row.top + row.bottom) / 2};
  for (; point.x < row.right; ++point.x) {
    if (HitAt(point).flags & parts) return point;
  }
  ADD_FAILURE() << client.Name(item) << " has no such part";
  return point;
}

ForwardWatch::ForwardWatch() : patch("CallWindowProcW", &CountingCall) { forwards = 0; }

int ForwardWatch::Count() const { return forwards; }
