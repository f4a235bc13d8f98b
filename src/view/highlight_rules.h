#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace tolvane::highlight_rules {

/// A highlight counter after one tick of `interval` ms. It stops at the lowest number instead of
/// going round: on a stopped message nothing else ends its fall.
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

/// True when the cycle moved from `stored` to `measured`, above 0, by `ratio` percent or more of
/// the new one, up or down. Without a stored cycle nothing has moved.
[[nodiscard]] constexpr bool IsLate(double stored, double measured, std::int32_t ratio) {
  if (!(stored > 0.0)) return false;
  const double percent = stored / measured * 100.0;
  return percent >= 100.0 + ratio || percent <= 100.0 - ratio;
}

}  // namespace tolvane::highlight_rules
