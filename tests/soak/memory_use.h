#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tolvane::soak {

/// How much memory a process had in use in the course of a run.
struct MemoryUse {
  /// More than a run may need behind its first minute, in which tables, pages and the buffers of a
  /// log have reached their size.
  static constexpr std::int64_t kGrowthKb = 1024;

  std::int64_t first_kb = 0;    // the most of the ten seconds in which the first minute ends
  std::int64_t most_kb = 0;     // the most from then on; at least first_kb
  std::int64_t last_kb = 0;     // at the end
  std::int64_t watched_us = 0;  // how long somebody looked

  [[nodiscard]] std::int64_t GrownKb() const { return most_kb - first_kb; }

  /// Whether it tells of a whole run of this length, which the watch begins ahead of and ends
  /// behind.
  [[nodiscard]] bool TellsOf(std::int64_t run_us) const;
  /// Whether it tells of that run, and that nothing has grown in it.
  [[nodiscard]] bool StayedIn(std::int64_t run_us) const {
    return TellsOf(run_us) && GrownKb() < kGrowthKb;
  }
};

/// A line for a file of memory: the most in use within the second that ended at this time.
[[nodiscard]] std::string MemoryLine(std::int64_t at_us, std::int64_t most_kb);
/// Of such a file, from whose first line on time is counted. What belongs to the first minute and
/// what is behind it is 0 for a run without one.
[[nodiscard]] MemoryUse ReadMemory(std::string_view text);

}  // namespace tolvane::soak
