#pragma once

#include "platform/automation.h"
#include "run/elm327_info.h"

namespace tolvane::Common_Function {

/// Stores in `device` whether there is an Access server, and its major version.
void Access_Install_Check(ELM327_Info& device, platform::AutomationServers& servers);

/// Stores in `device` which spreadsheet servers there are, and Excel's major version. If there is
/// none, the log format is set to comma-separated text.
void Excel_Install_Check(ELM327_Info& device, platform::AutomationServers& servers);

}  // namespace tolvane::Common_Function
