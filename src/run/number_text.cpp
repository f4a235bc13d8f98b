#include "run/number_text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>

namespace tolvane {

namespace {

constexpr double kWholeNumberLimit = 1e15;  // from here on the general form has an exponent

void AppendAscii(const char* first, const char* last, ShortText& text) {
  for (; first != last; ++first) text.Append(static_cast<char16_t>(*first == 'e' ? 'E' : *first));
}

void AppendHexDigits(std::uint32_t value, int digits, ShortText& text) {
  for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) {
    text.Append(HexCharacter(value >> shift));
  }
}

int HexDigits(std::uint32_t value) { return (std::bit_width(value | 1) + 3) / 4; }

constexpr int kSignificantDigits = 15;
constexpr double kFastLimit = 0x1p40;  // 13 digits in front of the point

/// Decimals in groups of three, the first group in front.
class Decimals {
 public:
  /// The first `places` decimals of fraction / 2^bits, at least 2 of them, halves rounded to even.
  /// `bits` is at most 52.
  Decimals(std::uint64_t fraction, int bits, int places) {
    const std::uint64_t mask = (std::uint64_t{1} << bits) - 1;
    for (; places > 0 && fraction != 0; places -= 3) {
      const std::uint32_t scale = places == 1 ? 10 : places == 2 ? 100 : 1000;
      fraction *= scale;
      groups_[count_++] = static_cast<std::uint32_t>(fraction >> bits);
      fraction &= mask;
      last_scale_ = scale;
    }
    if (fraction != 0) Round(fraction, std::uint64_t{1} << (bits - 1));
    if (count_ > 0) groups_[count_ - 1] *= 1000 / last_scale_;
    while (count_ > 0 && groups_[count_ - 1] == 0) --count_;
  }

  /// True when rounding reached the number in front of the point.
  [[nodiscard]] bool Carries() const { return carries_; }

  /// The point and what is behind it, without trailing zeros; nothing if there are only zeros.
  void AppendTo(ShortText& text) const {
    if (count_ == 0) return;
    text.Append(u'.');
    for (std::size_t i = 0; i + 1 < count_; ++i) AppendGroup(groups_[i], 3, text);
    const std::uint32_t last = groups_[count_ - 1];
    AppendGroup(last, last % 100 == 0 ? 1 : last % 10 == 0 ? 2 : 3, text);
  }

 private:
  void Round(std::uint64_t rest, std::uint64_t half) {
    if (rest < half || (rest == half && groups_[count_ - 1] % 2 == 0)) return;
    std::uint32_t limit = last_scale_;
    for (std::size_t i = count_; i-- > 0; limit = 1000) {
      if (++groups_[i] < limit) return;
      groups_[i] = 0;
    }
    carries_ = true;
  }

  static void AppendGroup(std::uint32_t group, int digits, ShortText& text) {
    text.Append(static_cast<char16_t>(u'0' + group / 100));
    if (digits > 1) text.Append(static_cast<char16_t>(u'0' + group / 10 % 10));
    if (digits > 2) text.Append(static_cast<char16_t>(u'0' + group % 10));
  }

  std::array<std::uint32_t, 5> groups_;
  std::size_t count_ = 0;
  std::uint32_t last_scale_ = 1000;  // of the last group: 10 to the number of its digits
  bool carries_ = false;
};

/// The general form of 1 up to kFastLimit, which is what times are: whole-number arithmetic with
/// no rounding but the last one, several times faster than the library's way.
ShortText FastDecimalText(double value) {
  const auto bits = std::bit_cast<std::uint64_t>(value);
  const int fraction_bits = 52 - (static_cast<int>(bits >> 52) - 1023);
  const std::uint64_t hidden = std::uint64_t{1} << 52;
  const std::uint64_t mantissa = hidden | (bits & (hidden - 1));
  const std::uint64_t whole = mantissa >> fraction_bits;
  const std::uint64_t fraction = mantissa & ((std::uint64_t{1} << fraction_bits) - 1);
  ShortText text = DecimalText(static_cast<std::int64_t>(whole));
  const Decimals decimals(fraction, fraction_bits,
                          kSignificantDigits - static_cast<int>(text.Length()));
  if (decimals.Carries()) return DecimalText(static_cast<std::int64_t>(whole + 1));
  decimals.AppendTo(text);
  return text;
}

/// An identifier of `digits` digits. A negative one gets the zeros of an identifier below 16, in
/// front of its eight digits.
ShortText IDText(std::int32_t id, std::size_t digits) {
  if (id >= 0) return HexText(id, digits);
  ShortText text;
  for (std::size_t zeros = 1; zeros < digits; ++zeros) text.Append(u'0');
  text.Append(HexText(id));
  return text;
}

}  // namespace

ShortText DecimalText(std::int64_t value) {
  const bool negative = value < 0;
  const auto bits = static_cast<std::uint64_t>(value);
  std::uint64_t magnitude = negative ? 0 - bits : bits;
  std::array<char16_t, 20> digits;
  std::size_t first = digits.size();
  do {
    digits[--first] = static_cast<char16_t>(u'0' + magnitude % 10);
    magnitude /= 10;
  } while (magnitude != 0);
  if (negative) digits[--first] = u'-';
  ShortText text;
  text.Append(StringView(digits.data() + first, digits.size() - first));
  return text;
}

ShortText DecimalText(double value) {
  if (value >= 1.0 && value < kFastLimit) return FastDecimalText(value);
  if (!std::isfinite(value)) return DecimalText(std::int64_t{0});
  if (std::fabs(value) < kWholeNumberLimit && value == std::trunc(value)) {
    return DecimalText(static_cast<std::int64_t>(value));
  }
  char digits[32];
  const auto end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general,
                                 kSignificantDigits)
                       .ptr;
  ShortText text;
  AppendAscii(digits, end, text);
  return text;
}

ShortText DecimalText(Currency value) {
  const bool negative = value.ten_thousandths < 0;
  const auto bits = static_cast<std::uint64_t>(value.ten_thousandths);
  const std::uint64_t magnitude = negative ? 0 - bits : bits;
  ShortText text;
  if (negative) text.Append(u'-');
  text.Append(DecimalText(static_cast<std::int64_t>(magnitude / 10000)));
  if (std::uint64_t fraction = magnitude % 10000; fraction != 0) {
    text.Append(u'.');
    for (std::uint64_t place = 1000; fraction != 0; place /= 10) {
      text.Append(static_cast<char16_t>(u'0' + fraction / place));
      fraction %= place;
    }
  }
  return text;
}

ShortText PaddedText(std::int32_t value, std::size_t digits) {
  const ShortText decimal = DecimalText(std::int64_t{value});
  ShortText text;
  for (std::size_t length = decimal.Length(); length < digits; ++length) text.Append(u'0');
  text.Append(decimal);
  return text;
}

ShortText HexText(std::int32_t value) {
  ShortText text;
  const auto bits = static_cast<std::uint32_t>(value);
  AppendHexDigits(bits, HexDigits(bits), text);
  return text;
}

ShortText HexText(std::int32_t value, std::size_t digits) {
  ShortText text;
  const auto bits = static_cast<std::uint32_t>(value);
  AppendHexDigits(bits, std::max(HexDigits(bits), static_cast<int>(digits)), text);
  return text;
}

ShortText HexByteText(std::uint8_t value) { return HexText(value, 2); }

ShortText HexID11Text(std::int32_t id) { return IDText(id, 3); }

ShortText HexID29Text(std::int32_t id) { return IDText(id, 8); }

ShortText HexSettingText(std::int32_t id) { return id == 0 ? HexText(0) : HexID11Text(id); }

double RoundHalfToEven(double value) {
  // By steps with the same result in every rounding mode, not by nearbyint: a vendor's library may
  // have left another one behind.
  const double whole = std::floor(value);
  const double fraction = value - whole;
  if (fraction < 0.5) return whole;
  if (fraction > 0.5) return whole + 1;
  return std::fmod(whole, 2.0) == 0.0 ? whole : whole + 1;
}

Currency ToCurrency(double value) {
  using Limits = std::numeric_limits<std::int64_t>;
  const double scaled = RoundHalfToEven(value * 10000.0);
  if (!(scaled > static_cast<double>(Limits::min()))) return {Limits::min()};
  if (scaled >= static_cast<double>(Limits::max())) return {Limits::max()};
  return {static_cast<std::int64_t>(scaled)};
}

}  // namespace tolvane
