// Runs the same steps with both sides in turn and measures the time of each.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "side.h"

struct Step {
  std::string operation;
  std::function<void(Side&)> run;
  std::function<void(Side&)> prepare = {};  // before each run, not measured
  bool readsOnly = false;                   // repeated until the clock can measure it
  bool fills = false;                       // starts with an empty view
  bool measured = true;
};

// Microseconds for each item, and the ratio library to bare; medians of all rounds. The two sides
// of a round run under the same load, so the median of the ratios is better than the ratio of the
// medians.
struct Figure {
  Kind kind;
  std::string operation;
  int size;
  double bareTime;
  double viewTime;
  double ratio;
};

// A host's window with both sides in it.
class Pair {
 public:
  Pair(Kind kind, bool icons);
  ~Pair();
  Pair(const Pair&) = delete;
  Pair& operator=(const Pair&) = delete;

  // Throws if the two sides count different calls or items in a step, because loops that do
  // different work cannot be compared.
  std::vector<Figure> Run(const std::vector<Step>& steps, int size, int rounds);

 private:
  std::pair<double, double> Time(const Step& step, Side& first, Side& second, int size) const;
  static double Time(const Step& step, Side& side, int size);
  void Compare(const std::string& operation) const;

  const Kind kind;
  HWND host = nullptr;
  std::unique_ptr<Side> bare;
  std::unique_ptr<Side> library;
};
