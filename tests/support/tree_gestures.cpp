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

// The modifier keys as the thread sees them, until the object ends.
class HeldKeys {
 public:
  HeldKeys(bool shift, bool control) {
    Hold(VK_SHIFT, shift);
    Hold(VK_CONTROL, control);
  }
  ~HeldKeys() {
    Hold(VK_SHIFT, false);
    Hold(VK_CONTROL, false);
  }
  HeldKeys(const HeldKeys&) = delete;
  HeldKeys& operator=(const HeldKeys&) = delete;

 private:
  static void Hold(int key, bool down) {
    BYTE keys[256];
    GetKeyboardState(keys);
    keys[key] = down ? 0x80 : 0;
    SetKeyboardState(keys);
  }
};

LPARAM Pack(POINT point) { return MAKELPARAM(point.x, point.y); }

}  // namespace

std::string Short(const Lines& lines) {
  const std::string report = "Changed ";
  std::string text;
  for (const std::string& line : lines) {
    if (!text.empty()) text += ' ';
    if (line == "Begin") {
      text += 'B';
    } else if (line == "End") {
      text += 'E';
    } else {
      text += line.starts_with(report) ? line.substr(report.size()) : line;
    }
  }
  return text;
}

void TreeTest::OpenEmpty(std::uint32_t style) {
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

ItemHandle TreeTest::Item(char name) const {
  for (const auto& [item, label] : client.labels) {
    if (label == std::string(1, name)) return item;
  }
  return 0;
}

void TreeTest::Given(const std::string& selected, char caret, char anchor) {
  Press(Item('P'));
  if (anchor != '-') {
    MoveCaret(Item(anchor));
    Press(Item(anchor), MK_SHIFT);
  }
  MoveCaret(Item(caret));
  view->ClearSelection();
  for (const char name : selected) view->SetItemSelected(Item(name), true);
  client.Take();
}

LRESULT TreeTest::PressAt(POINT point, WPARAM keys) {
  // The control waits for the button to come up before it answers the press.
  PostMessageW(control, WM_LBUTTONUP, keys, Pack(point));
  const LRESULT result = SendMessageW(control, WM_LBUTTONDOWN, keys | MK_LBUTTON, Pack(point));
  PumpMessages();
  return result;
}

LRESULT TreeTest::Press(ItemHandle item, WPARAM keys) { return PressAt(LabelPoint(item), keys); }

LRESULT TreeTest::PressOff(WPARAM keys) { return PressAt(OffPoint(), keys); }

LRESULT TreeTest::Key(WPARAM key, bool shift, bool withControl) {
  const HeldKeys held(shift, withControl);
  return SendMessageW(control, WM_KEYDOWN, key, 1);
}

void TreeTest::RequestMenu(POINT point) {
  SendMessageW(control, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(control), Pack(ToScreen(point)));
}

LRESULT TreeTest::Notify(NMHDR& record, UINT code, int id) {
  record = {control, static_cast<UINT_PTR>(static_cast<INT_PTR>(id)), code};
  return SendMessageW(GetParent(control), WM_NOTIFY, record.idFrom,
                      reinterpret_cast<LPARAM>(&record));
}

RECT TreeTest::ItemRect(ItemHandle item, bool labelOnly) const {
  union {
    ItemHandle asked;
    RECT rect;
  } record = {item};
  const LRESULT found = SendMessageW(control, TVM_GETITEMRECT, labelOnly ? TRUE : FALSE,
                                     reinterpret_cast<LPARAM>(&record));
  EXPECT_NE(found, 0) << client.Name(item) << " is not shown";
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

TVHITTESTINFO TreeTest::HitAt(POINT point) const {
  TVHITTESTINFO hit = {};
  hit.pt = point;
  SendMessageW(control, TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
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

POINT TreeTest::ToScreen(POINT point) const {
  ClientToScreen(control, &point);
  return point;
}

void TreeTest::MoveCaret(ItemHandle item) const {
  SendMessageW(control, TVM_SELECTITEM, TVGN_CARET, item);
}

ItemHandle TreeTest::CaretItem() const {
  return SendMessageW(control, TVM_GETNEXTITEM, TVGN_CARET, 0);
}

std::string TreeTest::Selected() const {
  std::string names;
  const int count = view->GetSelectedCount();
  for (int place = 0; place < count; ++place) names += client.Name(view->GetSelectedItem(place));
  return names;
}

std::string TreeTest::ObserveAnchor() {
  view->SetClient(&client);
  view->SetMultiSelect(true);
  MoveCaret(0);
  view->ClearSelection();
  client.Take();
  PressOff(MK_SHIFT);
  if (Heard() == "B E") return "-";
  const std::string stretch = Selected();
  return stretch.empty() ? "gone" : stretch.substr(0, 1);
}

ForwardWatch::ForwardWatch() : patch("CallWindowProcW", &CountingCall) { forwards = 0; }

int ForwardWatch::Count() const { return forwards; }
