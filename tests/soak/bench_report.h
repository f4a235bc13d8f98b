#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/gap_record.h"

namespace tolvane::soak {

/// What the simulated bench counted while the adapter was on the bus.
struct BenchRun {
  std::int64_t delivered = 0;
  std::int64_t dropped = 0;
  std::int64_t high_water = 0;
  std::int64_t longest_gap_us = 0;
  std::vector<simulator::ReadGap> behind_frame{};  // the longest gaps, the longest one first
  std::vector<simulator::ReadGap> behind_empty_read{};
};

/// The last run in a bench's report; the short ones before it are the search for adapters. Empty
/// when there is none.
[[nodiscard]] std::optional<BenchRun> LastRun(std::string_view report);

}  // namespace tolvane::soak
