#include "window/input.h"

#include <algorithm>
#include <array>
#include <utility>

#include "window/window.h"

namespace winsim {
namespace {

std::array<BYTE, 256> keys = {};
HWND focus = nullptr;

}  // namespace

void ForgetFocusOn(HWND window) {
  if (focus == window) focus = nullptr;
}

void ResetInput() {
  keys = {};
  focus = nullptr;
}

}  // namespace winsim

using namespace winsim;

// The window that loses the focus gets its message first, as on the platform.
HWND WINAPI SetFocus(HWND window) {
  if (window && !FindWindow(window)) return nullptr;
  if (focus == window) return focus;
  const HWND former = std::exchange(focus, window);
  SendMessageW(former, WM_KILLFOCUS, reinterpret_cast<WPARAM>(window), 0);
  if (focus == window) SendMessageW(window, WM_SETFOCUS, reinterpret_cast<WPARAM>(former), 0);
  return former;
}

HWND WINAPI GetFocus() { return focus; }

SHORT WINAPI GetKeyState(int key) {
  const BYTE state = keys[static_cast<std::size_t>(key & 0xFF)];
  return static_cast<SHORT>(((state & 0x80) ? 0xFF80 : 0) | (state & 0x01));
}

BOOL WINAPI SetKeyboardState(BYTE* state) {
  std::copy_n(state, keys.size(), keys.begin());
  return TRUE;
}
