#pragma once

#include "simulator/office/server.h"
#include "simulator/office/value.h"

namespace tolvane::office {

/// The new workbook becomes the active one.
Outcome AddWorkbook(Program& program, const Object& object, Arguments& arguments);

/// FileFormat 51 writes .xlsx bytes, 56 and none at all .xls bytes, any other is refused. A file
/// that exists is overwritten only while DisplayAlerts is off: a hidden program has nobody to ask.
Outcome SaveAs(Program& program, const Object& object, Arguments& arguments);

/// The workbook opened before it becomes the active one.
Outcome Close(Program& program, const Object& object, Arguments& arguments);

}  // namespace tolvane::office
