#include "tests/soak/log_comparison.h"

#include <algorithm>

#include "tests/soak/adapter_times.h"

namespace tolvane::soak {

LogComparison::LogComparison(const simulator::BenchConfig& config, bool ids29)
    : expected_(config.bus.load, TimeOfAdapter(config), ids29) {}

void LogComparison::Add(const std::string& log) {
  ++seen_.files;
  seen_.records += std::count(log.begin(), log.end(), '\n') - ExpectedLog::kHeaderLines;
  const std::string records = expected_.NextFile();
  if (!seen_.difference.empty()) return;
  const std::string difference = FirstDifference(log, records);
  if (!difference.empty()) {
    seen_.difference = "file " + std::to_string(seen_.files) + ", " + difference;
  }
}

ComparedLogs LogComparison::Result() const {
  ComparedLogs result = seen_;
  if (result.files != expected_.Files() && result.difference.empty()) {
    result.difference = "file " + std::to_string(result.files) + ", the last: there should be " +
                        std::to_string(expected_.Files());
  }
  return result;
}

}  // namespace tolvane::soak
