// What the fuzzer found stays found, and every run of the tests looks a little further.
#include "random/hostile_host.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

namespace {

using Bytes = std::vector<std::uint8_t>;

void Play(const Bytes& bytes) { PlayHostileHost(bytes.data(), bytes.size()); }

TEST(HostileHost, FindingsStayMended) {
  int played = 0;
  for (const auto& entry : std::filesystem::directory_iterator(QVL_FUZZ_FINDINGS)) {
    SCOPED_TRACE(entry.path().string());
    std::ifstream file(entry.path(), std::ios::binary);
    const Bytes bytes{std::istreambuf_iterator<char>(file), {}};
    Play(bytes);
    ++played;
  }
  EXPECT_GT(played, 0);
}

TEST(HostileHost, DoesNoHarmAtRandom) {
  for (std::uint32_t seed = 1; seed <= 400; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 dice(seed);
    Bytes bytes(400);
    for (auto& byte : bytes) byte = static_cast<std::uint8_t>(dice());
    Play(bytes);
  }
}

}  // namespace
