#include "simulator/candump_log.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "simulator/values.h"

namespace tolvane::simulator {
namespace {

constexpr std::uint32_t kErrorFrameMark = 0x20000000;
constexpr std::size_t kMaxSecondDigits = 12;  // keeps microseconds far from 63 bits
constexpr std::size_t kMicrosecondDigits = 6;
constexpr std::size_t kStandardIdDigits = 3;
constexpr std::size_t kExtendedIdDigits = 8;
// Behind thirty years of recording no further step is followed: the sums stay far from 63 bits.
constexpr std::int64_t kSpanUs_MAX = 1'000'000'000'000'000;

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

/// A line that is read from its front. Each Take takes what it is named for, and is false when
/// something else stands there.
class LineReader {
 public:
  explicit LineReader(std::string_view line) : at_(line.data()), end_(line.data() + line.size()) {}

  [[nodiscard]] std::string_view Rest() const { return {at_, end_}; }

  bool Take(char character) {
    if (at_ == end_ || *at_ != character) return false;
    ++at_;
    return true;
  }

  /// The end of a word, and the blanks behind it.
  bool TakeWordEnd() {
    if (!EndsWord()) return false;
    while (at_ != end_ && IsBlank(*at_)) ++at_;
    return true;
  }

  bool TakeWord() {
    if (EndsWord()) return false;
    while (!EndsWord()) ++at_;
    return TakeWordEnd();
  }

  /// Decimal digits, of which the first `most` are appended to `number`. Returns how many there
  /// were.
  std::size_t TakeDigits(std::size_t most, std::int64_t& number) {
    const char* const first = at_;
    const char* const last = first + std::min(most, Rest().size());
    for (; at_ != last && IsDigit(*at_); ++at_) number = number * 10 + (*at_ - '0');
    while (at_ != end_ && IsDigit(*at_)) ++at_;
    return static_cast<std::size_t>(at_ - first);
  }

  /// The value of a hexadecimal digit, -1 when something else stands there.
  int TakeHexDigit() {
    const int value = at_ == end_ ? -1 : HexDigit(*at_);
    if (value >= 0) ++at_;
    return value;
  }

 private:
  [[nodiscard]] bool EndsWord() const { return at_ == end_ || *at_ == ' ' || *at_ == '\t'; }

  const char* at_;
  const char* const end_;
};

/// "(1502984866.421964)": digits beyond the microsecond are dropped.
bool TakeTime(LineReader& line, std::int64_t& time_us) {
  if (!line.Take('(')) return false;
  std::int64_t time = 0;
  const std::size_t seconds = line.TakeDigits(kMaxSecondDigits, time);
  if (seconds == 0 || seconds > kMaxSecondDigits) return false;
  std::size_t places = 0;
  if (line.Take('.')) places = line.TakeDigits(kMicrosecondDigits, time);
  for (; places < kMicrosecondDigits; ++places) time *= 10;
  time_us = time;
  return line.Take(')') && line.TakeWordEnd();
}

/// The identifier and the mark behind it.
bool TakeId(LineReader& line, BusFrame& frame) {
  std::size_t digits = 0;
  std::uint32_t id = 0;
  for (int digit; (digit = line.TakeHexDigit()) >= 0; ++digits) {
    id = id << 4 | static_cast<std::uint32_t>(digit);
  }
  frame.id = id;
  if (digits != kStandardIdDigits && digits != kExtendedIdDigits) return false;
  frame.extended = digits == kExtendedIdDigits;
  if (frame.extended && (frame.id & kErrorFrameMark) != 0) {
    frame.kind = FrameKind::kError;
    frame.extended = false;
    frame.id -= kErrorFrameMark;
  }
  const bool is_long = frame.extended || frame.kind == FrameKind::kError;
  return frame.id <= (is_long ? kMaxExtendedId : kMaxStandardId) && line.Take('#');
}

/// What follows the R of a remote frame.
bool TakeRemote(LineReader& line, BusFrame& frame) {
  if (frame.kind == FrameKind::kError) return false;
  frame.kind = FrameKind::kRemote;
  const int length = line.TakeHexDigit();
  if (length > 8) return false;
  if (length >= 0) frame.dlc = static_cast<std::uint8_t>(length);
  return line.TakeWordEnd();
}

bool TakeData(LineReader& line, BusFrame& frame) {
  std::uint8_t bytes = 0;
  for (int high; bytes < frame.data.size() && (high = line.TakeHexDigit()) >= 0;) {
    const int low = line.TakeHexDigit();
    if (low < 0) return false;
    frame.data[bytes++] = static_cast<std::uint8_t>(high * 16 + low);
  }
  frame.dlc = bytes;
  // Behind eight bytes, a length code above 8.
  if (bytes == frame.data.size() && line.Take('_')) {
    const int length = line.TakeHexDigit();
    if (length <= 8) return false;
    frame.dlc = static_cast<std::uint8_t>(length);
  }
  return line.TakeWordEnd();
}

bool ParseDirection(std::string_view word, BusFrame& frame) {
  if (word == "T" && frame.kind == FrameKind::kData) frame.kind = FrameKind::kTransmitted;
  return word.empty() || word == "R" || word == "T";
}

/// Of one frame after the other, by the times of their lines.
class TimeSinceFirst {
 public:
  std::int64_t Of(std::int64_t time_us) {
    if (!origin_us_) origin_us_ = time_us;
    if (far_back_us_ && IsFarBack(time_us) && last_us_ <= kSpanUs_MAX)
      origin_us_ = *far_back_us_ - last_us_;
    far_back_us_ = IsFarBack(time_us) ? std::optional(time_us) : std::nullopt;
    last_us_ = std::max(time_us - *origin_us_, last_us_);
    return last_us_;
  }

 private:
  [[nodiscard]] bool IsFarBack(std::int64_t time_us) const {
    return time_us - *origin_us_ < last_us_ - kOutOfOrderUs_MAX;
  }

  std::optional<std::int64_t> origin_us_;
  std::int64_t last_us_ = 0;
  std::optional<std::int64_t> far_back_us_;  // the time of the frame ahead, if it is that
};

}  // namespace

bool ParseCandumpLine(std::string_view text, BusFrame& frame) {
  frame = BusFrame{};
  LineReader line(Trim(text));
  if (!TakeTime(line, frame.time_us) || !line.TakeWord() || !TakeId(line, frame)) return false;
  const bool remote = line.Take('R') || line.Take('r');
  if (remote ? !TakeRemote(line, frame) : !TakeData(line, frame)) return false;
  return ParseDirection(line.Rest(), frame);
}

CandumpLog ParseCandumpLog(std::string_view text) {
  CandumpLog log;
  TimeSinceFirst time;
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
    frame.time_us = time.Of(frame.time_us);
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
