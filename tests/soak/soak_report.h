#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "simulator/bench_config.h"
#include "tests/soak/bench_report.h"
#include "tests/soak/expected_page.h"
#include "tests/soak/log_comparison.h"
#include "tests/soak/memory_use.h"
#include "tests/soak/moments.h"

namespace tolvane::soak {

/// What is to be judged.
struct SoakEvidence {
  simulator::BenchConfig config;
  BenchRun counts;  // of the bench
  ComparedLogs logs;
  std::vector<std::int64_t> first_logs;    // those that begin an hour, counted from 1
  std::int64_t taken = 0;                  // names that were taken ahead
  std::vector<std::string> changed_names;  // of them, those that did not stay as they were
  ComparedPage page;                       // at the end of the run
  std::vector<Moment> moments;             // of the program's process
  MemoryUse memory;                        // and its memory
};

enum class SoakOutcome {
  kPassed,       // every frame of the plan was delivered and is in the logs
  kLostAndTold,  // all but the overruns, and these alone are missing
  kFailed,
};

struct SoakVerdict {
  std::vector<std::string> lines;  // the report
  std::string row;  // its cells for docs/soak.md, from the memory to the longest gaps
  SoakOutcome outcome;
};

/// Whatever was lost, the rest must be there, on the page too, no taken name may have been written
/// over, and memory must have stayed as it was behind the first minute. The longest gaps and the
/// losses are told with their causes, beside the time that the queue covers.
[[nodiscard]] SoakVerdict Judge(const SoakEvidence& evidence);

}  // namespace tolvane::soak
