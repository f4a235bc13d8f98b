#pragma once

#include <optional>
#include <string>

#include "simulator/office/sheet.h"

namespace tolvane::office {

/// The bytes of an .xls workbook (the binary format of Excel 97 to 2003) with this one sheet:
/// texts, looks, merged ranges and column widths, without the filter. A text is cut after 255
/// UTF-16 units. Empty when the workbook would be larger than about 7 MB.
std::optional<std::string> WriteXls(const Sheet& sheet);

}  // namespace tolvane::office
