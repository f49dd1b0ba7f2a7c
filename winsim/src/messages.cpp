#include "messages.h"

#include <algorithm>
#include <chrono>
#include <list>

#include "keyboard.h"
#include "window.h"

namespace winsim {
namespace {

std::list<MSG>& Queue() {
  static std::list<MSG> queue;
  return queue;
}

DWORD lastPosition = 0;
LONG lastTime = 0;
bool quitPosted = false;
int quitCode = 0;

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
  lastPosition = static_cast<DWORD>(MAKELONG(found->pt.x, found->pt.y));
  lastTime = static_cast<LONG>(found->time);
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

void FillNow(MSG* message) {
  message->time = GetTickCount();
  GetCursorPos(&message->pt);
}

LRESULT DefaultText(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
  const auto window = ShareWindow(handle);
  if (!window) {
    return 0;
  }
  if (message == WM_SETTEXT) {
    const auto text = reinterpret_cast<LPCWSTR>(lParam);
    window->text = text ? text : u"";
    return TRUE;
  }
  if (message == WM_GETTEXT) {
    return GetWindowTextW(handle, reinterpret_cast<LPWSTR>(lParam), static_cast<int>(wParam));
  }
  return static_cast<LRESULT>(window->text.size());
}

LRESULT PassToParent(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const Window* known = FindWindow(window);
  return known && (known->style & WS_CHILD) && known->parent
             ? SendMessageW(known->parent, message, wParam, lParam)
             : 0;
}

// Letting go of the right button asks for the context menu where the mouse is.
LRESULT RightButtonUp(HWND window, LPARAM lParam) {
  POINT point = {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
  ClientToScreen(window, &point);
  SendMessageW(window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window),
               MAKELPARAM(point.x, point.y));
  return 0;
}

}  // namespace

void ForgetMessagesOf(HWND window) {
  Queue().remove_if([window](const MSG& message) { return message.hwnd == window; });
}

void ForgetAllMessages() {
  Queue().clear();
  quitPosted = false;
  lastPosition = 0;
}

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
  FillNow(&posted);
  Queue().push_back(posted);
  return TRUE;
}

void WINAPI PostQuitMessage(int exitCode) {
  quitPosted = true;
  quitCode = exitCode;
}

BOOL WINAPI PeekMessageW(LPMSG message, HWND window, UINT first, UINT last, UINT remove) {
  if (TakePosted(message, window, first, last, (remove & PM_REMOVE) != 0)) {
    return TRUE;
  }
  if (quitPosted && !window) {
    *message = {};
    message->message = WM_QUIT;
    message->wParam = static_cast<WPARAM>(quitCode);
    quitPosted = !(remove & PM_REMOVE);
    return TRUE;
  }
  return TakePaint(message, window, first, last);
}

// With nothing left to wait for, the loop ends: nobody else could wake it up.
BOOL WINAPI GetMessageW(LPMSG message, HWND window, UINT first, UINT last) {
  if (!PeekMessageW(message, window, first, last, PM_REMOVE)) {
    *message = {};
    message->message = WM_QUIT;
  }
  return message->message != WM_QUIT;
}

BOOL WINAPI TranslateMessage(const MSG*) { return FALSE; }

LRESULT WINAPI DispatchMessageW(const MSG* message) {
  if (!message->hwnd) {
    return 0;
  }
  return SendMessageW(message->hwnd, message->message, message->wParam, message->lParam);
}

DWORD WINAPI GetMessagePos() { return lastPosition; }

LONG WINAPI GetMessageTime() { return lastTime; }

LRESULT WINAPI DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_NCCREATE:
      return TRUE;
    case WM_SETTEXT:
    case WM_GETTEXT:
    case WM_GETTEXTLENGTH:
      return DefaultText(window, message, wParam, lParam);
    case WM_PAINT:
      ValidateRect(window, nullptr);
      return 0;
    case WM_CLOSE:
      DestroyWindow(window);
      return 0;
    case WM_SETREDRAW:
      ChangeStyle(window, WS_VISIBLE, wParam ? WS_VISIBLE : 0);
      return 0;
    case WM_RBUTTONUP:
      return RightButtonUp(window, lParam);
    case WM_CONTEXTMENU:
    case WM_PARENTNOTIFY:
      return PassToParent(window, message, wParam, lParam);
    default:
      return 0;
  }
}
