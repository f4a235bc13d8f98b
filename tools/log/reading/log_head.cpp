#include "tools/log/reading/log_head.h"

#include <string_view>
#include <vector>

#include "logging/csv_head.h"
#include "tools/log/reading/ascii.h"

namespace tolvane::logtool {

namespace {

constexpr StringView kColumns11 = AsciiTail(kCsvColumns11);
constexpr StringView kColumns29 = AsciiTail(kCsvColumns29);
constexpr StringView kBitRate = AsciiHead(kCsvBitRate);
constexpr StringView kBitRateEnd = AsciiTail(kCsvBitRate);

// Only a settings file brings line ends into a comment, which has fifty characters.
constexpr std::size_t kLines_MAX = 8 + 50;
constexpr std::size_t kWrittenLine = 2;
constexpr std::size_t kAdapterLine = 3;
constexpr std::size_t kCommentLine = 5;
constexpr std::size_t kLinesBehindComment = 1;

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
  if (lines.size() > kWrittenLine) ReadWrittenLine(lines[kWrittenLine], head);
  if (lines.size() > kAdapterLine) head.adapter = lines[kAdapterLine];
  for (std::size_t i = kCommentLine; i + kLinesBehindComment < lines.size(); ++i) {
    if (i > kCommentLine) head.comment += ' ';
    head.comment += lines[i];
  }
  return head;
}

}  // namespace

std::optional<LogHead> ReadLogHead(LineSource& source) {
  std::vector<std::string> lines;
  std::string_view line;
  while (lines.size() < kLines_MAX && source.Next(line) == LineSource::Outcome::kLine) {
    if (line.ends_with(kBytesOf<kColumns11>)) return HeadOf(lines, false);
    if (line.ends_with(kBytesOf<kColumns29>)) return HeadOf(lines, true);
    lines.emplace_back(line);
  }
  return {};
}

}  // namespace tolvane::logtool
