#pragma once

#include <string>
#include <vector>

#include "simulator/bench_config.h"
#include "tests/soak/bench_report.h"
#include "tests/soak/log_comparison.h"
#include "tests/soak/moments.h"

namespace tolvane::soak {

/// What is to be judged.
struct SoakEvidence {
  simulator::BenchConfig config;
  BenchRun counts;  // of the bench
  ComparedLogs logs;
  std::vector<Moment> moments;  // of the program's process
};

struct SoakVerdict {
  std::vector<std::string> lines;  // the report
  std::string row;                 // its cells for docs/soak.md, from the queue to the longest gaps
  bool passed;
};

/// Passed when every frame of the plan was delivered and is in the logs, and nothing was overrun.
/// The longest gaps are told with their causes, beside the time that the queue covers.
[[nodiscard]] SoakVerdict Judge(const SoakEvidence& evidence);

/// Gaps after the frame that filled a log file, in which the program wrote that file.
[[nodiscard]] std::vector<simulator::ReadGap> Flushes(const BenchRun& run);

}  // namespace tolvane::soak
