// The shell's context menu object: two commands, and a log of what reached it.
#include "shell.h"

namespace winsim {
namespace {

ShellMenuBehaviour behaviour;

class ShellMenu final : public IContextMenu2 {
 public:
  ShellMenu() { ++LiveInterfaces(); }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override {
    const bool second = riid == IID_IContextMenu2 && behaviour.offersContextMenu2;
    const bool known = second || riid == IID_IUnknown || riid == IID_IContextMenu;
    *object = known ? static_cast<IContextMenu2*>(this) : nullptr;
    if (known) {
      AddRef();
    }
    return known ? S_OK : E_NOINTERFACE;
  }

  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }

  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) {
      delete this;
    }
    return left;
  }

  HRESULT STDMETHODCALLTYPE QueryContextMenu(HMENU menu, UINT position, UINT first, UINT last,
                                             UINT) override {
    if (behaviour.failsToFillMenu || last < first + 1) {
      return E_FAIL;
    }
    InsertMenuW(menu, position, MF_BYPOSITION | MF_STRING, first, TEXT("Open"));
    InsertMenuW(menu, position + 1, MF_BYPOSITION | MF_STRING, first + 1, TEXT("Properties"));
    return MAKE_HRESULT(0, 0, 2);
  }

  HRESULT STDMETHODCALLTYPE InvokeCommand(CMINVOKECOMMANDINFO* info) override {
    ++ShellMenus().invocations;
    ShellMenus().lastInvocation = *info;
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE GetCommandString(UINT_PTR, UINT, UINT*, LPSTR, UINT) override {
    return E_NOTIMPL;
  }

  HRESULT STDMETHODCALLTYPE HandleMenuMsg(UINT message, WPARAM, LPARAM) override {
    ++ShellMenus().menuMessages;
    ShellMenus().lastMenuMessage = message;
    return S_OK;
  }

 private:
  ~ShellMenu() { --LiveInterfaces(); }

  ULONG references_ = 1;
};

}  // namespace

const ShellMenuBehaviour& MenuBehaviour() { return behaviour; }

void SetShellMenuBehaviour(const ShellMenuBehaviour& wanted) { behaviour = wanted; }

ShellMenuLog& ShellMenus() {
  static ShellMenuLog log;
  return log;
}

IContextMenu* MakeShellMenu(UINT itemCount) {
  ++ShellMenus().objects;
  ShellMenus().itemCount = itemCount;
  return new ShellMenu;
}

}  // namespace winsim
