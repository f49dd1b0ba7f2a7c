#include "table.h"

#include <cstdio>

namespace {

// Operations in the order in which they were first measured, each with its sizes together.
std::vector<Figure> Sorted(const std::vector<Figure>& figures) {
  std::vector<std::string> operations;
  std::vector<Figure> sorted;
  for (const Figure& figure : figures) {
    bool known = false;
    for (const std::string& operation : operations) known |= operation == figure.operation;
    if (known) continue;
    operations.push_back(figure.operation);
    for (const Figure& other : figures) {
      if (other.operation == figure.operation) sorted.push_back(other);
    }
  }
  return sorted;
}

std::string WithSeparator(int number) {
  char text[16];
  const char* const format = number < 1000 ? "%.0d%d" : "%d,%03d";
  std::snprintf(text, sizeof text, format, number / 1000, number % 1000);
  return text;
}

std::string Growth(const Figure& before, const Figure& figure) {
  if (before.operation != figure.operation) return "";
  char text[16];
  std::snprintf(text, sizeof text, "%.2f", figure.viewTime / before.viewTime);
  return text;
}

}  // namespace

void PrintTable(const char* title, const std::vector<Figure>& figures) {
  const std::vector<Figure> sorted = Sorted(figures);
  std::printf("| %-42s | %7s | %9s | %9s | %5s | %6s |\n", title, "items", "bare", "library",
              "ratio", "growth");
  std::printf("|:%s|-%s:|-%s:|-%s:|-%s:|-%s:|\n", std::string(43, '-').c_str(),
              std::string(7, '-').c_str(), std::string(9, '-').c_str(), std::string(9, '-').c_str(),
              std::string(5, '-').c_str(), std::string(6, '-').c_str());
  for (std::size_t i = 0; i < sorted.size(); ++i) {
    const Figure& figure = sorted[i];
    std::printf("| %-42s | %7s | %9.3f | %9.3f | %5.2f | %6s |\n", figure.operation.c_str(),
                WithSeparator(figure.size).c_str(), figure.bareTime, figure.viewTime, figure.ratio,
                i ? Growth(sorted[i - 1], figure).c_str() : "");
  }
  std::printf("\n");
  std::fflush(stdout);
}
