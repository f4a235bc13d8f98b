#include "tools/log/reading/log_head.h"

#include <string_view>
#include <vector>

#include "logging/csv_head.h"
#include "run/elm327_info.h"
#include "tools/log/reading/ascii.h"

namespace tolvane::logtool {

namespace {

constexpr StringView kColumns11 = AsciiTail(kCsvColumns11);
constexpr StringView kColumns29 = AsciiTail(kCsvColumns29);
constexpr StringView kBitRate = AsciiHead(kCsvBitRate);
constexpr StringView kBitRateEnd = AsciiTail(kCsvBitRate);

// Only a settings file brings line ends into a comment.
constexpr std::size_t kLines_MAX = kCsvHeadLines + kLogComment_MAX;

void ReadWrittenLine(std::string_view line, LogHead& head) {
  const std::size_t end = line.find(kBytesOf<kBitRate>);
  head.written = line.substr(0, end);
  if (end == std::string_view::npos) return;
  line.remove_prefix(end + kBytesOf<kBitRate>.size());
  const std::size_t rate = line.find(kBytesOf<kBitRateEnd>);
  if (rate != std::string_view::npos) head.bit_rate = line.substr(rate + 1);
}

LogHead HeadOf(const std::vector<std::string>& lines, bool with_mark) {
  LogHead head;
  head.with_mark = with_mark;
  head.lines = lines.size() + 1;
  if (!lines.empty()) head.program = lines[0].substr(0, lines[0].find(kBytesOf<kCsvCopyrightGap>));
  if (lines.size() > kCsvWrittenLine) ReadWrittenLine(lines[kCsvWrittenLine], head);
  if (lines.size() > kCsvAdapterLine) head.adapter = lines[kCsvAdapterLine];
  constexpr std::size_t kLinesBehindComment = kCsvColumnsLine - kCsvCommentLine - 1;
  for (std::size_t i = kCsvCommentLine; i + kLinesBehindComment < lines.size(); ++i) {
    if (i > kCsvCommentLine) head.comment += ' ';
    head.comment += lines[i];
  }
  return head;
}

}  // namespace

HeadOutcome ReadLogHead(LineSource& source, LogHead& head) {
  std::vector<std::string> lines;
  std::string_view line;
  while (lines.size() < kLines_MAX) {
    const LineSource::Outcome outcome = source.Next(line);
    if (outcome == LineSource::Outcome::kUnreadable) return HeadOutcome::kUnreadable;
    if (outcome != LineSource::Outcome::kLine) return HeadOutcome::kNoLog;
    const bool with_mark = line.ends_with(kBytesOf<kColumns29>);
    if (with_mark || line.ends_with(kBytesOf<kColumns11>)) {
      head = HeadOf(lines, with_mark);
      return HeadOutcome::kHead;
    }
    lines.emplace_back(line);
  }
  return HeadOutcome::kNoLog;
}

}  // namespace tolvane::logtool
