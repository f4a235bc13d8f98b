#include "simulator/values.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace tolvane::simulator {

std::optional<std::int64_t> ParseInteger(std::string_view text) {
  const bool negative = text.starts_with('-');
  if (negative) text.remove_prefix(1);
  const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
  if (hexadecimal) text.remove_prefix(2);
  std::uint64_t magnitude = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, magnitude, hexadecimal ? 16 : 10);
  if (error != std::errc{} || stop != end) return std::nullopt;
  constexpr auto kLargest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  if (negative && magnitude > kLargest) return std::nullopt;
  return static_cast<std::int64_t>(negative ? 0 - magnitude : magnitude);
}

std::optional<double> ParseDecimal(std::string_view text) {
  double value = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value, std::chars_format::fixed);
  if (error != std::errc{} || stop != end || !std::isfinite(value)) return std::nullopt;
  return value;
}

std::optional<std::string> UnescapeText(std::string_view text) {
  std::string plain;
  while (!text.empty()) {
    if (text.front() != '\\') {
      plain += text.front();
      text.remove_prefix(1);
    } else if (text.starts_with("\\\\")) {
      plain += '\\';
      text.remove_prefix(2);
    } else if (text.size() >= 4 && text[1] == 'x' && HexDigit(text[2]) >= 0 &&
               HexDigit(text[3]) >= 0) {
      plain += static_cast<char>(HexDigit(text[2]) * 16 + HexDigit(text[3]));
      text.remove_prefix(4);
    } else {
      return std::nullopt;
    }
  }
  return plain;
}

std::string EscapeText(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string escaped;
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    if (character == '\\') {
      escaped += "\\\\";
    } else if (byte >= 0x20 && byte < 0x7F) {
      escaped += character;
    } else {
      escaped += {'\\', 'x', kDigits[byte >> 4], kDigits[byte & 15]};
    }
  }
  return escaped;
}

}  // namespace tolvane::simulator
