#pragma once

#include <optional>

#include "platform/rich_text_page.h"
#include "platform/string.h"

namespace tolvane::platform::memory {

/// Reads a Rich Text Format document: text, text colours (\cf) and backgrounds (\highlight, \cb).
/// Empty when `rtf` does not begin as one. Any other input gives what can be made out of it: other
/// formats and destinations are passed over, a document that breaks off ends there, line ends come
/// out as CR LF, the line end of the last paragraph is dropped. A byte above 7F, \'xx, stands for
/// the character of its own number.
[[nodiscard]] std::optional<RichTextPage> ReadRtf(StringView rtf);

}  // namespace tolvane::platform::memory
