#include "logging/csv_line.h"

#include <algorithm>

#include "run/number_text.h"

namespace tolvane {

namespace {

constexpr std::size_t kTimeWidth = 10;  // a longer time is not cut

class LineWriter {
 public:
  explicit LineWriter(char16_t* at) : at_(at) {}

  void Text(StringView text) { at_ = std::copy(text.begin(), text.end(), at_); }
  void Blanks(std::size_t count) { at_ = std::fill_n(at_, count, u' '); }
  void HexByte(std::uint8_t value) {
    *at_++ = HexCharacter(value >> 4);
    *at_++ = HexCharacter(value);
  }
  [[nodiscard]] const char16_t* At() const { return at_; }

 private:
  char16_t* at_;
};

}  // namespace

std::size_t WriteCsvLine(const LogRecord& record, StringView mark, StringView identifier,
                         char16_t* line) {
  LineWriter writer(line);
  const ShortText time = DecimalText(record.now_time);
  if (time.Length() < kTimeWidth) writer.Blanks(kTimeWidth - time.Length());
  writer.Text(time);
  writer.Text(kCsvGap);
  writer.Text(mark);
  writer.Text(identifier);
  writer.Text(kCsvGap);
  writer.Text(DecimalText(std::int64_t{record.can_DLC}));
  const auto bytes = static_cast<std::size_t>(std::clamp(record.can_DLC, 0, 8));
  if (bytes > 0) writer.Text(kCsvBytesGap);
  for (std::size_t i = 0; i < bytes; ++i) {
    if (i > 0) writer.Text(kCsvByteGap);
    writer.HexByte(record.can_DATA[i]);
  }
  writer.Text(u"\r\n");
  return static_cast<std::size_t>(writer.At() - line);
}

void AppendCsvLine(std::span<const String, LogTable::kColumns> row, bool with_mark, String& lines) {
  constexpr std::size_t kFirstByte = 4;
  if (row[0].size() < kTimeWidth) lines.append(kTimeWidth - row[0].size(), u' ');
  lines.append(row[0]).append(kCsvGap);
  if (with_mark) lines.append(CsvMark29(row[1].empty() ? 0 : 1));
  lines.append(row[2]).append(kCsvGap).append(row[3]);
  for (std::size_t i = kFirstByte; i < row.size() && !row[i].empty(); ++i) {
    lines.append(i == kFirstByte ? kCsvBytesGap : kCsvByteGap).append(row[i]);
  }
  lines.append(u"\r\n");
}

}  // namespace tolvane
