#include "window/message_queue.h"

#include <algorithm>
#include <list>

#include "window/window.h"

namespace winsim {
namespace {

std::list<MSG>& Queue() {
  static std::list<MSG> queue;
  return queue;
}

bool Matches(const MSG& message, HWND window, UINT first, UINT last) {
  const bool ofWindow = !window || message.hwnd == window || IsInside(message.hwnd, window);
  const bool inRange =
      (first == 0 && last == 0) || (message.message >= first && message.message <= last);
  return ofWindow && inRange;
}

bool TakePosted(MSG* message, HWND window, UINT first, UINT last, bool remove) {
  auto& queue = Queue();
  const auto found = std::ranges::find_if(
      queue, [&](const MSG& queued) { return Matches(queued, window, first, last); });
  if (found == queue.end()) return false;
  *message = *found;
  if (remove) queue.erase(found);
  return true;
}

// An invalid window gets WM_PAINT when no other message is queued.
bool TakePaint(MSG* message, HWND window, UINT first, UINT last) {
  for (HWND candidate : AllWindows()) {
    MSG paint = {};
    paint.hwnd = candidate;
    paint.message = WM_PAINT;
    if (FindWindow(candidate)->invalid && IsWindowVisible(candidate) &&
        Matches(paint, window, first, last)) {
      *message = paint;
      return true;
    }
  }
  return false;
}

}  // namespace

void ForgetMessagesOf(HWND window) {
  Queue().remove_if([window](const MSG& message) { return message.hwnd == window; });
}

void ForgetAllMessages() { Queue().clear(); }

}  // namespace winsim

using namespace winsim;

BOOL WINAPI PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (window && !FindWindow(window)) return FALSE;
  MSG posted = {};
  posted.hwnd = window;
  posted.message = message;
  posted.wParam = wParam;
  posted.lParam = lParam;
  Queue().push_back(posted);
  return TRUE;
}

BOOL WINAPI PeekMessageW(MSG* message, HWND window, UINT first, UINT last, UINT remove) {
  return TakePosted(message, window, first, last, (remove & PM_REMOVE) != 0) ||
         TakePaint(message, window, first, last);
}
