#include "shell/context_menu.h"

#include "shell/shell_object.h"
#include "window/menu.h"

namespace winsim {
namespace {

constexpr int kCommands = 2;

class ShellMenu final : public ShellObject<IContextMenu2> {
 public:
  HRESULT STDMETHODCALLTYPE QueryContextMenu(HMENU menu, UINT, UINT first, UINT last,
                                             UINT) override {
    if (last < first + kCommands - 1) return E_FAIL;
    AddMenuEntries(menu, kCommands);
    return kCommands;
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
