#include "tests/soak/log_comparison.h"

#include <algorithm>

#include "tests/soak/adapter_times.h"
#include "tests/soak/expected_log.h"

namespace tolvane::soak {

LogComparison::LogComparison(const simulator::BenchConfig& config, bool ids29,
                             std::int64_t overruns)
    : time_(TimeOfAdapter(config)),
      text_(time_, ids29),
      bus_(config.bus.load),
      page_(ids29),
      frames_(config.bus.load.frames),
      overruns_(overruns) {}

void LogComparison::Add(const std::string& log) {
  const std::string_view records = std::string_view(log).substr(HeaderSize(log));
  if (seen_.files > 0 && of_file_ != ExpectedLog::kRecordsPerFile) {
    Differ(of_file_ + 1, "", "a record ahead of the next file");
  }
  ++seen_.files;
  const std::int64_t before = seen_.records;
  of_file_ = 0;
  if (seen_.difference.empty()) CompareRecords(records);
  of_file_ = std::ranges::count(records, '\n');
  seen_.records = before + of_file_;
}

void LogComparison::CompareRecords(std::string_view records) {
  const std::string ahead = text_.BeginFile();
  if (!records.starts_with(ahead)) return Differ(1, records, ahead);
  records.remove_prefix(ahead.size());
  while (!records.empty()) {
    const std::size_t end = std::min(records.find('\n'), records.size() - 1) + 1;
    if (of_file_ == ExpectedLog::kRecordsPerFile) {
      return Differ(of_file_ + 1, records, "the end of the file");
    }
    if (!Take(records.substr(0, end))) return;
    records.remove_prefix(end);
    ++of_file_;
    ++seen_.records;
  }
}

/// False when it is of no frame that the program may have received next.
bool LogComparison::Take(std::string_view record) {
  std::string next;
  std::string text;
  simulator::BusFrame frame;
  for (std::int64_t passed = 0; passed <= overruns_ - seen_.lost; ++passed) {
    if (!bus_.Next(frame)) break;
    const LogText before = text_;
    text.clear();
    text_.Append(frame, text);
    if (text == record) {
      Lose(passed);
      page_.Receive(frame, text_.LineMs());
      return true;
    }
    text_ = before;
    if (passed == 0) next = text;
  }
  Differ(of_file_ + 1, record, next);
  return false;
}

void LogComparison::Differ(std::int64_t record, std::string_view found, std::string_view expected) {
  if (!seen_.difference.empty()) return;
  seen_.difference =
      "file " + std::to_string(seen_.files) + ", " + Difference(record, found, expected);
}

void LogComparison::Lose(std::int64_t frames) {
  if (frames == 0) return;
  seen_.lost += frames;
  seen_.losses.push_back({.behind = seen_.records, .frames = frames});
}

/// The last frames of the bus may be lost too, and then no record comes behind them.
ComparedLogs LogComparison::Result() {
  const std::int64_t files = (frames_ - overruns_) / ExpectedLog::kRecordsPerFile + 1;
  if (seen_.difference.empty() && seen_.files != files) {
    seen_.difference = "file " + std::to_string(seen_.files) + ", the last: there should be " +
                       std::to_string(files);
  }
  if (!seen_.difference.empty()) return seen_;
  const std::int64_t left = frames_ - seen_.records - seen_.lost;
  if (left <= overruns_ - seen_.lost) {
    Lose(left);
    return seen_;
  }
  simulator::BusFrame frame;
  std::string next;
  if (bus_.Next(frame)) text_.Append(frame, next);
  Differ(of_file_ + 1, "", next);
  return seen_;
}

}  // namespace tolvane::soak
