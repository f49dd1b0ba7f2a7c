#include "bare_control.h"

#include <shellapi.h>

#include <stdexcept>

BareControl::BareControl(bool withIcons, const wchar_t* className, DWORD style, HWND host,
                         const RECT& place)
    : icons(withIcons) {
  WNDCLASSW parentClass{};
  parentClass.lpfnWndProc = &BareControl::Count;
  parentClass.hInstance = GetModuleHandleW(nullptr);
  parentClass.lpszClassName = L"QVLBenchParent";
  RegisterClassW(&parentClass);
  const int width = place.right - place.left;
  const int height = place.bottom - place.top;
  parent = CreateWindowExW(0, L"QVLBenchParent", L"", WS_CHILD | WS_VISIBLE, place.left, place.top,
                           width, height, host, nullptr, parentClass.hInstance, nullptr);
  const auto id = reinterpret_cast<HMENU>(static_cast<INT_PTR>(kControlId));
  control = CreateWindowExW(WS_EX_CLIENTEDGE, className, L"", WS_CHILD | WS_VISIBLE | style, 0, 0,
                            width, height, parent, id, parentClass.hInstance, nullptr);
  if (!control) throw std::runtime_error("the bare control could not be created");
  SetWindowLongPtrW(parent, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(static_cast<Side*>(this)));
}

BareControl::~BareControl() { DestroyWindow(parent); }

// Counts the callbacks that the library would make.
LRESULT CALLBACK BareControl::Count(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NOTIFY) {
    auto* side = reinterpret_cast<Side*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    const UINT code = reinterpret_cast<NMHDR*>(lParam)->code;
    if (side && code == LVN_ITEMCHANGED) side->calls += 3;
    if (side && (code == TVN_SELCHANGEDW || code == TVN_ITEMEXPANDEDW)) ++side->calls;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

namespace {

constexpr UINT kIconByName = SHGFI_SYSICONINDEX | SHGFI_SMALLICON | SHGFI_USEFILEATTRIBUTES;

}  // namespace

HIMAGELIST BareControl::SystemIcons() const {
  SHFILEINFOW info{};
  return reinterpret_cast<HIMAGELIST>(
      SHGetFileInfoW(L"*.exe", FILE_ATTRIBUTE_NORMAL, &info, sizeof info, kIconByName));
}

int BareControl::IconOf(const wchar_t* fileName) const {
  SHFILEINFOW info{};
  SHGetFileInfoW(fileName, FILE_ATTRIBUTE_NORMAL, &info, sizeof info, kIconByName);
  return info.iIcon;
}
