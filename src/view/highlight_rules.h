#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace tolvane::highlight_rules {

/// A highlight counter after one tick of `interval` ms. It stops at the lowest number instead of
/// wrapping: for a stopped message it is decremented without end.
[[nodiscard]] constexpr std::int32_t Fallen(std::int32_t counter, std::int32_t interval) {
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(
      std::clamp<std::int64_t>(std::int64_t{counter} - interval, Limits::min(), Limits::max()));
}

/// True when a message with the cycle `stored`, above 0, has been silent for more than
/// `ratio` percent of it. Times in ms of the computer's clock.
[[nodiscard]] constexpr bool IsStopped(double now, double last_read, double stored,
                                       std::int32_t ratio) {
  return (now - last_read) / stored * 100.0 > ratio;
}

/// True when the cycle changed from `stored` to `measured`, which is above 0, by `ratio` percent or
/// more of `measured`, up or down. False when no cycle is stored yet.
[[nodiscard]] constexpr bool IsLate(double stored, double measured, std::int32_t ratio) {
  if (!(stored > 0.0)) return false;
  const double percent = stored / measured * 100.0;
  return percent >= 100.0 + ratio || percent <= 100.0 - ratio;
}

}  // namespace tolvane::highlight_rules
