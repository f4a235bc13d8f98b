#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "logging/log_table.h"
#include "tools/log/reading/log_head.h"
#include "tools/log/runs/complaints.h"
#include "tools/log/runs/log_files.h"

namespace tolvane::logtool {

/// The program then begins another file.
constexpr std::uint64_t kRecordsOfFullFile = LogTable::kRow_MAX + 1;

struct LogFile {
  std::string path;
  LogHead head;
  std::optional<double> begins;  // the time of its first record; none without a record
  std::optional<double> ends;    // that of its last one
  std::optional<FileIdentity> identity;
};

/// The files of a run in their order, at least one.
struct LogRun {
  std::vector<LogFile> files;
  std::string before = {};  // the last file of the run ahead; empty without one

  [[nodiscard]] const LogHead& Head() const { return files.front().head; }
  /// The place of the first file with a record; 0 without one. Files ahead of it can be of the run
  /// before.
  [[nodiscard]] std::size_t FirstWithRecord() const;
  /// Whether a file behind the one at this place has one.
  [[nodiscard]] bool HasRecordBehind(std::size_t place) const;
  /// The time of the first record; none without one.
  [[nodiscard]] std::optional<double> Begins() const;
  /// False when the files ahead of these are missing: the first frame of a run has the time 0.
  [[nodiscard]] bool IsWholeAtItsBegin() const { return Begins().value_or(0.0) == 0.0; }
};

/// Looks into files that are in the order of their writing, and tells the runs apart. One begins
/// where a head says something else than the one before it, where the time goes back from a file's
/// last record to the next one's first, and with a record of time 0. A run whose times are all 0,
/// as a board's can be, goes on behind a full file.
[[nodiscard]] std::vector<LogRun> FindRuns(const std::vector<std::string>& paths, LogFiles& files,
                                           Complaints& complaints);

}  // namespace tolvane::logtool
