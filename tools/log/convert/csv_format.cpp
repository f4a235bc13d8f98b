#include "run/number_text.h"
#include "tools/log/convert/digits.h"
#include "tools/log/convert/formats.h"
#include "tools/log/convert/moment.h"

namespace tolvane::logtool {

namespace {

/// "2026-11-20 09:05:07", which every spreadsheet takes for a date.
std::string SecondText(std::int64_t second) {
  const platform::LocalTime time = CalendarTime(second * 1000);
  char text[20];
  char* at = PutPadded<4>(text, static_cast<std::uint32_t>(time.year));
  *at++ = '-';
  at = PutPadded<2>(at, static_cast<std::uint32_t>(time.month));
  *at++ = '-';
  at = PutPadded<2>(at, static_cast<std::uint32_t>(time.day));
  *at++ = ' ';
  at = PutPadded<2>(at, static_cast<std::uint32_t>(time.hour));
  *at++ = ':';
  at = PutPadded<2>(at, static_cast<std::uint32_t>(time.minute));
  *at++ = ':';
  at = PutPadded<2>(at, static_cast<std::uint32_t>(time.second));
  return {text, at};
}

char* PutAscii(char* at, StringView text) {
  for (const char16_t character : text) *at++ = static_cast<char>(character);
  return at;
}

}  // namespace

std::string CsvFormat::Head() const {
  return "date_time,ms,id,extended,length,d1,d2,d3,d4,d5,d6,d7,d8\n";
}

char* CsvFormat::Line(const LogFrame& frame, char* at) {
  if (anchor_) at = PutMoment(anchor_->calendar_ms * 1000 + MicrosecondsOf(frame.time), at);
  *at++ = ',';
  at = PutAscii(at, DecimalText(frame.time));
  // Without 0x, spreadsheets take identifiers such as 1E5 for numbers.
  at = Put(at, ",0x");
  at = PutHex(at, frame.id, frame.extended ? 8 : 3);
  *at++ = ',';
  *at++ = frame.extended ? '1' : '0';
  *at++ = ',';
  at = PutAscii(at, DecimalText(std::int64_t{frame.length}));
  for (std::size_t i = 0; i < frame.data.size(); ++i) {
    *at++ = ',';
    if (i < frame.bytes) at = PutHexByte(at, frame.data[i]);
  }
  *at++ = '\n';
  return at;
}

char* CsvFormat::PutMoment(std::int64_t us, char* at) {
  if (const std::int64_t second = us / 1'000'000; second != second_) {
    second_ = second;
    second_text_ = SecondText(second);
  }
  at += second_text_.copy(at, second_text_.size());
  *at++ = '.';
  return PutPadded<6>(at, static_cast<std::uint32_t>(us % 1'000'000));
}

}  // namespace tolvane::logtool
