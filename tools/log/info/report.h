#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/code_page.h"
#include "tools/log/info/gaps.h"
#include "tools/log/info/run_statistics.h"
#include "tools/log/reading/csv_log.h"
#include "tools/log/runs/clock_jump.h"
#include "tools/log/runs/log_run.h"

namespace tolvane::logtool {

/// A run as the reports tell it.
struct RunReport {
  const LogRun& run;
  const RunStatistics& statistics;
  const JudgedRun& judged;
  const std::vector<std::uint64_t>& frames_of_files;
  std::vector<std::string> seams;  // OddSeams
  const CsvLog::Mended& mended;
  const ClockJump& clock;
  bool mends_clock;
  double multiple;  // by which gaps were judged
};

/// A table for people, in UTF-8. `number` is the run's, from 1.
[[nodiscard]] std::string TableOf(const RunReport& report, std::size_t number,
                                  platform::CodePage& code_page);

/// An object of JSON for programs.
[[nodiscard]] std::string JsonOf(const RunReport& report, platform::CodePage& code_page);

/// As the log writes it: with three digits, or eight and a star.
[[nodiscard]] std::string IdentifierText(const IdentifierStatistics& identifier);
/// The number form of the log.
[[nodiscard]] std::string NumberText(double number);
/// Such as "0, 8".
[[nodiscard]] std::string LengthsText(std::uint32_t lengths);

}  // namespace tolvane::logtool
