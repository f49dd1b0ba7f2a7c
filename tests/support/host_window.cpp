#include "support/host_window.h"

#include <windows.h>

#include <string>

namespace {

constexpr const WCHAR* HOST_CLASS = TEXT("QVLTestHost");

void RegisterHostClass() {
  WNDCLASSW windowClass = {};
  windowClass.lpfnWndProc = DefWindowProcW;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = HOST_CLASS;
  static const ATOM registered = RegisterClassW(&windowClass);
  ASSERT_NE(registered, 0);
}

}  // namespace

void PumpMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void HostTest::SetUp() {
  ASSERT_NO_FATAL_FAILURE(RegisterHostClass());
  host = CreateWindowExW(0, HOST_CLASS, TEXT("host"), WS_POPUP | WS_CLIPCHILDREN, 50, 50, WIDTH,
                         HEIGHT, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
  ASSERT_NE(host, nullptr);
  // An active window without a window manager costs two seconds when it goes.
  ShowWindow(host, SW_SHOWNOACTIVATE);
  view = GetIQVLTreeView();
  ASSERT_NE(view, nullptr);
  client.view = view;
  PumpMessages();
}

void HostTest::TearDown() {
  ReleaseView();
  if (host && IsWindow(host)) {
    DestroyWindow(host);
  }
  PumpMessages();
}

HWND HostTest::CreateView(std::uint32_t style, QVLTreeViewStyleExt* styleExt) {
  view->SetClient(&client);
  return view->Create(host, CONTROL_ID, 0, 0, WIDTH, HEIGHT, style, styleExt);
}

ItemHandle HostTest::Insert(const WCHAR* name, ItemHandle parent) {
  QVLTreeViewItem item;
  item.SetItemName(name);
  const ItemHandle handle = view->InsertItem(&item, parent);
  const std::basic_string<WCHAR> label = name;
  client.labels[handle].assign(label.begin(), label.end());
  return handle;
}

void HostTest::ReleaseView() {
  ReleaseIQVLTreeView(view);
  view = nullptr;
}
