#pragma once

#include <cstddef>
#include <string>

#include "platform/string.h"

namespace tolvane {

/// True for the characters that every code page holds as one byte of the same value.
[[nodiscard]] constexpr bool IsAscii(char16_t character) { return character < 0x80; }

/// Appends the ASCII characters at the front of `text` to `bytes` and returns their number. Logs
/// are almost all ASCII, and reception stops while one is written, so this works in large steps.
std::size_t AppendAsciiRun(StringView text, std::string& bytes);

}  // namespace tolvane
