// What is measured, in which order.
#pragma once

#include "rounds.h"

// Fills a view, uses it and empties it again.
std::vector<Step> WholeViewSteps(Kind kind, int size);

// Fills with the shell's icons.
std::vector<Step> IconSteps(int size);

// Fills as the guide for hosts advises against: with drawing on, and into expanded branches.
std::vector<Step> SlowFillSteps(Kind kind, int size);
