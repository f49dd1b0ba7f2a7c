// Owner of one reference to a COM interface.
#pragma once

#include <memory>

struct ComReleaser {
  template <class Interface>
  void operator()(Interface* object) const {
    object->Release();
  }
};

template <class Interface>
using ComPtr = std::unique_ptr<Interface, ComReleaser>;
