// Prints the figures as a table for the terminal and for Markdown.
#pragma once

#include "rounds.h"

void PrintTable(const char* title, const std::vector<Figure>& figures);
