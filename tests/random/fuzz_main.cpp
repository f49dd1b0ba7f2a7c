// The fuzzer's entry.
#include "random/random_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  RunRandomInput(data, size);
  return 0;
}
