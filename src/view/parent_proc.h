// What the parent windows of both views do with a message.
#pragma once

#include "core/qvl.h"
#include "shell/context_menu.h"
#include "view/requests.h"

// Serves a window whose user data holds a View. Messages that come before the view is stored there
// get default handling, and so does everything after the view's own part in it. Only a label edit
// answers for itself: HandleNotify says what WM_NOTIFY gives.
struct ViewParent {
  template <class View>
  static LRESULT Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* view = reinterpret_cast<View*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!view) return DefWindowProcW(window, message, wParam, lParam);
    switch (message) {
      case WM_DRAWITEM:
      case WM_MEASUREITEM:
      case WM_INITMENUPOPUP:
      case WM_MENUCHAR:
        if (view->activeContextMenu) {
          view->activeContextMenu->ForwardMenuMessage(message, wParam, lParam);
        }
        break;
      case WM_NOTIFY:
        return view->HandleNotify(window, wParam, lParam);
      case WM_CONTEXTMENU:
        if (view->client) RequestContextMenu(*view, view->owner, view->client, view->life, lParam);
        break;
      default:
        break;
    }
    return DefWindowProcW(window, message, wParam, lParam);
  }
};
