#pragma once

#include <cstdint>
#include <string>

#include "simulator/bench_config.h"
#include "tests/soak/expected_log.h"

namespace tolvane::soak {

/// What the logs of a run came to.
struct ComparedLogs {
  std::int64_t files = 0;
  std::int64_t records = 0;
  std::string difference{};  // the first one from what the bus said; empty without any
};

/// Holds the logs of a run, one after the other, against what its bench file says of the bus.
class LogComparison {
 public:
  LogComparison(const simulator::BenchConfig& config, bool ids29);

  /// The bytes of the next log, in the order of writing.
  void Add(const std::string& log);
  /// Behind the last log.
  [[nodiscard]] ComparedLogs Result() const;

 private:
  ExpectedLog expected_;
  ComparedLogs seen_;
};

}  // namespace tolvane::soak
