#pragma once

#include <optional>

#include "platform/rich_text_page.h"
#include "platform/string.h"

namespace tolvane::platform::memory {

/// The page of a document that WritePageRtf wrote, whether RtfInBlack went over it or not. Empty
/// for every other document, also one that a rich edit control would read: so whatever reads a page
/// back here also judges how it was written. Line ends come out as CR LF, in the colours of the
/// first of their characters.
[[nodiscard]] std::optional<RichTextPage> ReadRtf(StringView rtf);

}  // namespace tolvane::platform::memory
