#include "tools/log/runs/log_run.h"

#include <utility>

#include "tools/log/reading/csv_log.h"

namespace tolvane::logtool {

namespace {

/// What the faults of records are is told when they are read in earnest.
std::optional<double> FirstTime(CsvLog& log) {
  LogFrame frame;
  for (;;) {
    switch (log.Next(frame)) {
      case CsvLog::Outcome::kFrame:
        return frame.time;
      case CsvLog::Outcome::kEnd:
        return {};
      case CsvLog::Outcome::kFault:
        if (log.IsBroken()) return {};
    }
  }
}

std::optional<LogFile> LookInto(const std::string& path, LogFiles& files, Complaints& complaints) {
  const auto bytes = files.Open(path);
  if (bytes == nullptr) {
    complaints.Tell(path, 0, "this file cannot be opened");
    return {};
  }
  CsvLog log(*bytes);
  if (!log.ReadHead()) {
    complaints.Tell(path, log.Line(), log.Fault());
    return {};
  }
  return LogFile{path, log.Head(), FirstTime(log)};
}

bool BeginsRun(const LogFile& file, const LogFile& before) {
  return !file.head.IsOfRunOf(before.head) || (file.begins && *file.begins == 0.0);
}

}  // namespace

std::vector<LogRun> FindRuns(const std::vector<std::string>& paths, LogFiles& files,
                             Complaints& complaints) {
  std::vector<LogRun> runs;
  for (const std::string& path : paths) {
    auto file = LookInto(path, files, complaints);
    if (complaints.EndReading()) break;
    if (!file) continue;
    if (runs.empty() || BeginsRun(*file, runs.back().files.back())) runs.emplace_back();
    runs.back().files.push_back(*std::move(file));
  }
  return runs;
}

}  // namespace tolvane::logtool
