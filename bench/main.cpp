// bench [rounds [largest]]: measures the library against the bare controls and prints a table.
#include "plan.h"
#include "table.h"

#include <cstdio>
#include <cstdlib>
#include <exception>

namespace {

constexpr int kSizes[] = {1000, 10000, 100000};
constexpr int kLargestTree = 10000;
constexpr int kLargestWithIcons = 10000;
constexpr int kLargestSlowFill = 1000;

void Append(std::vector<Figure>& figures, const std::vector<Figure>& more) {
  figures.insert(figures.end(), more.begin(), more.end());
}

// Small views take little time, which needs more rounds.
int RoundsFor(int size, int rounds) { return size <= 1000 ? 3 * rounds : rounds; }

std::vector<Figure> Measure(Kind kind, int rounds, int largest) {
  std::vector<Figure> figures;
  for (const int size : kSizes) {
    if (size > largest) break;
    const int wanted = RoundsFor(size, rounds);
    Pair plain(kind, false);
    if (size <= kLargestSlowFill) {
      Append(figures, plain.Run(SlowFillSteps(kind, size), size, rounds));
    }
    Append(figures, plain.Run(WholeViewSteps(kind, size), size, wanted));
    if (size > kLargestWithIcons) continue;
    Pair icons(kind, true);
    Append(figures, icons.Run(IconSteps(size), size, rounds));
  }
  return figures;
}

}  // namespace

int main(int argc, char** argv) try {
  const int rounds = argc > 1 ? std::atoi(argv[1]) : 7;
  const int largest = argc > 2 ? std::atoi(argv[2]) : kSizes[2];
  PrintTable("List", Measure(Kind::kList, rounds, largest));
  PrintTable("Tree", Measure(Kind::kTree, rounds, largest < kLargestTree ? largest : kLargestTree));
  return 0;
} catch (const std::exception& error) {
  std::fprintf(stderr, "bench: %s\n", error.what());
  return 1;
}
