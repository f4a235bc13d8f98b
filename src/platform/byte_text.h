#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "platform/string.h"

namespace tolvane {

// Bytes as a text with one unit for each byte, and back, whatever the code page: the serial text of
// an adapter reaches its library again as the library gave it, and so do the raw bytes in the rich
// text of another program.

[[nodiscard]] inline String WideText(std::string_view bytes) {
  String text(bytes.size(), u'\0');
  std::ranges::transform(bytes, text.begin(),
                         [](char byte) { return static_cast<unsigned char>(byte); });
  return text;
}

/// Units above 255, which no such text holds, become "?".
[[nodiscard]] inline std::string NarrowText(StringView text) {
  std::string bytes(text.size(), '\0');
  std::ranges::transform(text, bytes.begin(),
                         [](char16_t unit) { return unit > 0xFF ? '?' : static_cast<char>(unit); });
  return bytes;
}

}  // namespace tolvane
