#include <algorithm>
#include <list>

#include "controls.h"
#include "window.h"

namespace winsim {
namespace {

std::list<WindowClass>& Classes() {
  static std::list<WindowClass> classes;
  return classes;
}

ATOM NextAtom() {
  static ATOM last = 0xC000;
  return ++last;
}

char16_t Lower(char16_t character) {
  return character >= u'A' && character <= u'Z' ? static_cast<char16_t>(character + 32) : character;
}

bool SameName(const std::u16string& a, LPCWSTR b) {
  const std::u16string other(b);
  return std::equal(a.begin(), a.end(), other.begin(), other.end(),
                    [](char16_t x, char16_t y) { return Lower(x) == Lower(y); });
}

void AddOwnClasses() {
  static bool done = false;
  if (!done) {
    done = true;
    AddTreeControlClass();
    AddListControlClass();
    AddToolTipClass();
    AddEditClass();
    AddHeaderClass();
  }
}

}  // namespace

const WindowClass* FindClass(LPCWSTR name) {
  AddOwnClasses();
  for (const WindowClass& known : Classes()) {
    const bool byAtom = IS_INTRESOURCE(name);
    if (byAtom ? known.atom == reinterpret_cast<ULONG_PTR>(name) : SameName(known.name, name)) {
      return &known;
    }
  }
  return nullptr;
}

void AddControlClass(const char16_t* name, std::shared_ptr<Control> (*make)(HWND)) {
  WindowClass added;
  added.name = name;
  added.procedure = &ControlProcedure;
  added.atom = NextAtom();
  added.makeControl = make;
  Classes().push_back(std::move(added));
}

}  // namespace winsim

using namespace winsim;

ATOM WINAPI RegisterClassW(const WNDCLASSW* windowClass) {
  if (!windowClass || !windowClass->lpszClassName) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
  }
  if (FindClass(windowClass->lpszClassName)) {
    SetLastError(ERROR_CLASS_ALREADY_EXISTS);
    return 0;
  }
  WindowClass added;
  added.name = windowClass->lpszClassName;
  added.procedure = windowClass->lpfnWndProc;
  added.atom = NextAtom();
  Classes().push_back(std::move(added));
  return Classes().back().atom;
}

ULONG_PTR WINAPI GetClassLongPtrW(HWND window, int index) {
  const Window* known = FindWindow(window);
  const bool asked = known && index == GCLP_WNDPROC;
  return asked ? reinterpret_cast<ULONG_PTR>(known->windowClass->procedure) : 0;
}

int WINAPI GetClassNameW(HWND window, LPWSTR name, int size) {
  const Window* known = FindWindow(window);
  if (!known || size <= 0) {
    return 0;
  }
  const std::u16string& full = known->windowClass->name;
  const std::size_t length = std::min(full.size(), static_cast<std::size_t>(size - 1));
  std::copy_n(full.begin(), length, name);
  name[length] = 0;
  return static_cast<int>(length);
}
