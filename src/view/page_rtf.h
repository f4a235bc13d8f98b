#pragma once

#include <string>

#include "platform/rich_text_page.h"

namespace tolvane {

/// Writes `page` as a Rich Text Format document into `rtf`, replacing its content.
///
/// The document is plain ASCII for any text: the font "ＭＳ ゴシック" in 9 point with the Japanese
/// charset, a colour table with each colour of the page once, and \uN escapes followed by "?" for
/// characters that are not ASCII. Text colours are \cfN, backgrounds \highlightN, which is what
/// rich edit controls read; 0 is the default colour. Every paragraph ends in \par, the last one
/// too, since a reader drops the line end of the last one. Only the lower 24 bits of a colour are
/// written.
void WritePageRtf(const platform::RichTextPage& page, std::string& rtf);

}  // namespace tolvane
