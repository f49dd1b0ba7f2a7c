// Plays the same steps with both sides in turn and keeps the time of each.
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
  bool readsOnly = false;                   // is run often enough for the clock
  bool fills = false;                       // begins with an empty view
  bool measured = true;
};

// Microseconds an item and library by bare, the medians of all rounds. Both sides of a round share
// the machine's mood, so that the median of their ratios tells more than the ratio of the medians.
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

  // Ends the program if the two sides hear or find different things in a step: loops that do
  // different work can't be compared.
  std::vector<Figure> Play(const std::vector<Step>& steps, int size, int rounds);

 private:
  std::pair<double, double> Time(const Step& step, Side& first, Side& second, int size) const;
  static double Time(const Step& step, Side& side, int size);
  void Compare(const std::string& operation) const;

  const Kind kind;
  HWND host = nullptr;
  std::unique_ptr<Side> bare;
  std::unique_ptr<Side> library;
};
