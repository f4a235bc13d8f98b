#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "simulator/bench_config.h"
#include "tests/soak/bench_report.h"

namespace tolvane::soak {

/// What is to be judged: the bench file, what the bench counted, and the logs in their order.
struct SoakEvidence {
  simulator::BenchConfig config;
  BenchRun counts;
  std::vector<std::string> logs;
  bool ids29;
};

struct SoakVerdict {
  std::vector<std::string> lines;  // the report
  bool passed;
};

/// Passed when every frame of the plan was delivered and is in the logs, nothing was overrun,
/// and no gap between two reads was longer than a quarter of the time that the queue covers.
[[nodiscard]] SoakVerdict Judge(const SoakEvidence& evidence);

/// Gaps after the frame that filled a log file, in which the program wrote that file.
[[nodiscard]] std::vector<simulator::ReadGap> Flushes(const BenchRun& run);

}  // namespace tolvane::soak
