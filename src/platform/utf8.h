#pragma once

#include <string>

#include "platform/string.h"

namespace tolvane {

/// Appends `text` as UTF-8. Half of a surrogate pair becomes U+FFFD.
void AppendUtf8(std::string& out, StringView text);
std::string ToUtf8(StringView text);

}  // namespace tolvane
