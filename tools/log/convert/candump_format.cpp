#include "tools/log/convert/digits.h"
#include "tools/log/convert/formats.h"

namespace tolvane::logtool {

CandumpFormat::CandumpFormat(const std::optional<TimeAnchor>& anchor)
    : begin_us_(anchor ? anchor->unix_ms * 1000 : 0) {}

char* CandumpFormat::Line(const LogFrame& frame, char* at) const {
  const auto us = static_cast<std::uint64_t>(begin_us_ + MicrosecondsOf(frame.time));
  *at++ = '(';
  at = PutDecimal(at, us / 1'000'000);
  *at++ = '.';
  at = PutPadded<6>(at, static_cast<std::uint32_t>(us % 1'000'000));
  at = Put(at, ") can0 ");
  at = PutHex(at, frame.id, frame.extended ? 8 : 3);
  *at++ = '#';
  for (std::size_t i = 0; i < frame.bytes; ++i) at = PutHexByte(at, frame.data[i]);
  *at++ = '\n';
  return at;
}

}  // namespace tolvane::logtool
