#pragma once

#include <string>

#include "simulator/office/sheet.h"

namespace tolvane::office {

/// The bytes of an Office Open XML workbook with this one sheet. All cells are text; a cell whose
/// text is empty is an empty cell. Column widths stand in the file as they were put.
std::string WriteXlsx(const Sheet& sheet);

}  // namespace tolvane::office
