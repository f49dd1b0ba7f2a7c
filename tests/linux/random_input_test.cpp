// Runs the fuzzer's findings and random bytes.
#include "random/random_input.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

namespace {

using Bytes = std::vector<std::uint8_t>;

void RunBytes(const Bytes& bytes) { RunRandomInput(bytes.data(), bytes.size()); }

TEST(RandomInput, FixedFindingsStayFixed) {
  int runs = 0;
  for (const auto& entry : std::filesystem::directory_iterator(QVL_FUZZ_FINDINGS)) {
    SCOPED_TRACE(entry.path().string());
    std::ifstream file(entry.path(), std::ios::binary);
    const Bytes bytes{std::istreambuf_iterator<char>(file), {}};
    RunBytes(bytes);
    ++runs;
  }
  EXPECT_GT(runs, 0);
}

TEST(RandomInput, RandomBytesDoNoHarm) {
  for (std::uint32_t seed = 1; seed <= 400; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 engine(seed);
    Bytes bytes(400);
    for (auto& byte : bytes) byte = static_cast<std::uint8_t>(engine());
    RunBytes(bytes);
  }
}

}  // namespace
