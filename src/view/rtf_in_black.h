#pragma once

#include <string>
#include <string_view>

namespace tolvane {

/// The same Rich Text Format document with black text wherever it leaves the colour to the reader:
/// at its start, after \plain, and for a colour number that its table does not define, usually 0.
/// Everything else is unchanged, backgrounds too. Accepts any bytes.
[[nodiscard]] std::string RtfInBlack(std::string_view rtf);

}  // namespace tolvane
