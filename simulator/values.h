#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tolvane::simulator {

/// The text without blanks, tabs and carriage returns at both ends.
std::string_view Trim(std::string_view text);

/// Decimal or 0x hexadecimal, with an optional minus sign; nothing else may follow. Unsigned values
/// above the signed range are returned as the same 64 bits.
std::optional<std::int64_t> ParseInteger(std::string_view text);

/// A decimal number such as 2.5; nothing else may follow, and it must be finite.
std::optional<double> ParseDecimal(std::string_view text);

/// Value of a hexadecimal digit, -1 when it is none.
int HexDigit(char digit);

/// Replaces \xNN by that byte and \\ by a backslash; none for any other use of a backslash.
std::optional<std::string> UnescapeText(std::string_view text);

/// The reverse: every byte outside printable ASCII becomes \xNN, a backslash is doubled.
std::string EscapeText(std::string_view text);

}  // namespace tolvane::simulator
