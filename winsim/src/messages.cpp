#include "messages.h"

#include <algorithm>
#include <list>

#include "window.h"

namespace winsim {
namespace {

std::list<MSG>& Queue() {
  static std::list<MSG> queue;
  return queue;
}

bool Matches(const MSG& message, HWND window, UINT first, UINT last) {
  const bool ofWindow = !window || message.hwnd == window || IsChild(window, message.hwnd);
  const bool inRange =
      (first == 0 && last == 0) || (message.message >= first && message.message <= last);
  return ofWindow && inRange;
}

bool TakePosted(MSG* message, HWND window, UINT first, UINT last, bool remove) {
  auto& queue = Queue();
  const auto found = std::find_if(queue.begin(), queue.end(), [&](const MSG& queued) {
    return Matches(queued, window, first, last);
  });
  if (found == queue.end()) {
    return false;
  }
  *message = *found;
  if (remove) {
    queue.erase(found);
  }
  return true;
}

// A window that waits to be painted is told so when nothing else is queued.
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

LRESULT KeepText(HWND handle, LPCWSTR text) {
  Window* window = FindWindow(handle);
  if (window) {
    window->text = text ? text : u"";
  }
  return window != nullptr;
}

LRESULT PassToParent(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const Window* known = FindWindow(window);
  return known && (known->style & WS_CHILD) && known->parent
             ? SendMessageW(known->parent, message, wParam, lParam)
             : 0;
}

}  // namespace

void ForgetMessagesOf(HWND window) {
  Queue().remove_if([window](const MSG& message) { return message.hwnd == window; });
}

void ForgetAllMessages() { Queue().clear(); }

}  // namespace winsim

using namespace winsim;

LRESULT WINAPI SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const auto known = ShareWindow(window);
  if (!known || !known->procedure) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return 0;
  }
  return known->procedure(window, message, wParam, lParam);
}

LRESULT WINAPI CallWindowProcW(WNDPROC procedure, HWND window, UINT message, WPARAM wParam,
                               LPARAM lParam) {
  return procedure ? procedure(window, message, wParam, lParam) : 0;
}

BOOL WINAPI PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (window && !FindWindow(window)) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  MSG posted = {};
  posted.hwnd = window;
  posted.message = message;
  posted.wParam = wParam;
  posted.lParam = lParam;
  Queue().push_back(posted);
  return TRUE;
}

BOOL WINAPI PeekMessageW(LPMSG message, HWND window, UINT first, UINT last, UINT remove) {
  if (TakePosted(message, window, first, last, (remove & PM_REMOVE) != 0)) {
    return TRUE;
  }
  return TakePaint(message, window, first, last);
}

// The mouse stays in the screen's corner.
DWORD WINAPI GetMessagePos() { return 0; }

BOOL WINAPI TranslateMessage(const MSG*) { return FALSE; }

LRESULT WINAPI DispatchMessageW(const MSG* message) {
  if (!message->hwnd) {
    return 0;
  }
  return SendMessageW(message->hwnd, message->message, message->wParam, message->lParam);
}

LRESULT WINAPI DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_NCCREATE:
      return TRUE;
    case WM_SETTEXT:
      return KeepText(window, reinterpret_cast<LPCWSTR>(lParam));
    case WM_PAINT:
      ValidateRect(window, nullptr);
      return 0;
    case WM_CONTEXTMENU:
    case WM_PARENTNOTIFY:
      return PassToParent(window, message, wParam, lParam);
    default:
      return 0;
  }
}
