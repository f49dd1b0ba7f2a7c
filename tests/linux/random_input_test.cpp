// What the fuzzer found stays mended, and some more random inputs find nothing.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t length);

namespace {

using Bytes = std::vector<std::uint8_t>;

TEST(RandomInput, DoesNoHarm) {
  std::vector<Bytes> inputs;
  for (const auto& entry : std::filesystem::directory_iterator(QVL_FUZZ_FINDINGS)) {
    std::ifstream file(entry.path(), std::ios::binary);
    inputs.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  ASSERT_FALSE(inputs.empty());
  std::mt19937 engine(1);
  for (int i = 0; i < 400; ++i) {
    for (auto& byte : inputs.emplace_back(400)) byte = static_cast<std::uint8_t>(engine());
  }
  for (const Bytes& input : inputs) {
    SCOPED_TRACE(&input - inputs.data());
    LLVMFuzzerTestOneInput(input.data(), input.size());
  }
}

}  // namespace
