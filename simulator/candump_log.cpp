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

/// Removes the first word of `rest`, which has no blanks at its ends, and the blanks behind it, and
/// returns the word.
std::string_view TakeWord(std::string_view& rest) {
  std::size_t length = 0;
  while (length < rest.size() && rest[length] != ' ' && rest[length] != '\t') ++length;
  const std::string_view word = rest.substr(0, length);
  rest = TrimFront(rest.substr(length));
  return word;
}

/// Removes the decimal digits at the front of `rest` and appends the first `most` of them to
/// `number`. Returns how many there were.
std::size_t TakeDigits(std::string_view& rest, std::size_t most, std::int64_t& number) {
  std::size_t count = 0;
  for (; count < rest.size() && rest[count] >= '0' && rest[count] <= '9'; ++count) {
    if (count < most) number = number * 10 + (rest[count] - '0');
  }
  rest.remove_prefix(count);
  return count;
}

/// "(1502984866.421964)": digits beyond the microsecond are dropped.
bool ParseTime(std::string_view word, std::int64_t& time_us) {
  if (word.size() < 3 || word.front() != '(' || word.back() != ')') return false;
  word = word.substr(1, word.size() - 2);
  time_us = 0;
  const std::size_t seconds = TakeDigits(word, kMaxSecondDigits, time_us);
  if (seconds == 0 || seconds > kMaxSecondDigits) return false;
  if (word.starts_with('.')) word.remove_prefix(1);
  std::size_t places = TakeDigits(word, kMicrosecondDigits, time_us);
  for (; places < kMicrosecondDigits; ++places) time_us *= 10;
  return word.empty();
}

/// Removes the identifier and the mark behind it from `text`.
bool TakeId(std::string_view& text, BusFrame& frame) {
  std::size_t digits = 0;
  for (; digits < text.size() && HexDigit(text[digits]) >= 0; ++digits) {
    frame.id = frame.id << 4 | static_cast<std::uint32_t>(HexDigit(text[digits]));
  }
  if (digits != kStandardIdDigits && digits != kExtendedIdDigits) return false;
  if (digits == text.size() || text[digits] != '#') return false;
  text.remove_prefix(digits + 1);
  frame.extended = digits == kExtendedIdDigits;
  if (frame.extended && (frame.id & kErrorFrameMark) != 0) {
    frame.kind = FrameKind::kError;
    frame.extended = false;
    frame.id -= kErrorFrameMark;
  }
  return frame.id <=
         (frame.extended || frame.kind == FrameKind::kError ? kMaxExtendedId : kMaxStandardId);
}

bool ParseRemote(std::string_view length, BusFrame& frame) {
  if (frame.kind == FrameKind::kError || length.size() > 1) return false;
  frame.kind = FrameKind::kRemote;
  if (length.empty()) return true;
  if (length[0] < '0' || length[0] > '8') return false;
  frame.dlc = static_cast<std::uint8_t>(length[0] - '0');
  return true;
}

bool ParseData(std::string_view text, BusFrame& frame) {
  for (; frame.dlc < frame.data.size() && text.size() >= 2; text.remove_prefix(2)) {
    const int high = HexDigit(text[0]);
    const int low = HexDigit(text[1]);
    if (high < 0 || low < 0) return false;
    frame.data[frame.dlc++] = static_cast<std::uint8_t>(high * 16 + low);
  }
  if (text.empty()) return true;
  // Behind eight bytes, a length code above 8.
  if (frame.dlc != 8 || text.size() != 2 || text[0] != '_' || HexDigit(text[1]) <= 8) return false;
  frame.dlc = static_cast<std::uint8_t>(HexDigit(text[1]));
  return true;
}

bool ParseDirection(std::string_view word, BusFrame& frame) {
  if (word == "T" && frame.kind == FrameKind::kData) frame.kind = FrameKind::kTransmitted;
  return word.empty() || word == "R" || word == "T";
}

}  // namespace

bool ParseCandumpLine(std::string_view line, BusFrame& frame) {
  frame = BusFrame{};
  line = Trim(line);
  if (!ParseTime(TakeWord(line), frame.time_us)) return false;
  if (TakeWord(line).empty()) return false;
  std::string_view text = TakeWord(line);
  if (!TakeId(text, frame)) return false;
  const bool remote = text.starts_with('R') || text.starts_with('r');
  if (remote ? !ParseRemote(text.substr(1), frame) : !ParseData(text, frame)) return false;
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
