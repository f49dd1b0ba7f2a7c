#pragma once

#include <string>

#include <shlobj.h>

namespace winsim {

// Live folders and menu objects.
int CountInterfaces();
int& LiveInterfaces();

// A folder or a menu object, which ends with its last reference.
template <class Interface>
class ShellObject : public Interface {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override {
    const bool known = riid == IID_IUnknown || Is(riid);
    *object = known ? static_cast<Interface*>(this) : nullptr;
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

 protected:
  ShellObject() { ++LiveInterfaces(); }
  virtual ~ShellObject() { --LiveInterfaces(); }

 private:
  virtual bool Is(REFIID riid) const = 0;

  ULONG references_ = 1;
};

IContextMenu* MakeShellMenu();
void ForgetShellFiles();

// Whether the name is a file for the shell: on disk, or one that a test added.
bool ShellFileExists(const std::u16string& path);

}  // namespace winsim
