#pragma once

#include "simulator/bench_config.h"
#include "tests/soak/expected_log.h"

namespace tolvane::soak {

/// Of the one adapter that a bench file plugs in; the first kind that it has.
[[nodiscard]] inline AdapterTime TimeOfAdapter(const simulator::BenchConfig& config) {
  if (!config.canusb.empty()) {
    return {simulator::kCanusbStamps, config.canusb.front().adapter.clock, 1};
  }
  if (!config.ifcan.empty()) {
    const simulator::ClockFaults& clock = config.ifcan.front().adapter.clock;
    simulator::StampUnit stamps = simulator::kIfcanStamps;
    if (clock.wrap > 0) stamps.range = clock.wrap;
    return {stamps, clock, 1000};
  }
  return {simulator::kCanlibStamps, config.canlib.front().adapter.clock, 1};
}

}  // namespace tolvane::soak
