// The shell's context menu object: two commands.
#include "menu.h"
#include "shell.h"

namespace winsim {
namespace {

class ShellMenu final : public ShellObject<IContextMenu2> {
 public:
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
  bool Is(REFIID riid) const override {
    return riid == IID_IContextMenu || riid == IID_IContextMenu2;
  }
};

}  // namespace

IContextMenu* MakeShellMenu() { return new ShellMenu; }

}  // namespace winsim
