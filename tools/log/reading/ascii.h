#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "platform/ascii_run.h"
#include "platform/string.h"

namespace tolvane::logtool {

// The writer defines its texts in UTF-16, and a file has them in a code page. Of both the ASCII
// part is the same in every code page, so a log is known by that.

/// Of ASCII alone.
[[nodiscard]] constexpr char SmallLetter(char byte) {
  return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

/// Whether texts end alike, but for the size of their letters.
[[nodiscard]] constexpr bool EndsWith(std::string_view text, std::string_view small_end) {
  return text.size() >= small_end.size() &&
         std::ranges::equal(text.substr(text.size() - small_end.size()), small_end, {},
                            SmallLetter);
}

/// Up to the first character that is not ASCII.
[[nodiscard]] constexpr StringView AsciiHead(StringView text) {
  std::size_t length = 0;
  while (length < text.size() && IsAscii(text[length])) ++length;
  return text.substr(0, length);
}

/// Behind the last character that is not ASCII.
[[nodiscard]] constexpr StringView AsciiTail(StringView text) {
  std::size_t start = text.size();
  while (start > 0 && IsAscii(text[start - 1])) --start;
  return text.substr(start);
}

template <const StringView& kText>
inline constexpr auto kByteArrayOf = [] {
  std::array<char, kText.size()> bytes{};
  for (std::size_t i = 0; i < kText.size(); ++i) {
    // An index beyond the array, which does not compile, if the text is not ASCII.
    bytes.at(IsAscii(kText[i]) ? i : kText.size()) = static_cast<char>(kText[i]);
  }
  return bytes;
}();

/// The bytes of an ASCII text of the writer's definitions.
template <const StringView& kText>
inline constexpr std::string_view kBytesOf{kByteArrayOf<kText>.data(), kText.size()};

}  // namespace tolvane::logtool
