#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tests/soak/bench_report.h"
#include "tests/soak/moments.h"

namespace tolvane::soak {

// What the program did in a gap, as far as its reads tell.
inline constexpr const char* kSearchAndFlush = "search and flush";
inline constexpr const char* kFlush = "flush";
inline constexpr const char* kEvents = "events (tick with its paint, clicks)";
inline constexpr const char* kBetweenFrames = "between two frames";

struct CausedGap {
  simulator::ReadGap gap;
  const char* cause = "";
};

/// All gaps that were kept, the longest one first. `first_logs` are the logs, counted from 1, that
/// begin an hour: ahead of each the program looks for a free name from the hour's first on. Each
/// other log has the name behind the last one's.
[[nodiscard]] std::vector<CausedGap> GapsByLength(const BenchRun& run,
                                                  const std::vector<std::int64_t>& first_logs);

/// Those of a cause, in their order.
[[nodiscard]] std::vector<CausedGap> OfCause(const std::vector<CausedGap>& gaps,
                                             std::string_view cause);

/// Such as "12.9 ms: flush, 9.1 ms without a processor".
[[nodiscard]] std::string Told(const CausedGap& caused, const std::vector<Moment>& moments);

/// In few words: what the program did, and what held it up for half of the gap or more.
[[nodiscard]] std::string MainCause(const CausedGap& caused, const std::vector<Moment>& moments);

}  // namespace tolvane::soak
