#include "simulator/candump_log.h"

#include <algorithm>
#include <utility>

#include "simulator/values.h"

namespace tolvane::simulator {
namespace {

constexpr std::uint32_t kErrorFrameMark = 0x20000000;
constexpr std::size_t kMaxSecondDigits = 12;  // keeps microseconds far from 63 bits
constexpr std::size_t kMicrosecondDigits = 6;
constexpr std::size_t kStandardIdDigits = 3;
constexpr std::size_t kExtendedIdDigits = 8;

// Each of these takes what it is named for from the front of `rest`, and is false when something
// else stands there.

bool Take(char character, std::string_view& rest) {
  if (!rest.starts_with(character)) return false;
  rest.remove_prefix(1);
  return true;
}

bool EndsWord(std::string_view rest) { return rest.empty() || rest[0] == ' ' || rest[0] == '\t'; }

/// The end of a word, and the blanks behind it.
bool TakeWordEnd(std::string_view& rest) {
  if (!EndsWord(rest)) return false;
  rest = TrimFront(rest);
  return true;
}

bool TakeChannel(std::string_view& rest) {
  if (EndsWord(rest)) return false;
  while (!EndsWord(rest)) rest.remove_prefix(1);
  return TakeWordEnd(rest);
}

/// Decimal digits, of which the first `most` are appended to `number`. Returns how many there were.
std::size_t TakeDigits(std::size_t most, std::int64_t& number, std::string_view& rest) {
  std::size_t count = 0;
  for (; count < rest.size() && rest[count] >= '0' && rest[count] <= '9'; ++count) {
    if (count < most) number = number * 10 + (rest[count] - '0');
  }
  rest.remove_prefix(count);
  return count;
}

/// "(1502984866.421964)": digits beyond the microsecond are dropped.
bool TakeTime(std::string_view& rest, std::int64_t& time_us) {
  if (!Take('(', rest)) return false;
  const std::size_t seconds = TakeDigits(kMaxSecondDigits, time_us, rest);
  if (seconds == 0 || seconds > kMaxSecondDigits) return false;
  std::size_t places = 0;
  if (Take('.', rest)) places = TakeDigits(kMicrosecondDigits, time_us, rest);
  for (; places < kMicrosecondDigits; ++places) time_us *= 10;
  return Take(')', rest) && TakeWordEnd(rest);
}

/// The identifier and the mark behind it.
bool TakeId(std::string_view& rest, BusFrame& frame) {
  std::size_t digits = 0;
  for (; digits < rest.size() && HexDigit(rest[digits]) >= 0; ++digits) {
    frame.id = frame.id << 4 | static_cast<std::uint32_t>(HexDigit(rest[digits]));
  }
  if (digits != kStandardIdDigits && digits != kExtendedIdDigits) return false;
  rest.remove_prefix(digits);
  frame.extended = digits == kExtendedIdDigits;
  if (frame.extended && (frame.id & kErrorFrameMark) != 0) {
    frame.kind = FrameKind::kError;
    frame.extended = false;
    frame.id -= kErrorFrameMark;
  }
  const bool is_long = frame.extended || frame.kind == FrameKind::kError;
  return frame.id <= (is_long ? kMaxExtendedId : kMaxStandardId) && Take('#', rest);
}

/// What follows the R of a remote frame.
bool TakeRemote(std::string_view& rest, BusFrame& frame) {
  if (frame.kind == FrameKind::kError) return false;
  frame.kind = FrameKind::kRemote;
  if (!rest.empty() && rest[0] >= '0' && rest[0] <= '8') {
    frame.dlc = static_cast<std::uint8_t>(rest[0] - '0');
    rest.remove_prefix(1);
  }
  return TakeWordEnd(rest);
}

bool TakeData(std::string_view& rest, BusFrame& frame) {
  for (; frame.dlc < frame.data.size() && !EndsWord(rest); rest.remove_prefix(2)) {
    const int high = HexDigit(rest[0]);
    const int low = rest.size() > 1 ? HexDigit(rest[1]) : -1;
    if (high < 0 || low < 0) return false;
    frame.data[frame.dlc++] = static_cast<std::uint8_t>(high * 16 + low);
  }
  // Behind eight bytes, a length code above 8.
  if (frame.dlc == frame.data.size() && Take('_', rest)) {
    if (rest.empty() || HexDigit(rest[0]) <= 8) return false;
    frame.dlc = static_cast<std::uint8_t>(HexDigit(rest[0]));
    rest.remove_prefix(1);
  }
  return TakeWordEnd(rest);
}

bool ParseDirection(std::string_view word, BusFrame& frame) {
  if (word == "T" && frame.kind == FrameKind::kData) frame.kind = FrameKind::kTransmitted;
  return word.empty() || word == "R" || word == "T";
}

}  // namespace

bool ParseCandumpLine(std::string_view line, BusFrame& frame) {
  frame = BusFrame{};
  line = Trim(line);
  if (!TakeTime(line, frame.time_us) || !TakeChannel(line) || !TakeId(line, frame)) return false;
  const bool remote = Take('R', line) || Take('r', line);
  if (remote ? !TakeRemote(line, frame) : !TakeData(line, frame)) return false;
  return ParseDirection(line, frame);
}

CandumpLog ParseCandumpLog(std::string_view text) {
  CandumpLog log;
  std::int64_t origin_us = 0;
  for (std::int64_t number = 1; !text.empty(); ++number) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = Trim(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.empty()) continue;
    BusFrame frame;
    if (!ParseCandumpLine(line, frame)) {
      if (log.refused_lines++ == 0) log.first_refused_line = number;
      continue;
    }
    if (log.frames.empty()) origin_us = frame.time_us;
    const std::int64_t last_us = log.frames.empty() ? 0 : log.frames.back().time_us;
    frame.time_us = std::max(frame.time_us - origin_us, last_us);
    log.frames.push_back(frame);
  }
  return log;
}

LogSource::LogSource(std::shared_ptr<const CandumpLog> log, std::int64_t repeat)
    : log_(std::move(log)), repeat_(repeat) {
  if (log_->frames.empty()) return;
  const std::int64_t span_us = log_->frames.back().time_us;
  const auto distances = static_cast<std::int64_t>(log_->frames.size() - 1);
  constexpr std::int64_t kLoneFrameUs = 1'000'000;  // a single frame has no distance: once a second
  pass_us_ =
      distances == 0 ? kLoneFrameUs : span_us + std::max<std::int64_t>(span_us / distances, 1);
}

bool LogSource::Next(BusFrame& frame) {
  if (next_ == log_->frames.size()) {
    ++passes_done_;
    if (log_->frames.empty() || passes_done_ == repeat_) {
      --passes_done_;  // stay at the end however often asked
      return false;
    }
    next_ = 0;
    pass_began_us_ += pass_us_;
  }
  frame = log_->frames[next_++];
  frame.time_us += pass_began_us_;
  return true;
}

}  // namespace tolvane::simulator
