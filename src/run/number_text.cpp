#include "run/number_text.h"

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
    text.Append(u"0123456789ABCDEF"[value >> shift & 0xF]);
  }
}

int HexDigits(std::uint32_t value) {
  int digits = 1;
  while (value >>= 4) ++digits;
  return digits;
}

}  // namespace

ShortText DecimalText(std::int64_t value) {
  char digits[20];
  const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
  ShortText text;
  AppendAscii(digits, end, text);
  return text;
}

ShortText DecimalText(double value) {
  if (!std::isfinite(value)) return DecimalText(std::int64_t{0});
  if (std::fabs(value) < kWholeNumberLimit && value == std::trunc(value)) {
    return DecimalText(static_cast<std::int64_t>(value));
  }
  char digits[32];
  const auto end =
      std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general, 15).ptr;
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

ShortText HexText(std::int32_t value) {
  ShortText text;
  const auto bits = static_cast<std::uint32_t>(value);
  AppendHexDigits(bits, HexDigits(bits), text);
  return text;
}

ShortText HexByteText(std::uint8_t value) {
  ShortText text;
  AppendHexDigits(value, 2, text);
  return text;
}

ShortText HexID11Text(std::int32_t id) {
  ShortText text;
  if (id < 16) text.Append(u'0');
  if (id < 256) text.Append(u'0');
  text.Append(HexText(id));
  return text;
}

ShortText HexSettingText(std::int32_t id) { return id == 0 ? HexText(0) : HexID11Text(id); }

double RoundHalfToEven(double value) {
  // Not nearbyint: its result would follow whatever rounding mode a vendor's library left behind.
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
