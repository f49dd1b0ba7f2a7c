#include "rounds.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <iterator>
#include <stdexcept>

namespace {

constexpr int kWidth = 300;
constexpr int kHeight = 400;
constexpr int kItemsForOneReading = 100000;

// Drawing that a step leaves behind happens between the steps.
void PumpMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

HWND MakeHost() {
  WNDCLASSW hostClass{};
  hostClass.lpfnWndProc = DefWindowProcW;
  hostClass.hInstance = GetModuleHandleW(nullptr);
  hostClass.lpszClassName = L"QVLBenchHost";
  RegisterClassW(&hostClass);
  const HWND host =
      CreateWindowExW(0, L"QVLBenchHost", L"bench", WS_POPUP | WS_CLIPCHILDREN, 50, 50, 2 * kWidth,
                      kHeight, nullptr, nullptr, hostClass.hInstance, nullptr);
  if (!host) throw std::runtime_error("cannot create a window; is there a display?");
  ShowWindow(host, SW_SHOWNOACTIVATE);
  return host;
}

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

std::vector<double> Ratios(const std::vector<double>& dividends,
                           const std::vector<double>& divisors) {
  std::vector<double> ratios;
  std::transform(dividends.begin(), dividends.end(), divisors.begin(), std::back_inserter(ratios),
                 std::divides<>());
  return ratios;
}

}  // namespace

Pair::Pair(Kind kindOfBoth, bool icons) : kind(kindOfBoth), host(MakeHost()) {
  const RECT left{0, 0, kWidth, kHeight};
  const RECT right{kWidth, 0, 2 * kWidth, kHeight};
  bare = kind == Kind::kList ? MakeBareList(icons, host, left) : MakeBareTree(icons, host, left);
  library = MakeLibrarySide(kind, icons, host, right);
  PumpMessages();
}

Pair::~Pair() {
  bare.reset();
  library.reset();
  DestroyWindow(host);
}

std::vector<Figure> Pair::Run(const std::vector<Step>& steps, int size, int rounds) {
  std::vector<std::vector<double>> bareTimes(steps.size());
  std::vector<std::vector<double>> viewTimes(steps.size());
  for (int round = 0; round < rounds; ++round) {
    for (std::size_t i = 0; i < steps.size(); ++i) {
      const bool bareFirst = (round + static_cast<int>(i)) % 2 == 0;
      Side& first = bareFirst ? *bare : *library;
      Side& second = bareFirst ? *library : *bare;
      const auto [firstTime, secondTime] = Time(steps[i], first, second, size);
      bareTimes[i].push_back(bareFirst ? firstTime : secondTime);
      viewTimes[i].push_back(bareFirst ? secondTime : firstTime);
    }
  }
  std::vector<Figure> figures;
  for (std::size_t i = 0; i < steps.size(); ++i) {
    if (!steps[i].measured) continue;
    figures.push_back({kind, steps[i].operation, size, Median(bareTimes[i]), Median(viewTimes[i]),
                       Median(Ratios(viewTimes[i], bareTimes[i]))});
  }
  return figures;
}

// A step that fills takes memory. The first side is emptied before the second one runs, so that
// both find the same memory free.
std::pair<double, double> Pair::Time(const Step& step, Side& first, Side& second, int size) const {
  const double firstTime = Time(step, first, size);
  const std::int64_t calls = first.calls;
  if (step.fills) first.DeleteAllItems();
  const double secondTime = Time(step, second, size);
  first.calls = calls;
  Compare(step.operation);
  if (step.fills) step.run(first);
  return {firstTime, secondTime};
}

double Pair::Time(const Step& step, Side& side, int size) {
  using Clock = std::chrono::steady_clock;
  const int runs = step.readsOnly ? std::max(kItemsForOneReading / size, 1) : 1;
  if (step.prepare) step.prepare(side);
  PumpMessages();
  side.calls = 0;
  side.found = 0;
  const auto start = Clock::now();
  for (int run = 0; run < runs; ++run) step.run(side);
  const std::chrono::duration<double, std::micro> time = Clock::now() - start;
  PumpMessages();
  return time.count() / runs / size;
}

void Pair::Compare(const std::string& operation) const {
  if (bare->calls == library->calls && bare->found == library->found) return;
  throw std::runtime_error(operation + ": the bare loop had " + std::to_string(bare->calls) +
                           " calls and found " + std::to_string(bare->found) + ", the library " +
                           std::to_string(library->calls) + " and " +
                           std::to_string(library->found));
}
