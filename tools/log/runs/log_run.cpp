#include "tools/log/runs/log_run.h"

#include <algorithm>
#include <span>
#include <string_view>
#include <utility>

#include "tools/log/reading/ascii.h"
#include "tools/log/reading/csv_log.h"

namespace tolvane::logtool {

namespace {

constexpr std::string_view kIsWorkbook =
    "this is a workbook, and only csv logs are read; have it saved as one";

/// Bytes at a file's end in which its last record is looked for, and again where there is none:
/// ahead of it stand zeros of any length, and behind it bad lines.
constexpr std::size_t kTails[] = {std::size_t{1} << 16, 2 * LineSource::kLine_MAX,
                                  16 * LineSource::kLine_MAX};

bool IsWorkbook(std::string_view path) { return EndsWith(path, ".xls") || EndsWith(path, ".xlsx"); }

/// Faults of records are passed over: they are told when the run is read.
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

/// Of the last record in the last `tail` bytes. A file that has a record has one behind its head,
/// so no line of the head is the last one, whatever a comment looks like.
std::optional<double> LastTimeIn(std::size_t tail, ByteSource& bytes, bool with_mark) {
  if (!bytes.SkipToLast(tail)) return {};
  LineSource lines(bytes);
  std::string_view line;
  std::optional<double> time;
  static_cast<void>(lines.Next(line));  // the rest of a line
  while (lines.Next(line) == LineSource::Outcome::kLine) {
    LogFrame frame;
    LineTraits traits;
    if (ReadRecordLine(line, with_mark, frame, traits) == LineFault::kNone) time = frame.time;
  }
  return time;
}

std::optional<double> LastTime(ByteSource& bytes, bool with_mark) {
  for (const std::size_t tail : kTails) {
    if (const auto time = LastTimeIn(tail, bytes, with_mark)) return time;
  }
  return {};
}

bool IsFull(const std::string& path, LogFiles& files) {
  const auto file = files.Open(path);
  if (file.bytes == nullptr) return false;
  CsvLog log(*file.bytes);
  if (!log.ReadHead()) return false;
  std::uint64_t records = 0;
  LogFrame frame;
  while (!log.IsBroken()) {
    const CsvLog::Outcome outcome = log.Next(frame);
    if (outcome == CsvLog::Outcome::kEnd) break;
    ++records;  // a bad line was one too
  }
  return records >= kRecordsOfFullFile;
}

std::optional<LogFile> LookInto(const std::string& path, LogFiles& files, Complaints& complaints) {
  const auto opened = files.Open(path);
  if (opened.bytes == nullptr) {
    complaints.Tell(path, 0, opened.why_not);
    return {};
  }
  CsvLog log(*opened.bytes);
  if (!log.ReadHead()) {
    const bool is_workbook = log.Line() > 0 && IsWorkbook(path);
    complaints.Tell(path, is_workbook ? 0 : log.Line(), is_workbook ? kIsWorkbook : log.Fault());
    return {};
  }
  LogFile file{path, log.Head(), FirstTime(log), {}, opened.identity};
  if (file.begins) file.ends = LastTime(*opened.bytes, file.head.with_mark);
  return file;
}

/// The path by which a file has been named already; null for one that has not. A file of which the
/// system tells no identity is known by the same path alone.
const std::string* EarlierPath(const LogFile& file, const std::vector<LogRun>& runs) {
  for (const LogRun& run : runs) {
    for (const LogFile& before : run.files) {
      if (before.path == file.path || (file.identity && before.identity == file.identity)) {
        return &before.path;
      }
    }
  }
  return nullptr;
}

bool BeginsRun(const LogFile& file, const LogRun& run, LogFiles& files) {
  if (!file.head.IsOfRunOf(run.Head())) return true;
  if (!file.begins) return false;  // the end of a run may have none
  const auto last = std::find_if(run.files.rbegin(), run.files.rend(),
                                 [](const LogFile& before) { return before.ends.has_value(); });
  const bool is_first = last == run.files.rend();
  if (*file.begins == 0.0) return is_first || *last->ends != 0.0 || !IsFull(last->path, files);
  return !is_first && *file.begins < *last->ends;
}

bool HasRecord(const LogFile& file) { return file.begins.has_value(); }

}  // namespace

std::size_t LogRun::FirstWithRecord() const {
  const auto first = std::ranges::find_if(files, HasRecord);
  return first == files.end() ? 0 : static_cast<std::size_t>(first - files.begin());
}

bool LogRun::HasRecordBehind(std::size_t place) const {
  return std::ranges::any_of(std::span(files).subspan(place + 1), HasRecord);
}

std::optional<double> LogRun::Begins() const { return files[FirstWithRecord()].begins; }

std::vector<LogRun> FindRuns(const std::vector<std::string>& paths, LogFiles& files,
                             Complaints& complaints) {
  std::vector<LogRun> runs;
  for (const std::string& path : paths) {
    auto file = LookInto(path, files, complaints);
    if (complaints.EndReading()) break;
    if (!file) continue;
    if (const std::string* const earlier = EarlierPath(*file, runs); earlier != nullptr) {
      const std::string other = *earlier == path ? "" : ", also as " + *earlier;
      complaints.Tell(path, 0, "this file is named twice" + other);
      if (complaints.EndReading()) break;
      continue;
    }
    if (runs.empty()) {
      runs.emplace_back();
    } else if (BeginsRun(*file, runs.back(), files)) {
      runs.push_back({.files = {}, .before = runs.back().files.back().path});
    }
    runs.back().files.push_back(*std::move(file));
  }
  return runs;
}

}  // namespace tolvane::logtool
