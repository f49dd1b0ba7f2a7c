#include "window/window_class.h"

#include <list>

#include "system/text.h"

namespace winsim {
namespace {

std::list<WindowClass>& Classes() {
  static std::list<WindowClass> classes;
  return classes;
}

}  // namespace

const WindowClass* FindClass(LPCWSTR name) {
  const bool byAtom = IS_INTRESOURCE(name);
  for (const WindowClass& known : Classes()) {
    if (byAtom ? known.atom == reinterpret_cast<ULONG_PTR>(name)
               : ToLower(known.name) == ToLower(name)) {
      return &known;
    }
  }
  return nullptr;
}

ATOM AddClass(LPCWSTR name, WNDPROC procedure, MakeControl makeControl) {
  static ATOM last = 0xC000;
  Classes().push_back({name, procedure, makeControl, ++last});
  return last;
}

}  // namespace winsim

using namespace winsim;

ATOM WINAPI RegisterClassW(const WNDCLASSW* windowClass) {
  const LPCWSTR name = windowClass ? windowClass->lpszClassName : nullptr;
  if (!name || FindClass(name)) return 0;
  return AddClass(name, windowClass->lpfnWndProc, nullptr);
}
