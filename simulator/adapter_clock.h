#pragma once

#include <cstdint>
#include <vector>

namespace tolvane::simulator {

/// How a kind of adapter counts its time.
struct StampUnit {
  std::int64_t tick_us;  // bus microseconds per tick
  std::int64_t range;    // the count runs from 0 to range - 1 and starts over
};
inline constexpr StampUnit kCanusbStamps{1'000, 60'000};
/// The record's stamp is a word of 32 bits.
inline constexpr StampUnit kIfcanStamps{1, std::int64_t{1} << 32};
inline constexpr StampUnit kCanlibStamps{1'000, std::int64_t{1} << 32};

/// What is wrong with one adapter's clock.
struct ClockFaults {
  struct Step {
    std::int64_t at_us;  // bus time
    std::int64_t by_us;  // negative: the clock steps back
  };
  std::int64_t start = 0;  // ticks at bus time 0
  std::int64_t wrap = 0;   // ticks at which the count starts over, 0: where the unit says
  std::int64_t ppm = 0;    // positive: the clock runs fast
  std::vector<Step> steps{};
};

/// The adapter's stamp for a frame at `bus_us`, 0 or more. Stamps in the upper half of 32 bits are
/// returned as negative numbers, which is how programs read them.
std::int32_t Stamp(const StampUnit& unit, const ClockFaults& faults, std::int64_t bus_us);

}  // namespace tolvane::simulator
