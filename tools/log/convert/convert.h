#pragma once

#include <cstdint>
#include <optional>

#include "tools/log/convert/formats.h"
#include "tools/log/runs/run_reader.h"

namespace tolvane::logtool {

enum class Format : std::uint8_t { kCandump, kAsc, kCsv };

/// What became of a run.
struct Converted {
  bool is_written;  // false when the sink did not take everything
  std::uint64_t frames = 0;
  std::uint64_t long_lengths = 0;    // above 8, with eight bytes
  std::uint64_t negative_times = 0;  // written as 0
  std::uint64_t steps_back = 0;      // times before that of the frame ahead
};

/// Writes what is left to read of a run.
[[nodiscard]] Converted Convert(RunReader& reader, Format format,
                                const std::optional<TimeAnchor>& anchor, ByteSink& out);

/// How the moment that the run's first file with a record tells, which is that of its writing, and
/// the last time in it give the begin of the time line. `unix_seconds` as in Outside. Empty for a
/// head without such a moment, and where the line would begin before 1970.
[[nodiscard]] std::optional<TimeAnchor> AnchorOf(
    const LogRun& run, LogFiles& files, bool mends_clock,
    std::optional<std::int64_t> (*unix_seconds)(const platform::LocalTime& time));

}  // namespace tolvane::logtool
