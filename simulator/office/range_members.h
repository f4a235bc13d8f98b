#pragma once

#include "simulator/office/server.h"
#include "simulator/office/value.h"

namespace tolvane::office {

// Members of a sheet: `cells` without arguments or with row and column, `Range` with one text or
// two ranges as corners, `Columns` with a number or a text such as "E:L".
Outcome GetCells(Program& program, const Object& object, Arguments& arguments);
Outcome GetRange(Program& program, const Object& object, Arguments& arguments);
Outcome GetColumns(Program& program, const Object& object, Arguments& arguments);

// Members of columns.
Outcome PutColumnWidth(Program& program, const Object& object, Arguments& arguments);

// Members of a range and of its parts. Values that the program under test never puts (another
// colour, line or alignment, numbers as cell values) are refused: they would not show in the file.
Outcome GetFont(Program& program, const Object& object, Arguments& arguments);
Outcome GetInterior(Program& program, const Object& object, Arguments& arguments);
Outcome GetBorders(Program& program, const Object& object, Arguments& arguments);
/// A table of the range's size, whose texts stay texts unless they came as VARIANTs; or a text for
/// all cells, taken as if typed. What would be a formula is refused.
Outcome PutValue(Program& program, const Object& object, Arguments& arguments);
Outcome PutMergeCells(Program& program, const Object& object, Arguments& arguments);
Outcome PutHorizontalAlignment(Program& program, const Object& object, Arguments& arguments);
/// The filter begins at the range's first cell, whatever stands above it.
Outcome AutoFilter(Program& program, const Object& object, Arguments& arguments);
Outcome PutFontSize(Program& program, const Object& object, Arguments& arguments);
Outcome PutColorIndex(Program& program, const Object& object, Arguments& arguments);
Outcome PutLineStyle(Program& program, const Object& object, Arguments& arguments);

}  // namespace tolvane::office
