#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace tolvane::bench {

/// The main function of a measuring program: its words are what it measures, called `subject` in
/// the usage, and a number of rounds.
template <typename Measure>
int MeasureInRounds(int count, wchar_t** arguments, const char* program, const char* subject,
                    Measure measure) {
  const int rounds = count == 3 ? _wtoi(arguments[2]) : 0;
  if (rounds < 1) {
    std::fprintf(stderr, "usage: %s %s ROUNDS\n", program, subject);
    return EXIT_FAILURE;
  }
  return measure(arguments[1], rounds);
}

/// How long `work` takes.
template <typename Work>
double Microseconds(Work work) {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point began = Clock::now();
  work();
  return std::chrono::duration<double, std::micro>(Clock::now() - began).count();
}

/// The middle one of `values`, at least one; they are put into another order.
inline double Median(std::vector<double>& values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::ranges::nth_element(values, middle);
  return *middle;
}

}  // namespace tolvane::bench
