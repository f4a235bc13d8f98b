#include "tools/log/info/judged_identifier.h"

#include <algorithm>
#include <cmath>

namespace tolvane::logtool {

namespace {

constexpr std::uint64_t kCycles_MIN = 2;
/// More than one in so many cycles is often enough for a rate; a few of a short log are not.
constexpr std::uint64_t kOfSlowRate = 20;
constexpr std::uint64_t kOfSlowRate_MIN = 20;

/// Whether three in four of `count` cycles are like this one; above a limit, of those above it.
bool AreLike(double cycle, const CycleStatistics& cycles, std::uint64_t count, double limit) {
  const double least = std::max(std::nextafter(limit, HUGE_VAL), cycle / 2);
  return cycles.Between(least, cycle * 2) * 4 >= count * 3;
}

/// The cycle of the slower one of two rates; that of the only one.
double SlowCycle(const CycleStatistics& cycles, double cycle, double multiple) {
  const double limit = multiple * cycle;
  const std::uint64_t too_long = cycles.CountAbove(limit);
  if (too_long < kOfSlowRate_MIN || too_long * kOfSlowRate <= cycles.Count()) return cycle;
  const double slow = cycles.MedianAbove(limit);
  return AreLike(slow, cycles, too_long, limit) ? slow : cycle;
}

}  // namespace

JudgedIdentifier JudgedByItsCycles(const IdentifierStatistics& statistics, double multiple) {
  const CycleStatistics& cycles = statistics.cycles;
  JudgedIdentifier judged{.statistics = &statistics, .cycle = 0.0, .regular = false, .slow = 0.0};
  if (cycles.Count() < kCycles_MIN) return judged;
  judged.cycle = cycles.Median();
  judged.regular = judged.cycle > 0.0 && AreLike(judged.cycle, cycles, cycles.Count(), 0.0);
  judged.slow = SlowCycle(cycles, judged.cycle, multiple);
  return judged;
}

}  // namespace tolvane::logtool
