#include "simulator/candump_log.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "simulator/values.h"

namespace tolvane::simulator {
namespace {

constexpr std::uint32_t kErrorFrameMark = 0x20000000;
constexpr std::size_t kMaxSecondDigits = 12;  // keeps microseconds far from 63 bits
constexpr std::size_t kStandardIdDigits = 3;
constexpr std::size_t kExtendedIdDigits = 8;

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

/// Removes the first word of `rest` and the blanks around it, and returns the word.
std::string_view TakeWord(std::string_view& rest) {
  rest = Trim(rest);
  const auto blank = std::ranges::find_if(rest, [](char c) { return c == ' ' || c == '\t'; });
  const std::string_view word(rest.begin(), blank);
  rest = Trim(rest.substr(word.size()));
  return word;
}

/// "(1502984866.421964)": digits beyond the microsecond are dropped.
bool ParseTime(std::string_view word, std::int64_t& time_us) {
  if (word.size() < 3 || word.front() != '(' || word.back() != ')') return false;
  word = word.substr(1, word.size() - 2);
  const std::size_t point = std::min(word.find('.'), word.size());
  const std::string_view seconds = word.substr(0, point);
  const std::string_view fraction = word.substr(std::min(point + 1, word.size()));
  if (seconds.empty() || seconds.size() > kMaxSecondDigits) return false;
  if (!std::ranges::all_of(seconds, IsDigit) || !std::ranges::all_of(fraction, IsDigit)) {
    return false;
  }
  time_us = 0;
  for (const char digit : seconds) time_us = time_us * 10 + (digit - '0');
  for (std::size_t place = 0; place < 6; ++place) {
    time_us = time_us * 10 + (place < fraction.size() ? fraction[place] - '0' : 0);
  }
  return true;
}

bool ParseId(std::string_view digits, BusFrame& frame) {
  if (digits.size() != kStandardIdDigits && digits.size() != kExtendedIdDigits) return false;
  if (!std::ranges::all_of(digits, [](char digit) { return HexDigit(digit) >= 0; })) return false;
  std::from_chars(digits.data(), digits.data() + digits.size(), frame.id, 16);
  frame.extended = digits.size() == kExtendedIdDigits;
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
  const std::size_t mark = std::min(text.find('_'), text.size());
  const std::string_view bytes = text.substr(0, mark);
  if (bytes.size() % 2 != 0 || bytes.size() > 2 * frame.data.size()) return false;
  for (std::size_t i = 0; i < bytes.size(); i += 2) {
    const int high = HexDigit(bytes[i]);
    const int low = HexDigit(bytes[i + 1]);
    if (high < 0 || low < 0) return false;
    frame.data[i / 2] = static_cast<std::uint8_t>(high * 16 + low);
  }
  frame.dlc = static_cast<std::uint8_t>(bytes.size() / 2);
  if (mark == text.size()) return true;
  const std::string_view long_dlc = text.substr(mark + 1);
  if (frame.dlc != 8 || long_dlc.size() != 1 || HexDigit(long_dlc[0]) <= 8) return false;
  frame.dlc = static_cast<std::uint8_t>(HexDigit(long_dlc[0]));
  return true;
}

bool ParseDirection(std::string_view word, BusFrame& frame) {
  if (word == "T" && frame.kind == FrameKind::kData) frame.kind = FrameKind::kTransmitted;
  return word.empty() || word == "R" || word == "T";
}

}  // namespace

bool ParseCandumpLine(std::string_view line, BusFrame& frame) {
  frame = BusFrame{};
  if (!ParseTime(TakeWord(line), frame.time_us)) return false;
  if (TakeWord(line).empty()) return false;
  const std::string_view text = TakeWord(line);
  const std::size_t mark = text.find('#');
  if (mark == std::string_view::npos || !ParseId(text.substr(0, mark), frame)) return false;
  const std::string_view content = text.substr(mark + 1);
  const bool remote = content.starts_with('R') || content.starts_with('r');
  if (remote ? !ParseRemote(content.substr(1), frame) : !ParseData(content, frame)) return false;
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
