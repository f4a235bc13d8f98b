#pragma once

#include <string>
#include <string_view>

#include "platform/string.h"

namespace tolvane::platform::windows {

// Rich Text Format is a text of 7-bit characters that travels as bytes. As a String it has one unit
// for each byte, so that a foreign writer's raw bytes survive the way there and back.

[[nodiscard]] String FromRtfBytes(std::string_view bytes);
/// Units above 255, which no rich text holds, become "?".
[[nodiscard]] std::string ToRtfBytes(StringView rtf);

}  // namespace tolvane::platform::windows
