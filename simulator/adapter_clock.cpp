#include "simulator/adapter_clock.h"

namespace tolvane::simulator {

std::int32_t Stamp(const StampUnit& unit, const ClockFaults& faults, std::int64_t bus_us) {
  const std::int64_t range = faults.wrap > 0 ? faults.wrap : unit.range;
  constexpr std::int64_t kMillion = 1'000'000;
  std::int64_t clock_us =
      bus_us + bus_us / kMillion * faults.ppm + bus_us % kMillion * faults.ppm / kMillion;
  for (const ClockFaults::Step& step : faults.steps) {
    if (bus_us >= step.at_us) clock_us += step.by_us;
  }
  std::int64_t ticks = clock_us / unit.tick_us;
  if (clock_us % unit.tick_us < 0) --ticks;
  ticks = (faults.start % range + ticks % range) % range;
  if (ticks < 0) ticks += range;
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(ticks));
}

}  // namespace tolvane::simulator
