#pragma once

#include <cstddef>

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

/// The first `most` units of a text, or one less where a pair would be torn; all of a shorter text.
/// `most` is at least 2.
[[nodiscard]] constexpr StringView FrontPiece(StringView text, std::size_t most) {
  if (text.size() <= most) return text;
  return text.substr(0, IsHighSurrogate(text[most - 1]) ? most - 1 : most);
}

}  // namespace tolvane
