#pragma once

#include "simulator/office/server.h"
#include "simulator/office/value.h"

namespace tolvane::office {

// Members of the programs.
Outcome GetVersion(Program& program, const Object& object, Arguments& arguments);
Outcome GetApplication(Program& program, const Object& object, Arguments& arguments);
/// Takes True or False; the stand-in has nothing to show or to update.
Outcome PutSwitch(Program& program, const Object& object, Arguments& arguments);
Outcome PutDisplayAlerts(Program& program, const Object& object, Arguments& arguments);
Outcome Quit(Program& program, const Object& object, Arguments& arguments);
Outcome GetWorkbooks(Program& program, const Object& object, Arguments& arguments);
/// Refused while no workbook is open, as is GetActiveWorkbook.
Outcome GetActiveSheet(Program& program, const Object& object, Arguments& arguments);
Outcome GetActiveWorkbook(Program& program, const Object& object, Arguments& arguments);

}  // namespace tolvane::office
