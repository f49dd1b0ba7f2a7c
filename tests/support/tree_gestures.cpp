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

void TreeTest::OpenEmpty(std::uint32_t style) {
  client.labels.clear();
  ASSERT_NO_FATAL_FAILURE(OpenView(style));
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
