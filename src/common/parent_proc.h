// The window procedure of the parent windows of both views.
#pragma once

#include "common/view_base.h"
#include "shell/context_menu.h"

// Handles a message to a window whose user data holds a View. Messages that come before the view is
// stored get default handling, and so does every message after the view's own part. WM_NOTIFY
// returns HandleNotification's result, which label edits need.
template <class View>
LRESULT HandleParentMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
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
      return view->HandleNotification(window, wParam, lParam);
    case WM_CONTEXTMENU:
      if (view->client) view->RequestContextMenu(lParam);
      break;
    case WM_DESTROY:
      // The host may destroy its window, and the control with it, before the view.
      view->FreeCheckBoxImages();
      break;
    default:
      break;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}
