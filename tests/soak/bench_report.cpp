#include "tests/soak/bench_report.h"

#include <cmath>

#include "simulator/values.h"

namespace tolvane::soak {
namespace {

/// The number behind " key=" in a line, 0 when it is not there.
double Value(std::string_view line, const std::string& key) {
  const std::string mark = " " + key + "=";
  const std::size_t found = line.find(mark);
  if (found == std::string_view::npos) return 0;
  const std::string_view rest = line.substr(found + mark.size());
  return simulator::ParseDecimal(rest.substr(0, rest.find_first_of(" \r"))).value_or(0);
}

std::int64_t Count(std::string_view line, const std::string& key) {
  return std::llround(Value(line, key));
}

std::int64_t Microseconds(std::string_view line, const std::string& key) {
  return std::llround(Value(line, key) * 1000);
}

}  // namespace

std::optional<BenchRun> LastRun(std::string_view report) {
  std::optional<BenchRun> run;
  while (!report.empty()) {
    const std::size_t end = report.find('\n');
    const std::string_view line = report.substr(0, end);
    report.remove_prefix(end == std::string_view::npos ? report.size() : end + 1);
    if (line.find(" run ") != std::string_view::npos) {
      run = BenchRun{.delivered = Count(line, "delivered"),
                     .dropped = Count(line, "dropped"),
                     .high_water = Count(line, "queue_high_water"),
                     .longest_gap_us = Microseconds(line, "longest_gap_ms")};
    } else if (run && line.find(" gap ") != std::string_view::npos) {
      const bool behind_frame = line.find(" behind=frame ") != std::string_view::npos;
      (behind_frame ? run->behind_frame : run->behind_empty_read)
          .push_back({.us = Microseconds(line, "ms"),
                      .delivered = Count(line, "delivered"),
                      .at_us = Microseconds(line, "at_ms")});
    }
  }
  return run;
}

}  // namespace tolvane::soak
