// What the benchmarks that check themselves share: times, budgets, results.

#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <vector>

namespace tessera {

template <class Work>
double milliseconds(Work work) {
  using Steady = std::chrono::steady_clock;
  const auto start = Steady::now();
  work();
  return std::chrono::duration<double, std::milli>(Steady::now() - start).count();
}

// What must hold: there is a time.
inline double median(std::vector<double> times) {
  const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
  std::nth_element(times.begin(), middle, times.end());
  return *middle;
}

inline bool check(const char* what, double measured, double budget, const char* unit) {
  const bool ok = measured <= budget;
  std::printf("%-46s %9.3f %-4s budget %6.1f  %s\n", what, measured, unit, budget, ok ? "ok" : "MISSED");
  return ok;
}

inline bool expect(const char* what, bool holds) {
  if (!holds) std::printf("WRONG RESULT: %s\n", what);
  return holds;
}

}  // namespace tessera
