#pragma once

#include <cstdint>
#include <optional>

#include "platform/string.h"

namespace tolvane {

/// A decimal number as typed into a settings box: blanks around it (ideographic ones too), one
/// sign, digits with at most one point, at least one digit. Only single-byte digits count: full-
/// width ones are no number here, as for the identifiers, which the window asks for in single-byte
/// characters. Thousands marks and exponents are no number either. Too many digits give infinity.
[[nodiscard]] std::optional<double> DecimalInput(StringView text);

/// As DecimalInput, rounded to the nearest whole number, halves to even, when that lies from `low`
/// to `high` inclusive; empty otherwise.
[[nodiscard]] std::optional<std::int32_t> WholeNumberInput(StringView text, std::int32_t low,
                                                           std::int32_t high);

/// Hexadecimal digits, in either case, with blanks around them, as a signed 32-bit value: from
/// 80000000 on it is negative. A text of more than eight significant digits is a number too, one
/// that lies outside every range: the largest 64-bit value. Empty when it is no number.
[[nodiscard]] std::optional<std::int64_t> HexInput(StringView text);

}  // namespace tolvane
