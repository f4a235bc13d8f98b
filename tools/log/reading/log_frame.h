#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "receive/adapters/id_limits.h"

namespace tolvane::logtool {

constexpr auto kStandardId_MAX = static_cast<std::uint32_t>(kMaxStandardID);
constexpr auto kExtendedId_MAX = static_cast<std::uint32_t>(kMaxExtendedID);

constexpr double kTime_MAX = 1e13;  // ms, three hundred years; no run gets there

/// One record of a log.
struct LogFrame {
  double time;       // ms on the run's time line, kTime_MAX at most, negative if a clock went back
  std::uint32_t id;  // at most kStandardId_MAX, kExtendedId_MAX of an extended frame
  bool extended;     // an identifier of 29 bits
  std::uint8_t bytes;   // of the data, 0 to 8
  std::int32_t length;  // as the adapter told it, unchecked
  std::array<std::uint8_t, 8> data;
};

}  // namespace tolvane::logtool
