#include "tools/log/info/cycle_statistics.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tolvane::logtool {

double CycleStatistics::MedianAbove(double limit) const {
  std::vector<Row> rows;
  std::ranges::copy_if(rows_, std::back_inserter(rows),
                       [&](const Row& row) { return row.count > 0 && row.Mean() > limit; });
  std::ranges::sort(rows, {}, &Row::key);
  std::uint64_t left = (CountAbove(limit) + 1) / 2;
  for (const Row& row : rows) {
    if (row.count >= left) return row.Mean();
    left -= row.count;
  }
  return 0.0;
}

std::uint64_t CycleStatistics::CountAbove(double limit) const {
  std::uint64_t count = 0;
  for (const Row& row : rows_) {
    if (row.count > 0 && row.Mean() > limit) count += row.count;
  }
  return count;
}

std::uint64_t CycleStatistics::Between(double low, double high) const {
  std::uint64_t count = 0;
  for (const Row& row : rows_) {
    if (row.count > 0 && row.Mean() >= low && row.Mean() <= high) count += row.count;
  }
  return count;
}

void CycleStatistics::Grow() {
  const std::vector<Row> old = std::exchange(rows_, std::vector<Row>(rows_.size() * 2));
  for (const Row& row : old) {
    if (row.count > 0) RowOf(row.key) = row;
  }
}

double FramesLostIn(double length, double cycle) {
  return cycle > 0.0 ? std::max(0.0, std::round(length / cycle) - 1.0) : 0.0;
}

}  // namespace tolvane::logtool
