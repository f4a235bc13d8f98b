#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tolvane::simulator {

// Inline, as recordings have millions of lines.

inline bool IsBlank(char character) {
  return character == ' ' || character == '\t' || character == '\r';
}

/// The text without blanks, tabs and carriage returns at its front.
inline std::string_view TrimFront(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  return text;
}

/// The same at both ends.
inline std::string_view Trim(std::string_view text) {
  text = TrimFront(text);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

/// Decimal or 0x hexadecimal, with an optional minus sign; nothing else may follow. Unsigned values
/// above the signed range are returned as the same 64 bits.
std::optional<std::int64_t> ParseInteger(std::string_view text);

/// A decimal number such as 2.5; nothing else may follow, and it must be finite.
std::optional<double> ParseDecimal(std::string_view text);

/// The value of each character as a hexadecimal digit, -1 when it is none.
inline constexpr std::array<std::int8_t, 256> kHexDigits = [] {
  std::array<std::int8_t, 256> values{};
  values.fill(-1);
  for (std::int8_t value = 0; value < 16; ++value) {
    values[static_cast<std::size_t>("0123456789ABCDEF"[value])] = value;
    values[static_cast<std::size_t>("0123456789abcdef"[value])] = value;
  }
  return values;
}();

/// Value of a hexadecimal digit, -1 when it is none.
inline int HexDigit(char digit) { return kHexDigits[static_cast<unsigned char>(digit)]; }

/// Replaces \xNN by that byte and \\ by a backslash; none for any other use of a backslash.
std::optional<std::string> UnescapeText(std::string_view text);

/// The reverse: every byte outside printable ASCII becomes \xNN, a backslash is doubled.
std::string EscapeText(std::string_view text);

}  // namespace tolvane::simulator
