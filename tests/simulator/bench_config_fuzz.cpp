#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "simulator/bench_config.h"

using tolvane::simulator::AdapterPlan;
using tolvane::simulator::BusFrame;

namespace {

/// What the engine relies on.
void CheckAdapter(const AdapterPlan& plan) {
  if (plan.tap.queue < 1 || plan.tap.queue > 1'000'000) std::abort();
  if (!(plan.tap.speed > 0) || plan.force_dlc > 255) std::abort();
  constexpr std::int64_t kHourUs = 3'600'000'000;
  for (const auto& unit : {tolvane::simulator::kCanusbStamps, tolvane::simulator::kIfcanStamps}) {
    const std::int32_t stamp = tolvane::simulator::Stamp(unit, plan.clock, kHourUs);
    const std::int64_t range = plan.clock.wrap > 0 ? plan.clock.wrap : unit.range;
    if (static_cast<std::uint32_t>(stamp) >= range) std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto config = tolvane::simulator::ReadBenchConfig(
      std::string_view(reinterpret_cast<const char*>(data), size));
  for (const auto& plan : config.canusb) CheckAdapter(plan.adapter);
  for (const auto& plan : config.ifcan) CheckAdapter(plan.adapter);
  for (const auto& plan : config.canlib) CheckAdapter(plan.adapter);
  tolvane::simulator::LoadGenerator generator(config.bus.load);
  BusFrame frame;
  std::int64_t last_us = 0;
  for (int i = 0; i < 50 && generator.Next(frame); ++i) {
    if (frame.time_us < last_us || frame.dlc > 8) std::abort();
    last_us = frame.time_us;
  }
  return 0;
}
