#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tools/log/reading/log_head.h"
#include "tools/log/runs/complaints.h"
#include "tools/log/runs/log_files.h"

namespace tolvane::logtool {

struct LogFile {
  std::string path;
  LogHead head;
  std::optional<double> begins;  // the time of its first record; none without a record
};

/// The files of a run in their order, at least one.
struct LogRun {
  std::vector<LogFile> files;

  [[nodiscard]] const LogHead& Head() const { return files.front().head; }
  /// False when the files ahead of these are missing: the first frame of a run has the time 0.
  [[nodiscard]] bool IsWholeAtItsBegin() const { return files.front().begins.value_or(0.0) == 0.0; }
};

/// Looks into files that are in the order of their writing, and tells the runs apart: one begins
/// with a record of time 0, or where a head says something else than the one before it.
[[nodiscard]] std::vector<LogRun> FindRuns(const std::vector<std::string>& paths, LogFiles& files,
                                           Complaints& complaints);

}  // namespace tolvane::logtool
