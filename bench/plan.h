// The steps that are measured, in their order.
#pragma once

#include "rounds.h"

// Fills a view, uses it and empties it again.
std::vector<Step> WholeViewSteps(Kind kind, int size);

// Fills a view with shell icons.
std::vector<Step> IconSteps(int size);

// Fills a view in the ways that docs/filling.md advises against: with drawing on, and into expanded
// branches.
std::vector<Step> SlowFillSteps(Kind kind, int size);
