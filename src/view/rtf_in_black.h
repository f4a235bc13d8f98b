#pragma once

#include <string>
#include <string_view>

namespace tolvane {

/// The same Rich Text Format document with its text black wherever it leaves the colour to the
/// reader: at its start, behind \plain, and for a number that its colour table does not define, as
/// 0 mostly. Everything else stays, backgrounds too. Any bytes are taken.
[[nodiscard]] std::string RtfInBlack(std::string_view rtf);

}  // namespace tolvane
