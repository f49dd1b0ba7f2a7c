// What the shell's folders and menu objects have in common.
#pragma once

#include <shlobj.h>

namespace winsim {

// The number of shell objects.
int& LiveInterfaces();

// Deleted with its last reference.
template <class Interface>
class ShellObject : public Interface {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override {
    const bool known = riid == IID_IUnknown || Is(riid);
    *object = known ? static_cast<Interface*>(this) : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references;
    if (left == 0) delete this;
    return left;
  }

 protected:
  ShellObject() { ++LiveInterfaces(); }
  virtual ~ShellObject() { --LiveInterfaces(); }

 private:
  virtual bool Is(REFIID riid) const = 0;

  ULONG references = 1;
};

}  // namespace winsim
