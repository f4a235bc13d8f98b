#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/gap_record.h"

namespace tolvane::soak {

/// A short stretch of the program's life in which something came to it from outside, as the system
/// tells it. Sleep is looked for at the end alone, and then taken for the whole stretch but for the
/// time without a processor, so it is true of many moments and not of each.
struct Moment {
  std::int64_t at_us = 0;      // its end, on the clock of the bench's gaps
  std::int64_t over_us = 0;    // its length
  std::int64_t waited_us = 0;  // the program was ready and had no processor
  std::int64_t grown_kb = 0;   // memory that it used for the first time
  std::int64_t asleep_us = 0;  // it waited for Wine's services, the screen or the disk

  friend bool operator==(const Moment&, const Moment&) = default;
};

/// A line for a file of moments.
[[nodiscard]] std::string MomentLine(const Moment& moment);
/// The moments of such a file, in its order. A last line that is not whole is left out.
[[nodiscard]] std::vector<Moment> ReadMoments(std::string_view text);

/// What the moments within a gap come to. The moments lie in the order of their times. One that
/// began before the gap counts as a whole, but no time is longer than the gap.
[[nodiscard]] Moment Within(const simulator::ReadGap& gap, const std::vector<Moment>& moments);

}  // namespace tolvane::soak
