#pragma once

#include "trace/trace_view.h"

#include <memory>
#include <ostream>
#include <vector>

// A random but repeatable story of two trees and two lists in one window. Every operation, what it
// gives, what the clients hear and what the items are afterwards comes out as text, so that two
// platforms can be compared line for line.
class TraceStory {
 public:
  TraceStory(HWND hostWindow, std::uint32_t seed, std::ostream& target);

  void Play(int steps);

 private:
  void Step(TraceView& chosen);
  std::string Operate(TraceView& chosen, int operation);
  std::string OperateOnItem(TraceView& chosen, int operation);
  std::string OperateOnView(TraceView& chosen, int operation);
  std::string Gesture(TraceView& chosen, int gesture);
  std::string Press(TraceView& chosen, UINT message);
  std::string Key(TraceView& chosen);
  POINT PointOn(TraceView& chosen, ItemHandle item);

  HWND host;
  Dice dice;
  std::ostream& out;
  std::vector<std::unique_ptr<TraceView>> views;
};
