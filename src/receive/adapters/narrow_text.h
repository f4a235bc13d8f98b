#pragma once

#include <string>
#include <string_view>

#include "platform/string.h"

namespace tolvane {

/// Text of an adapter's library as text of the program and back, byte for byte, so that a serial
/// text reaches the library again exactly as the library gave it, whatever the code page.

[[nodiscard]] inline String WideText(std::string_view bytes) {
  String text;
  for (const char byte : bytes) text.push_back(static_cast<unsigned char>(byte));
  return text;
}

[[nodiscard]] inline std::string NarrowText(StringView text) {
  std::string bytes;
  for (const char16_t unit : text) bytes.push_back(static_cast<char>(unit));
  return bytes;
}

}  // namespace tolvane
