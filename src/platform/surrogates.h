#pragma once

#include "platform/string.h"

namespace tolvane {

// A character beyond U+FFFF is a pair of units, a high and a low surrogate.

[[nodiscard]] constexpr bool IsHighSurrogate(char32_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}
[[nodiscard]] constexpr bool IsLowSurrogate(char32_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

[[nodiscard]] constexpr bool StartsWithPair(StringView text) {
  return text.size() >= 2 && IsHighSurrogate(text[0]) && IsLowSurrogate(text[1]);
}

}  // namespace tolvane
