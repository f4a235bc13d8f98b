#pragma once

#include <string>
#include <vector>

#include "simulator/bench_config.h"
#include "tests/soak/bench_report.h"
#include "tests/soak/log_comparison.h"
#include "tests/soak/memory_use.h"
#include "tests/soak/moments.h"

namespace tolvane::soak {

/// What is to be judged.
struct SoakEvidence {
  simulator::BenchConfig config;
  BenchRun counts;  // of the bench
  ComparedLogs logs;
  std::vector<Moment> moments;  // of the program's process
  MemoryUse memory;             // and its memory
};

struct SoakVerdict {
  std::vector<std::string> lines;  // the report
  std::string row;  // its cells for docs/soak.md, from the memory to the longest gaps
  bool passed;
};

/// Passed when every frame of the plan was delivered and is in the logs, nothing was overrun, and
/// memory stayed as it was behind the first minute. The longest gaps are told with their causes,
/// beside the time that the queue covers.
[[nodiscard]] SoakVerdict Judge(const SoakEvidence& evidence);

/// Gaps after the frame that filled a log file, in which the program wrote that file.
[[nodiscard]] std::vector<simulator::ReadGap> Flushes(const BenchRun& run);

}  // namespace tolvane::soak
