#include "support/tree_gestures.h"

void TreeTest::OpenEmpty(std::uint32_t style) {
  client.labels.clear();
  ASSERT_NO_FATAL_FAILURE(OpenView(style));
  SetFocus(control);
  PumpMessages();
  client.Take();
}

void TreeTest::InsertBranches(const std::string& pairs) {
  for (std::size_t i = 0; i < pairs.size(); i += 3) {
    const WCHAR name[] = {static_cast<WCHAR>(pairs[i]), 0};
    Insert(name, pairs[i + 1] == '-' ? -1 : Item(pairs[i + 1]));
  }
  PumpMessages();
  client.Take();
}

void TreeTest::Open(std::uint32_t style) {
  ASSERT_NO_FATAL_FAILURE(OpenEmpty(style));
  InsertBranches("P- Q- R- S-");
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

LRESULT TreeTest::PressAt(POINT point, WPARAM keys) {
  const LPARAM packed = MAKELPARAM(point.x, point.y);
  // The control waits for the release before it answers the press.
  PostMessageW(control, WM_LBUTTONUP, keys, packed);
  const LRESULT result = Ask(WM_LBUTTONDOWN, keys | MK_LBUTTON, packed);
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
