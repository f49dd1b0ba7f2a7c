// The shell's context menu object: two commands.
#include "menu.h"
#include "shell.h"

namespace winsim {
namespace {

class ShellMenu final : public IContextMenu2 {
 public:
  ShellMenu() { ++LiveInterfaces(); }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override {
    const bool known =
        riid == IID_IUnknown || riid == IID_IContextMenu || riid == IID_IContextMenu2;
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

  HRESULT STDMETHODCALLTYPE QueryContextMenu(HMENU menu, UINT, UINT first, UINT last,
                                             UINT) override {
    if (last < first + 1) {
      return E_FAIL;
    }
    AddMenuEntries(menu, 2);
    return MAKE_HRESULT(0, 0, 2);
  }

  HRESULT STDMETHODCALLTYPE InvokeCommand(CMINVOKECOMMANDINFO*) override { return S_OK; }

  HRESULT STDMETHODCALLTYPE GetCommandString(UINT_PTR, UINT, UINT*, LPSTR, UINT) override {
    return E_NOTIMPL;
  }

  HRESULT STDMETHODCALLTYPE HandleMenuMsg(UINT, WPARAM, LPARAM) override { return S_OK; }

 private:
  ~ShellMenu() { --LiveInterfaces(); }

  ULONG references_ = 1;
};

}  // namespace

IContextMenu* MakeShellMenu() { return new ShellMenu; }

}  // namespace winsim
