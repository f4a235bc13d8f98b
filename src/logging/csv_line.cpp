#include "logging/csv_line.h"

#include <algorithm>

#include "platform/ascii_run.h"
#include "run/number_text.h"

namespace tolvane {

namespace {

constexpr std::size_t kTimeWidth = 10;  // a longer time is not cut

class LineWriter {
 public:
  explicit LineWriter(char* at) : at_(at) {}

  void Text(std::string_view text) { at_ = std::copy(text.begin(), text.end(), at_); }
  void Blanks(std::size_t count) { at_ = std::fill_n(at_, count, ' '); }
  void HexByte(std::uint8_t value) {
    *at_++ = static_cast<char>(HexCharacter(value >> 4));
    *at_++ = static_cast<char>(HexCharacter(value));
  }
  [[nodiscard]] const char* At() const { return at_; }

 private:
  char* at_;
};

}  // namespace

std::size_t WriteCsvLine(const LogRecord& record, std::string_view mark,
                         std::string_view identifier, char* line) {
  LineWriter writer(line);
  const ShortBytes time = DecimalText<char>(record.now_time);
  if (time.Length() < kTimeWidth) writer.Blanks(kTimeWidth - time.Length());
  writer.Text(time);
  writer.Text(kCsvGap);
  writer.Text(mark);
  writer.Text(identifier);
  writer.Text(kCsvGap);
  writer.Text(DecimalText<char>(std::int64_t{record.can_DLC}));
  const auto bytes = static_cast<std::size_t>(std::clamp(record.can_DLC, 0, 8));
  if (bytes > 0) writer.Text(kCsvBytesGap);
  for (std::size_t i = 0; i < bytes; ++i) {
    if (i > 0) writer.Text(kCsvByteGap);
    writer.HexByte(record.can_DATA[i]);
  }
  writer.Text("\r\n");
  return static_cast<std::size_t>(writer.At() - line);
}

void AppendCsvLine(std::span<const String, LogTable::kColumns> row, bool with_mark,
                   std::string& lines) {
  constexpr std::size_t kFirstByte = 4;
  const auto append = [&](std::size_t column) { AppendAsciiRun(row[column], lines); };
  if (row[0].size() < kTimeWidth) lines.append(kTimeWidth - row[0].size(), ' ');
  append(0);
  lines += kCsvGap;
  if (with_mark) lines += CsvMark29(row[1].empty() ? 0 : 1);
  append(2);
  lines += kCsvGap;
  append(3);
  for (std::size_t i = kFirstByte; i < row.size() && !row[i].empty(); ++i) {
    lines += i == kFirstByte ? kCsvBytesGap : kCsvByteGap;
    append(i);
  }
  lines += "\r\n";
}

}  // namespace tolvane
