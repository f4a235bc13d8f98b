#pragma once

#include <string>

#include "platform/string.h"

namespace tolvane::office {

/// Appends `text` as UTF-8. Half of a surrogate pair standing alone becomes U+FFFD.
void AppendUtf8(std::string& out, StringView text);
std::string ToUtf8(StringView text);

/// Bytes that are no UTF-8 become U+FFFD.
String FromUtf8(std::string_view bytes);

}  // namespace tolvane::office
