// The figures as a table that reads well in a terminal and in a page.
#pragma once

#include "rounds.h"

void PrintTable(const char* title, const std::vector<Figure>& figures);
