#include "tools/log/reading/record_line.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>

#include "logging/csv_line.h"
#include "logging/log_record.h"

namespace tolvane::logtool {

namespace {

constexpr std::uint8_t kNoDigit = 0xFF;

constexpr std::array<std::uint8_t, 256> kHexDigits = [] {
  std::array<std::uint8_t, 256> values{};
  values.fill(kNoDigit);
  for (std::uint8_t digit = 0; digit < 16; ++digit) {
    const auto character = static_cast<std::uint8_t>(HexCharacter(digit));
    values[character] = digit;
    if (digit >= 10) values[character + ('a' - 'A')] = digit;  // an editor may have changed it
  }
  return values;
}();

std::uint32_t HexDigit(char character) { return kHexDigits[static_cast<std::uint8_t>(character)]; }

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

// Up to 15 digits and up to 22 places are exact as doubles, and so is what their division rounds
// to: the nearest double of the text, which is the one that was written.
constexpr std::ptrdiff_t kExactDigits = 15;
constexpr std::array<double, kExactDigits + 1> kTenTo = {
    1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// Reads from the front of a line.
class Cursor {
 public:
  explicit Cursor(std::string_view line) : at_(line.data()), end_(line.data() + line.size()) {}

  [[nodiscard]] bool AtEnd() const { return at_ == end_; }

  template <const std::string_view& kText>
  [[nodiscard]] bool Take() {
    if (Left() < kText.size() || std::memcmp(at_, kText.data(), kText.size()) != 0) return false;
    at_ += kText.size();
    return true;
  }

  std::size_t TakeAll(char character) {
    const char* const begin = at_;
    while (at_ != end_ && *at_ == character) ++at_;
    return static_cast<std::size_t>(at_ - begin);
  }

  void StepBack() { --at_; }
  [[nodiscard]] bool IsAt(char character) const { return at_ != end_ && *at_ == character; }

  /// The general number form.
  [[nodiscard]] bool Time(double& time) {
    const char* const begin = at_;
    if (IsAt('-')) ++at_;
    std::uint64_t digits = 0;
    const char* const whole = at_;
    AddDigits(digits);
    std::ptrdiff_t count = at_ - whole;
    std::ptrdiff_t places = 0;
    if (IsAt('.')) {
      const char* const fraction = ++at_;
      AddDigits(digits);
      places = at_ - fraction;
      count += places;
    }
    if (count == 0) return false;
    if (count > kExactDigits || IsAt('E')) return AnyTime(begin, time);
    time = static_cast<double>(digits);
    if (places > 0) time /= kTenTo[static_cast<std::size_t>(places)];
    if (*begin == '-') time = -time;
    return true;
  }

  /// Digits up to the next other character; more than 32 bits of them are too many.
  [[nodiscard]] bool Hex(std::uint32_t& number, std::ptrdiff_t& digits) {
    const char* const begin = at_;
    std::uint64_t value = 0;
    for (std::uint32_t digit; at_ != end_ && (digit = HexDigit(*at_)) != kNoDigit; ++at_) {
      value = value << 4 | digit;
      if (value > 0xFFFF'FFFF) return false;
    }
    number = static_cast<std::uint32_t>(value);
    digits = at_ - begin;
    return digits > 0;
  }

  [[nodiscard]] bool Decimal(std::int32_t& number) {
    if (at_ != end_ && IsDigit(*at_) && (at_ + 1 == end_ || !IsDigit(at_[1]))) {
      number = *at_++ - '0';
      return true;
    }
    const auto [end, error] = std::from_chars(at_, end_, number);
    at_ = end;
    return error == std::errc();
  }

  [[nodiscard]] bool Byte(std::uint8_t& byte) {
    if (Left() < 2) return false;
    const std::uint32_t high = HexDigit(at_[0]);
    const std::uint32_t low = HexDigit(at_[1]);
    if ((high | low) > 0xF) return false;
    byte = static_cast<std::uint8_t>(high << 4 | low);
    at_ += 2;
    return true;
  }

 private:
  [[nodiscard]] std::size_t Left() const { return static_cast<std::size_t>(end_ - at_); }

  /// As many as there are; what more than 19 of them add up to is not used.
  void AddDigits(std::uint64_t& number) {
    for (; at_ != end_ && IsDigit(*at_); ++at_) {
      number = number * 10 + static_cast<std::uint64_t>(*at_ - '0');
    }
  }

  [[nodiscard]] bool AnyTime(const char* begin, double& time) {
    const auto [end, error] = std::from_chars(begin, end_, time);
    at_ = end;
    return error == std::errc();
  }

  const char* at_;
  const char* const end_;
};

/// The zeros at the front of a line, ahead of the time. Times are padded with blanks, so a time
/// that begins the line with a zero of its own is one with a period behind it.
std::size_t TakeStrays(Cursor& cursor) {
  std::size_t zeros = cursor.TakeAll('0');
  if (zeros > 0 && cursor.IsAt('.')) {
    cursor.StepBack();
    --zeros;
  }
  return zeros;
}

LineFault ReadMark(Cursor& cursor, LogFrame& frame) {
  frame.extended = cursor.Take<kCsvMarkExtended>();
  return frame.extended || cursor.Take<kCsvMarkStandard>() ? LineFault::kNone : LineFault::kMark;
}

LineFault ReadIdentifier(Cursor& cursor, bool with_mark, LogFrame& frame, bool& has_bare_id) {
  std::ptrdiff_t digits;
  if (!cursor.Hex(frame.id, digits)) return LineFault::kIdentifier;
  if (frame.id > (frame.extended ? kExtendedId_MAX : kStandardId_MAX)) {
    return LineFault::kNoSuchIdentifier;
  }
  constexpr std::ptrdiff_t kWholeDigits = 8;
  if (with_mark && digits < kWholeDigits) {
    const std::size_t written = LogID29Text(static_cast<std::int32_t>(frame.id)).Length();
    has_bare_id = digits < static_cast<std::ptrdiff_t>(written);
  }
  return cursor.Take<kCsvGap>() ? LineFault::kNone : LineFault::kIdentifier;
}

LineFault ReadBytes(Cursor& cursor, LogFrame& frame) {
  frame.bytes = static_cast<std::uint8_t>(std::clamp(frame.length, 0, 8));
  if (frame.bytes > 0 && !cursor.Take<kCsvBytesGap>()) {
    return cursor.AtEnd() ? LineFault::kBytes : LineFault::kLength;
  }
  for (std::size_t i = 0; i < frame.bytes; ++i) {
    if (i > 0 && !cursor.Take<kCsvByteGap>()) return LineFault::kBytes;
    if (!cursor.Byte(frame.data[i])) return LineFault::kBytes;
  }
  return cursor.AtEnd() ? LineFault::kNone : LineFault::kBytes;
}

}  // namespace

std::string_view FaultText(LineFault fault) {
  switch (fault) {
    case LineFault::kNone:
      break;
    case LineFault::kTime:
      return "this is no record: it begins with no time";
    case LineFault::kNoSuchTime:
      return "no run lasts as long as this time says";
    case LineFault::kMark:
      return "behind the time there is neither the mark of an extended frame nor a blank";
    case LineFault::kIdentifier:
      return "the identifier is no hexadecimal number";
    case LineFault::kNoSuchIdentifier:
      return "no bus has this identifier";
    case LineFault::kLength:
      return "the length is no number";
    case LineFault::kBytes:
      return "the bytes do not fit the length";
  }
  return {};
}

LineFault ReadRecordLine(std::string_view line, bool with_mark, LogFrame& frame,
                         LineTraits& traits) {
  Cursor cursor(line);
  traits.strays = cursor.IsAt('0') ? TakeStrays(cursor) : 0;
  if (traits.strays > 0 && !with_mark) return LineFault::kTime;
  cursor.TakeAll(' ');
  if (!cursor.Time(frame.time) || !cursor.Take<kCsvGap>()) return LineFault::kTime;
  if (!(std::fabs(frame.time) <= kTime_MAX)) return LineFault::kNoSuchTime;
  frame.extended = false;
  traits.has_bare_id = false;
  if (with_mark) {
    if (const LineFault fault = ReadMark(cursor, frame); fault != LineFault::kNone) return fault;
  }
  if (const LineFault fault = ReadIdentifier(cursor, with_mark, frame, traits.has_bare_id);
      fault != LineFault::kNone) {
    return fault;
  }
  if (!cursor.Decimal(frame.length)) return LineFault::kLength;
  return ReadBytes(cursor, frame);
}

}  // namespace tolvane::logtool
