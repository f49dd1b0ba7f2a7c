// Owner of one reference to an interface.
#ifndef QVL_PLATFORM_COM_PTR_H
#define QVL_PLATFORM_COM_PTR_H

#include <memory>

struct ComReleaser {
  template <class Interface>
  void operator()(Interface* object) const {
    object->Release();
  }
};

template <class Interface>
using ComPtr = std::unique_ptr<Interface, ComReleaser>;

#endif
