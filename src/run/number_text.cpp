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

template <typename Character>
void AppendDigit(std::uint64_t digit, BasicShortText<Character>& text) {
  text.Append(static_cast<Character>('0' + digit));
}

template <typename Character>
void AppendWhole(std::uint64_t number, BasicShortText<Character>& text) {
  if (number < 10) {
    AppendDigit(number, text);
    return;
  }
  std::array<char, 20> digits;
  const char* const end = std::to_chars(digits.begin(), digits.end(), number).ptr;
  for (const char* at = digits.begin(); at != end; ++at) text.Append(static_cast<Character>(*at));
}

template <typename Character>
void AppendHexDigits(std::uint32_t value, int digits, BasicShortText<Character>& text) {
  for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) {
    text.Append(static_cast<Character>(HexCharacter(value >> shift)));
  }
}

int HexDigits(std::uint32_t value) { return (std::bit_width(value | 1) + 3) / 4; }

/// At least `digits` digits.
template <typename Character>
BasicShortText<Character> PaddedHexText(std::int32_t value, int digits) {
  BasicShortText<Character> text;
  const auto bits = static_cast<std::uint32_t>(value);
  AppendHexDigits(bits, std::max(HexDigits(bits), digits), text);
  return text;
}

template <typename Character>
void AppendGroup(std::uint32_t group, int digits, BasicShortText<Character>& text) {
  AppendDigit(group / 100, text);
  if (digits > 1) AppendDigit(group / 10 % 10, text);
  if (digits > 2) AppendDigit(group % 10, text);
}

/// Without trailing zeros; `group` is not 0.
template <typename Character>
void AppendLastGroup(std::uint32_t group, BasicShortText<Character>& text) {
  AppendGroup(group, group % 100 == 0 ? 1 : group % 10 == 0 ? 2 : 3, text);
}

template <typename Character>
BasicShortText<Character> ThousandthsText(std::uint64_t thousandths) {
  BasicShortText<Character> text;
  AppendWhole(thousandths / 1000, text);
  if (const auto rest = static_cast<std::uint32_t>(thousandths % 1000); rest != 0) {
    text.Append('.');
    AppendLastGroup(rest, text);
  }
  return text;
}

constexpr int kSignificantDigits = 15;
constexpr double kFastLimit = 0x1p40;  // 13 digits in front of the point
constexpr std::int64_t kThousandthsLimit = 1'000'000'000'000'000;  // from here on 16 digits

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
  template <typename Character>
  void AppendTo(BasicShortText<Character>& text) const {
    if (count_ == 0) return;
    text.Append('.');
    for (std::size_t i = 0; i + 1 < count_; ++i) AppendGroup(groups_[i], 3, text);
    AppendLastGroup(groups_[count_ - 1], text);
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

  std::array<std::uint32_t, 5> groups_;
  std::size_t count_ = 0;
  std::uint32_t last_scale_ = 1000;  // of the last group: 10 to the number of its digits
  bool carries_ = false;
};

/// The general form of 1 up to kFastLimit, which is what times are: whole-number arithmetic with
/// no rounding but the last one, several times faster than the library's way.
template <typename Character>
BasicShortText<Character> FastDecimalText(double value) {
  // Most times are whole microseconds. A number of at most fifteen digits comes back from the
  // double nearest to it.
  const auto thousandths = static_cast<std::int64_t>(value * 1000.0 + 0.5);
  if (thousandths < kThousandthsLimit && static_cast<double>(thousandths) / 1000.0 == value) {
    return ThousandthsText<Character>(static_cast<std::uint64_t>(thousandths));
  }
  const auto bits = std::bit_cast<std::uint64_t>(value);
  const int fraction_bits = 52 - (static_cast<int>(bits >> 52) - 1023);
  const std::uint64_t hidden = std::uint64_t{1} << 52;
  const std::uint64_t mantissa = hidden | (bits & (hidden - 1));
  const std::uint64_t whole = mantissa >> fraction_bits;
  const std::uint64_t fraction = mantissa & ((std::uint64_t{1} << fraction_bits) - 1);
  BasicShortText<Character> text;
  AppendWhole(whole, text);
  const Decimals decimals(fraction, fraction_bits,
                          kSignificantDigits - static_cast<int>(text.Length()));
  if (decimals.Carries()) return DecimalText<Character>(static_cast<std::int64_t>(whole + 1));
  decimals.AppendTo(text);
  return text;
}

/// An identifier of `digits` digits. A negative one gets the zeros of an identifier below 16, in
/// front of its eight digits.
template <typename Character>
BasicShortText<Character> IDText(std::int32_t id, int digits) {
  if (id >= 0) return PaddedHexText<Character>(id, digits);
  BasicShortText<Character> text;
  for (int zeros = 1; zeros < digits; ++zeros) text.Append('0');
  AppendHexDigits(static_cast<std::uint32_t>(id), 8, text);
  return text;
}

}  // namespace

template <typename Character>
BasicShortText<Character> DecimalText(std::int64_t value) {
  const bool negative = value < 0;
  const auto bits = static_cast<std::uint64_t>(value);
  BasicShortText<Character> text;
  if (negative) text.Append('-');
  AppendWhole(negative ? 0 - bits : bits, text);
  return text;
}

template <typename Character>
BasicShortText<Character> DecimalText(double value) {
  if (value >= 1.0 && value < kFastLimit) return FastDecimalText<Character>(value);
  if (!std::isfinite(value)) return DecimalText<Character>(std::int64_t{0});
  if (std::fabs(value) < kWholeNumberLimit && value == std::trunc(value)) {
    return DecimalText<Character>(static_cast<std::int64_t>(value));
  }
  char digits[32];
  const char* const end = std::to_chars(digits, digits + sizeof digits, value,
                                        std::chars_format::general, kSignificantDigits)
                              .ptr;
  BasicShortText<Character> text;
  for (const char* at = digits; at != end; ++at)
    text.Append(static_cast<Character>(*at == 'e' ? 'E' : *at));
  return text;
}

ShortText DecimalText(Currency value) {
  const bool negative = value.ten_thousandths < 0;
  const auto bits = static_cast<std::uint64_t>(value.ten_thousandths);
  const std::uint64_t magnitude = negative ? 0 - bits : bits;
  ShortText text;
  if (negative) text.Append(u'-');
  AppendWhole(magnitude / 10000, text);
  if (std::uint64_t fraction = magnitude % 10000; fraction != 0) {
    text.Append(u'.');
    for (std::uint64_t place = 1000; fraction != 0; place /= 10) {
      AppendDigit(fraction / place, text);
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

template <typename Character>
BasicShortText<Character> HexText(std::int32_t value) {
  return PaddedHexText<Character>(value, 1);
}

ShortText HexText(std::int32_t value, std::size_t digits) {
  return PaddedHexText<char16_t>(value, static_cast<int>(digits));
}

ShortText HexByteText(std::uint8_t value) { return HexText(value, 2); }

template <typename Character>
BasicShortText<Character> HexID11Text(std::int32_t id) {
  return IDText<Character>(id, 3);
}

template <typename Character>
BasicShortText<Character> HexID29Text(std::int32_t id) {
  return IDText<Character>(id, 8);
}

template ShortText DecimalText<char16_t>(std::int64_t);
template ShortBytes DecimalText<char>(std::int64_t);
template ShortText DecimalText<char16_t>(double);
template ShortBytes DecimalText<char>(double);
template ShortText HexText<char16_t>(std::int32_t);
template ShortBytes HexText<char>(std::int32_t);
template ShortText HexID11Text<char16_t>(std::int32_t);
template ShortBytes HexID11Text<char>(std::int32_t);
template ShortText HexID29Text<char16_t>(std::int32_t);
template ShortBytes HexID29Text<char>(std::int32_t);

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
