#include "tools/log/convert/convert.h"

#include <cmath>

#include "tools/log/convert/block_writer.h"
#include "tools/log/convert/moment.h"

namespace tolvane::logtool {

namespace {

template <typename FormatType>
Converted ConvertTo(FormatType format, RunReader& reader, ByteSink& out) {
  Converted result{.is_written = out.Write(format.Head())};
  BlockWriter lines(out);
  double last = -kTime_MAX;
  for (LogFrame frame; reader.Next(frame) && lines.IsGood(); last = frame.time) {
    ++result.frames;
    result.steps_back += frame.time < last ? 1 : 0;
    result.long_lengths += frame.length > 8 ? 1 : 0;
    result.negative_times += frame.time < 0.0 ? 1 : 0;
    lines.Take(format.Line(frame, lines.Line()));
  }
  result.is_written = lines.Conclude() && result.is_written;
  return result;
}

}  // namespace

std::int64_t MicrosecondsOf(double time) {
  // Halves are rounded up. No time of a log is so long that the sum would lose a µs.
  return time > 0.0 ? static_cast<std::int64_t>(time * 1000.0 + 0.5) : 0;
}

Converted Convert(RunReader& reader, Format format, const std::optional<TimeAnchor>& anchor,
                  ByteSink& out) {
  switch (format) {
    case Format::kCandump:
      return ConvertTo(CandumpFormat(anchor), reader, out);
    case Format::kAsc:
      return ConvertTo(AscFormat(anchor), reader, out);
    case Format::kCsv:
      return ConvertTo(CsvFormat(anchor), reader, out);
  }
  return {.is_written = false};
}

std::optional<TimeAnchor> AnchorOf(
    const LogRun& run, LogFiles& files, bool mends_clock,
    std::optional<std::int64_t> (*unix_seconds)(const platform::LocalTime& time)) {
  const LogFile& dated = run.files[run.FirstWithRecord()];
  const auto written = MomentOf(dated.head.written);
  const auto seconds = written ? unix_seconds(*written) : std::nullopt;
  if (!seconds) return {};
  const LogRun first_file{{dated}};
  NoSink nobody;  // the faults are told when the file is converted
  Complaints complaints(nobody, true);
  RunReader reader(first_file, files, complaints, mends_clock);
  double last = 0.0;
  for (LogFrame frame; reader.Next(frame);) last = frame.time;
  const auto before = static_cast<std::int64_t>(std::llround(last));
  const TimeAnchor anchor{.unix_ms = *seconds * 1000 - before,
                          .calendar_ms = CalendarMs(*written) - before};
  if (anchor.unix_ms < 0 || anchor.calendar_ms < 0) return {};
  return anchor;
}

}  // namespace tolvane::logtool
