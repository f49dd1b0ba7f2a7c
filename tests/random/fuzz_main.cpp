// The fuzzer's entry: bytes decide what a hostile host does.
#include "random/hostile_host.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  PlayHostileHost(data, size);
  return 0;
}
