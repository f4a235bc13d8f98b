#pragma once

#include <string>

#include "platform/rich_text_page.h"

namespace tolvane {

/// Writes `page` as a Rich Text Format document into `rtf`, over what is there.
///
/// The document is plain ASCII, whatever the text: "ＭＳ ゴシック" in 9 point with the Japanese
/// charset, a colour table with each colour of the page once, \uN escapes with "?" behind them for
/// what is not ASCII. Text colours are \cfN, backgrounds \highlightN, the form that rich edit
/// controls read back; 0 stands for the default colour. Each paragraph, the last one too, ends in
/// \par: a reader drops the line end of the last one. Of a colour its 24 bits are written.
void WritePageRtf(const platform::RichTextPage& page, std::string& rtf);

}  // namespace tolvane
